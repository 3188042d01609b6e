#pragma once

#include <windows.h>

#include <string_view>

/// While alive, a module's calls of a function that it imports from another one go to `replacement`. For what
/// the system would do with a request that a test wants to see.
class ImportedFunction
{
public:
    /// Throws `std::runtime_error` if the module does not import the function.
    template <class Function>
    ImportedFunction(HMODULE module, std::string_view name, Function* replacement)
        : ImportedFunction(module, name, reinterpret_cast<void*>(replacement))
    {
    }
    ~ImportedFunction();
    ImportedFunction(const ImportedFunction&) = delete;
    ImportedFunction& operator=(const ImportedFunction&) = delete;

private:
    ImportedFunction(HMODULE module, std::string_view name, void* replacement);
    void set(void* function) const;

    void** place_;
    void* former_;
};
