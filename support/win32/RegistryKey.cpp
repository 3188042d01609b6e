#include "win32/RegistryKey.h"

#include "win32/WindowsError.h"

#include <cwchar>
#include <iterator>

RegistryKey RegistryKey::open(HKEY parent, const std::wstring& path, REGSAM access) noexcept
{
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(parent, path.c_str(), 0, access, &key);
    return RegistryKey(status == ERROR_SUCCESS ? key : nullptr);
}

RegistryKey RegistryKey::create(HKEY parent, const std::wstring& path, REGSAM access)
{
    HKEY key = nullptr;
    checkStatus(RegCreateKeyExW(parent, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, access, nullptr,
                                &key, nullptr));
    return RegistryKey(key);
}

RegistryKey::~RegistryKey()
{
    if (key_)
        RegCloseKey(key_);
}

bool RegistryKey::has(const wchar_t* name) const noexcept
{
    return RegQueryValueExW(key_, name, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

std::vector<std::wstring> RegistryKey::subkeys() const
{
    constexpr DWORD longestName = 255;
    std::vector<std::wstring> all;
    wchar_t name[longestName + 1];
    for (DWORD index = 0;; ++index) {
        DWORD length = static_cast<DWORD>(std::size(name));
        if (RegEnumKeyExW(key_, index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            return all;
        all.emplace_back(name, length);
    }
}

bool RegistryKey::isEmpty() const
{
    DWORD subkeys = 0;
    DWORD values = 0;
    checkStatus(RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, &subkeys, nullptr, nullptr, &values,
                                 nullptr, nullptr, nullptr, nullptr));
    return subkeys == 0 && values == 0;
}

std::optional<DWORD> RegistryKey::number(const wchar_t* name) const noexcept
{
    DWORD value = 0;
    DWORD size = sizeof value;
    if (RegGetValueW(key_, nullptr, name, RRF_RT_REG_DWORD, nullptr, &value, &size) != ERROR_SUCCESS)
        return std::nullopt;
    return value;
}

std::optional<std::wstring> RegistryKey::text(const wchar_t* name) const
{
    std::wstring value(260, L'\0');
    for (;;) {
        DWORD size = static_cast<DWORD>(value.size() * sizeof(wchar_t));
        const LSTATUS status = RegGetValueW(key_, nullptr, name, RRF_RT_REG_SZ, nullptr, value.data(), &size);
        if (status == ERROR_SUCCESS) {
            value.resize(std::wcslen(value.c_str()));
            return value;
        }
        if (status != ERROR_MORE_DATA)
            return std::nullopt;
        value.resize(value.size() * 2);
    }
}

std::vector<std::wstring> RegistryKey::names() const
{
    constexpr DWORD longestName = 16384;
    std::vector<std::wstring> found;
    std::wstring name(longestName, L'\0');
    for (DWORD size = longestName; RegEnumValueW(key_, static_cast<DWORD>(found.size()), name.data(), &size,
                                                 nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         size = longestName)
        found.emplace_back(name, 0, size);
    return found;
}

void RegistryKey::setNumber(const wchar_t* name, DWORD number) const
{
    checkStatus(
        RegSetValueExW(key_, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof number));
}

void RegistryKey::setText(const wchar_t* name, const wchar_t* text) const
{
    const DWORD size = static_cast<DWORD>((std::wcslen(text) + 1) * sizeof(wchar_t));
    checkStatus(RegSetValueExW(key_, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text), size));
}

void RegistryKey::remove(const wchar_t* name) const
{
    const LSTATUS status = RegDeleteValueW(key_, name);
    if (status != ERROR_FILE_NOT_FOUND)
        checkStatus(status);
}
