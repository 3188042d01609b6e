#pragma once

#include "RegEntry.h"
#include "registry/SettingTable.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

/// Whose value of a setting.
enum class SettingScope
{
    user,
    machine ///< for all users
};

struct StoredSetting
{
    RegEntry entry;
    std::wstring text = {}; ///< Of a text, with all its characters.
};

/// Why a value was not stored, in the system's words.
class StoreRefusal : public std::runtime_error
{
public:
    explicit StoreRefusal(std::wstring words)
        : std::runtime_error("a setting was not stored"), reason(std::move(words))
    {
    }

    std::wstring reason;
};

/// Where settings are kept: what the page needs of the machine. Written is for the user only.
class SettingsStore
{
public:
    virtual ~SettingsStore() = default;

    /// Nothing when there is no value, or none that a setting can have.
    [[nodiscard]] virtual std::optional<StoredSetting> read(SettingScope scope,
                                                            const SettingDescription& setting) const = 0;
    /// Raise `StoreRefusal`.
    /// @{
    virtual void writeNumber(const SettingDescription& setting, int number) = 0;
    virtual void writeText(const SettingDescription& setting, const std::wstring& text) = 0;
    /// Also when there is no value.
    virtual void remove(const SettingDescription& setting) = 0;
    /// @}
};
