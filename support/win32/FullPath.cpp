#include "win32/FullPath.h"

#include <windows.h>

std::wstring fullPath(const std::wstring& name)
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetFullPathNameW(name.c_str(), static_cast<DWORD>(path.size()), path.data(), nullptr);
        if (length == 0)
            return name;
        const bool fits = length < path.size(); // otherwise it is the length with the NUL
        path.resize(length);
        if (fits)
            return path;
    }
}
