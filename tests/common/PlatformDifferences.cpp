#include "PlatformDifferences.h"

#include <windows.h>

#include <algorithm>

bool isWindowsWay(Difference difference)
{
    const bool isWine = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
    return !isWine || std::ranges::find(platformDifferences, difference, &PlatformDifference::id) ==
                          platformDifferences.end();
}
