#include "registry/RegisterDynamic.h"

#include "TextConversion.h"
#include "registry/SettingsKey.h"

RegEntry RegisterDynamic::read(const QdxString& group, const QdxString& name, const RegEntry& defaultEntry,
                               bool allUsersOnly)
{
    return find(group, name, allUsersOnly ? Scope::allUsers : Scope::userThenAllUsers).value_or(defaultEntry);
}

void RegisterDynamic::write(const QdxString& group, const QdxString& name, const RegEntry& entry,
                            bool forAllUsers)
{
    const HKEY hive = forAllUsers ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
    const RegistryKey key = detail::createSettings(hive, detail::settingsPath(group));
    const int kind = entry.getKind();
    if (kind == RegEntry::integerKind || kind == RegEntry::booleanKind)
        key.setNumber(toWide(name), static_cast<DWORD>(static_cast<int>(entry)));
    else
        key.setText(toWide(name), toWide(entry));
}
