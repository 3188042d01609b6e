#include "OwnFile.h"

#include <windows.h>

namespace standin {
std::wstring ownFile()
{
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&ownFile), &module);
    std::wstring file(MAX_PATH, L'\0');
    while (true) {
        const DWORD length = GetModuleFileNameW(module, file.data(), static_cast<DWORD>(file.size()));
        if (length < file.size()) {
            file.resize(length);
            return file;
        }
        file.resize(2 * file.size());
    }
}
} // namespace standin
