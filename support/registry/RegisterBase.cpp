#include "registry/RegisterBase.h"

#include "TextConversion.h"
#include "registry/SettingsKey.h"

namespace {

/// Text reads expanded, and goes to `wide` as well; a foreign type and every failure count as "nothing".
std::optional<RegEntry> readValue(const RegistryKey& key, const QdxString& group, const QdxString& name,
                                  std::wstring* wide = nullptr)
{
    if (!key)
        return std::nullopt;
    const _bstr_t wideName = toWide(name);
    if (const std::optional<DWORD> number = key.number(wideName))
        return RegEntry(group, name, static_cast<int>(*number));
    const std::optional<std::wstring> text = key.text(wideName);
    if (!text)
        return std::nullopt;
    if (wide)
        *wide = *text;
    return RegEntry(group, name, toNarrow(text->c_str()));
}

} // namespace

std::optional<RegEntry> RegisterBase::find(const QdxString& group, const QdxString& name, Scope scope)
{
    const std::wstring path = detail::settingsPath(group);
    if (scope == Scope::userThenAllUsers)
        if (std::optional<RegEntry> entry =
                readValue(detail::openSettings(HKEY_CURRENT_USER, path), group, name))
            return entry;
    return readValue(detail::openSettings(HKEY_LOCAL_MACHINE, path), group, name);
}

RegisterBase::Stored RegisterBase::stored(HKEY hive, const QdxString& group, const QdxString& name)
{
    const RegistryKey key = detail::openSettings(hive, detail::settingsPath(group));
    Stored found;
    found.entry = readValue(key, group, name, &found.text);
    found.isOfForeignType = !found.entry && key && key.has(toWide(name));
    return found;
}

std::vector<std::wstring> RegisterBase::storedNames(HKEY hive, const QdxString& group)
{
    const RegistryKey key = detail::openSettings(hive, detail::settingsPath(group));
    return key ? key.names() : std::vector<std::wstring>();
}
