#pragma once

#include <windows.h>

#include <comdef.h>

/// Throws a Windows error as a `_com_error`.
[[noreturn]] inline void throwWindowsError(DWORD error)
{
    throw _com_error(HRESULT_FROM_WIN32(error));
}

/// Throws the calling thread's last Windows error as a `_com_error`.
[[noreturn]] inline void throwLastError()
{
    throwWindowsError(GetLastError());
}

/// Throws what a registry function answers, unless it is ERROR_SUCCESS, as a `_com_error`.
inline void checkStatus(LSTATUS status)
{
    if (status != ERROR_SUCCESS)
        throwWindowsError(static_cast<DWORD>(status));
}
