#include "registry/RegistryKey.h"

#include "TextConversion.h"
#include "registry/RegisterBase.h"

#include <comdef.h>
#include <cwchar>

namespace detail {

namespace {

void check(LSTATUS status)
{
    if (status != ERROR_SUCCESS)
        throw _com_error(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

} // namespace

std::wstring settingsPath(const QdxString& group)
{
    std::wstring path = RegisterBase::root;
    if (!group.isEmpty())
        path.append(L"\\").append(static_cast<const wchar_t*>(toWide(group)));
    return path;
}

RegistryKey RegistryKey::open(HKEY hive, const std::wstring& path) noexcept
{
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(hive, path.c_str(), 0, KEY_QUERY_VALUE | KEY_WOW64_64KEY, &key);
    return RegistryKey(status == ERROR_SUCCESS ? key : nullptr);
}

RegistryKey RegistryKey::create(HKEY hive, const std::wstring& path)
{
    HKEY key = nullptr;
    check(RegCreateKeyExW(hive, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                          KEY_SET_VALUE | KEY_WOW64_64KEY, nullptr, &key, nullptr));
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
    check(RegSetValueExW(key_, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof number));
}

void RegistryKey::setText(const wchar_t* name, const wchar_t* text) const
{
    const DWORD size = static_cast<DWORD>((std::wcslen(text) + 1) * sizeof(wchar_t));
    check(RegSetValueExW(key_, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text), size));
}

} // namespace detail
