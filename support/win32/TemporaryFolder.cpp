#include "win32/TemporaryFolder.h"

#include <windows.h>

std::wstring temporaryFolder()
{
    wchar_t path[MAX_PATH + 1];
    const DWORD length = GetTempPathW(MAX_PATH + 1, path);
    return length <= MAX_PATH ? std::wstring(path, length) : std::wstring();
}
