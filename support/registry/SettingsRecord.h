#pragma once

#include "registry/RegisterCache.h"
#include "registry/SettingTable.h"

#include <array>
#include <string>

/// A setting as it was found.
struct SettingValue
{
    RegEntry entry;         ///< What readers go by; the default when nothing is stored.
    std::wstring text = {}; ///< The same; a stored text has all its characters.
    SettingOrigin origin = SettingOrigin::byDefault;
    /// False when what was found cannot be of the setting's kind, or when on the way to it a value of a
    /// registry type was passed over that no setting has.
    bool isOfItsKind = true;
};

/// What the settings say at one moment, read once and handed down: each setting of the table, the session's
/// overrides first.
///
/// Two readers go past the overrides and past this record, because documents depend on it: `chooseTemplate`
/// for the folder of a template's bare name, and the counting writer for the folder of pictures, which it
/// looks up anew for each header and footer. Both ask `registeredInstallDir`.
class SettingsRecord
{
public:
    /// The defaults.
    SettingsRecord();
    [[nodiscard]] static SettingsRecord read(const RegisterCache& registry);

    /// Takes over what a client has overridden of the settings that count from the beginning; the others wait
    /// for `create`.
    void takeOverrides(const RegisterCache& registry);

    [[nodiscard]] const SettingValue& operator[](SettingName name) const
    {
        return values_[static_cast<std::size_t>(name)];
    }
    /// The value as a reader of that kind takes it.
    /// @{
    [[nodiscard]] QdxString text(SettingName name) const { return (*this)[name].entry; }
    [[nodiscard]] int integer(SettingName name) const { return (*this)[name].entry; }
    [[nodiscard]] bool isOn(SettingName name) const { return (*this)[name].entry; }
    /// @}

    /// The installation directory as it is stored at this moment, overrides aside.
    [[nodiscard]] static QdxString registeredInstallDir();

private:
    void set(const SettingDescription& setting, const RegisterCache::Found& found);

    std::array<SettingValue, settingTable.size()> values_;
};
