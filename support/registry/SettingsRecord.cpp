#include "registry/SettingsRecord.h"

#include "registry/RegisterDynamic.h"

SettingsRecord::SettingsRecord()
{
    for (const SettingDescription& setting : settingTable)
        values_[static_cast<std::size_t>(setting.id)].entry = defaultEntry(setting);
}

SettingsRecord SettingsRecord::read(const RegisterCache& registry)
{
    SettingsRecord record;
    for (const SettingDescription& setting : settingTable)
        record.set(setting, registry.lookUp(setting.group, setting.name));
    return record;
}

void SettingsRecord::takeOverrides(const RegisterCache& registry)
{
    for (const SettingDescription& setting : settingTable) {
        if (setting.reading != SettingReading::fromTheBeginning)
            continue;
        if (const RegEntry* const entry = registry.overrideOf(setting.group, setting.name))
            set(setting, {*entry, SettingOrigin::clientOverride});
    }
}

void SettingsRecord::set(const SettingDescription& setting, const RegisterCache::Found& found)
{
    values_[static_cast<std::size_t>(setting.id)] = {
        found.entry.value_or(defaultEntry(setting)), found.origin,
        !found.passedOver && (!found.entry || canBe(setting.kind, *found.entry))};
}

QdxString SettingsRecord::registeredInstallDir()
{
    const SettingDescription& setting = describe(SettingName::installDir);
    return RegisterDynamic::read(setting.group, setting.name, defaultEntry(setting));
}
