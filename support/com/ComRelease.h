#pragma once

#include <memory>

/// Deletes an object whose destructor may throw. A client that calls Release can be told nothing, so what the
/// destructor could not do ends here; its memory and its members are gone all the same.
template <class Object>
void destroyQuietly(Object* object) noexcept
try {
    delete object;
} catch (...) { // NOLINT(bugprone-empty-catch): see above
}

/// Gives up the one reference that it holds.
struct ComReleaser
{
    template <class Object>
    void operator()(Object* object) const noexcept
    {
        object->Release();
    }
};

/// Owns one reference to a class under construction, where `_com_ptr_t` would need to know one of its
/// interfaces.
template <class Object>
using ComOwner = std::unique_ptr<Object, ComReleaser>;
