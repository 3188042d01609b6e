#pragma once

#include <windows.h>

#include <comdef.h>

/// Throws the calling thread's last Windows error as a `_com_error`.
[[noreturn]] inline void throwLastError()
{
    throw _com_error(HRESULT_FROM_WIN32(GetLastError()));
}
