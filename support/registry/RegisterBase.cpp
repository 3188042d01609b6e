#include "registry/RegisterBase.h"

#include "TextConversion.h"
#include "registry/RegistryKey.h"

namespace {

/// Text reads expanded; a foreign type and every failure count as "nothing".
std::optional<RegEntry> readValue(HKEY hive, const std::wstring& path, const QdxString& group,
                                  const QdxString& name)
{
    const detail::RegistryKey key = detail::RegistryKey::open(hive, path);
    if (!key)
        return std::nullopt;
    const _bstr_t wideName = toWide(name);
    if (const std::optional<DWORD> number = key.number(wideName))
        return RegEntry(group, name, static_cast<int>(*number));
    if (const std::optional<std::wstring> text = key.text(wideName))
        return RegEntry(group, name, toNarrow(text->c_str()));
    return std::nullopt;
}

} // namespace

std::optional<RegEntry> RegisterBase::find(const QdxString& group, const QdxString& name, Scope scope)
{
    const std::wstring path = detail::settingsPath(group);
    if (scope == Scope::userThenAllUsers)
        if (std::optional<RegEntry> entry = readValue(HKEY_CURRENT_USER, path, group, name))
            return entry;
    return readValue(HKEY_LOCAL_MACHINE, path, group, name);
}
