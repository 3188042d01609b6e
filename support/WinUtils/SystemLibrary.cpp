#include "WinUtils/SystemLibrary.h"

#include "win32/WindowsError.h"

SystemLibrary::SystemLibrary(const wchar_t* name)
    : module_(LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32))
{
    if (module_ == nullptr)
        throwLastError();
}

SystemLibrary::~SystemLibrary()
{
    FreeLibrary(module_);
}

void* SystemLibrary::address(const char* name) const
{
    void* const found = reinterpret_cast<void*>(GetProcAddress(module_, name));
    if (found == nullptr)
        throwLastError();
    return found;
}
