#include "sysSupport/SysDirectory.h"

#include "TextConversion.h"

#include <string>
#include <windows.h>

QdxString SysDirectory::current()
{
    // The directory may change between the two questions, hence the loop.
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetCurrentDirectoryW(static_cast<DWORD>(path.size()), path.data());
        if (length < path.size())
            return length == 0 ? QdxString() : toNarrow(path.c_str());
        path.resize(length);
    }
}
