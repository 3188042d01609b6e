#include "registry/SettingsRecord.h"

#include "TextConversion.h"
#include "registry/RegisterDynamic.h"

SettingsRecord::SettingsRecord()
{
    for (const SettingDescription& setting : settingTable)
        set(setting, {});
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
        if (const auto found = registry.overrideOf(setting.group, setting.name))
            set(setting, *found);
    }
}

void SettingsRecord::set(const SettingDescription& setting, const RegisterCache::Found& found)
{
    const RegEntry entry = found.entry.value_or(defaultEntry(setting));
    const std::wstring text =
        found.text.empty() ? static_cast<const wchar_t*>(toWide(entry.getValue())) : found.text;
    values_[static_cast<std::size_t>(setting.id)] = {
        entry, text, found.origin, !found.passedOver && (!found.entry || canBe(setting.kind, *found.entry))};
}

QdxString SettingsRecord::registeredInstallDir()
{
    const SettingDescription& setting = describe(SettingName::installDir);
    return RegisterDynamic::read(setting.group, setting.name, defaultEntry(setting));
}
