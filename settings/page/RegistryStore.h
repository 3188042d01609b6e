#pragma once

#include "SettingsStore.h"

#include "registry/RegisterBase.h"

/// The registry of this machine.
class RegistryStore : public SettingsStore, private RegisterBase
{
public:
    [[nodiscard]] std::optional<StoredSetting> read(SettingScope scope,
                                                    const SettingDescription& setting) const override;
    void writeNumber(const SettingDescription& setting, int number) override;
    void writeText(const SettingDescription& setting, const std::wstring& text) override;
    void remove(const SettingDescription& setting) override;
};
