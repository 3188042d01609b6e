#include "registry/SettingsKey.h"

#include "TextConversion.h"
#include "registry/RegisterBase.h"

namespace detail {

std::wstring settingsPath(const QdxString& group)
{
    std::wstring path = RegisterBase::root;
    if (!group.isEmpty())
        path.append(L"\\").append(static_cast<const wchar_t*>(toWide(group)));
    return path;
}

RegistryKey openSettings(HKEY hive, const std::wstring& path) noexcept
{
    return RegistryKey::open(hive, path, KEY_QUERY_VALUE | KEY_WOW64_64KEY);
}

RegistryKey createSettings(HKEY hive, const std::wstring& path)
{
    return RegistryKey::create(hive, path, KEY_SET_VALUE | KEY_WOW64_64KEY);
}

} // namespace detail
