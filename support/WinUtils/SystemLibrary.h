#pragma once

#include <windows.h>

/// A DLL of Windows, held while the object lives.
///
/// The one way in which our code loads libraries. Windows resolves a DLL's imports by looking into the host's
/// folder first, for all but the few libraries that every process shares. What is not among those few is not
/// imported but loaded with this class, which looks into the system folder only, so that no file planted
/// beside a host comes to run.
class SystemLibrary
{
public:
    /// `name` is a file name without a folder. The host's activation context may still choose between
    /// versions that Windows keeps side by side. Throws `_com_error`.
    explicit SystemLibrary(const wchar_t* name);
    ~SystemLibrary();
    SystemLibrary(const SystemLibrary&) = delete;
    SystemLibrary& operator=(const SystemLibrary&) = delete;

    /// An exported function, of the type given. Throws `_com_error` when there is none of that name.
    template <class Function>
    [[nodiscard]] Function* function(const char* name) const
    {
        return reinterpret_cast<Function*>(address(name));
    }

private:
    [[nodiscard]] void* address(const char* name) const;

    HMODULE module_;
};
