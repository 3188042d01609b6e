#include "RegistryStore.h"

#include "TextConversion.h"
#include "registry/SettingsKey.h"

#include <comdef.h>

namespace {

template <class Change>
void changeUsers(const SettingDescription& setting, Change change)
try {
    change(detail::createSettings(HKEY_CURRENT_USER, detail::settingsPath(setting.group)),
           static_cast<const wchar_t*>(toWide(setting.name)));
} catch (const _com_error& error) {
    throw StoreRefusal(error.ErrorMessage());
}

} // namespace

std::optional<StoredSetting> RegistryStore::read(SettingScope scope, const SettingDescription& setting) const
{
    Stored found = stored(scope == SettingScope::user ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE, setting.group,
                          setting.name);
    if (!found.entry)
        return std::nullopt;
    return StoredSetting{*found.entry, std::move(found.text)};
}

void RegistryStore::writeNumber(const SettingDescription& setting, int number)
{
    changeUsers(setting, [number](const RegistryKey& key, const wchar_t* name) {
        key.setNumber(name, static_cast<DWORD>(number));
    });
}

void RegistryStore::writeText(const SettingDescription& setting, const std::wstring& text)
{
    changeUsers(setting,
                [&text](const RegistryKey& key, const wchar_t* name) { key.setText(name, text.c_str()); });
}

void RegistryStore::remove(const SettingDescription& setting)
{
    changeUsers(setting, [](const RegistryKey& key, const wchar_t* name) { key.remove(name); });
}
