#pragma once

#include <cstring>
#include <memory>
#include <new>
#include <string_view>

#include <objbase.h>

/// Frees what COM's callers free with CoTaskMemFree.
struct TaskMemoryDeleter
{
    void operator()(void* memory) const noexcept { CoTaskMemFree(memory); }
};

/// A text for such a caller, to whom `release` gives it.
using TaskString = std::unique_ptr<wchar_t, TaskMemoryDeleter>;

/// Throws std::bad_alloc.
inline TaskString taskString(std::wstring_view text)
{
    TaskString copy(static_cast<wchar_t*>(CoTaskMemAlloc((text.size() + 1) * sizeof(wchar_t))));
    if (!copy)
        throw std::bad_alloc();
    std::memcpy(copy.get(), text.data(), text.size() * sizeof(wchar_t));
    copy.get()[text.size()] = L'\0';
    return copy;
}
