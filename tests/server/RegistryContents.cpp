#include "RegistryContents.h"

#include <vector>

namespace {

std::map<std::wstring, std::wstring> readValues(HKEY key)
{
    std::map<std::wstring, std::wstring> values;
    std::vector<wchar_t> name(16384);
    std::vector<wchar_t> data(32768);
    for (DWORD index = 0;; ++index) {
        DWORD nameLength = static_cast<DWORD>(name.size());
        DWORD type = 0;
        DWORD size = static_cast<DWORD>((data.size() - 1) * sizeof(wchar_t));
        if (RegEnumValueW(key, index, name.data(), &nameLength, nullptr, &type,
                          reinterpret_cast<BYTE*>(data.data()), &size) != ERROR_SUCCESS)
            return values;
        data[size / sizeof(wchar_t)] = L'\0';
        const std::wstring prefix = type == REG_SZ ? L"" : L"type " + std::to_wstring(type) + L": ";
        values[std::wstring(name.data(), nameLength)] = prefix + data.data();
    }
}

void readInto(RegistryContents& contents, HKEY parent, const std::wstring& path, const std::wstring& shown)
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return;
    contents[shown] = readValues(key);
    wchar_t name[256];
    for (DWORD index = 0;; ++index) {
        DWORD length = 256;
        if (RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        readInto(contents, key, name, shown.empty() ? name : shown + L"\\" + name);
    }
    RegCloseKey(key);
}

} // namespace

RegistryContents readRegistry(HKEY parent, const std::wstring& path)
{
    RegistryContents contents;
    readInto(contents, parent, path, L"");
    return contents;
}
