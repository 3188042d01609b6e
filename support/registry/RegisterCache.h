#pragma once

#include "registry/RegisterBase.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Where a setting comes from.
enum class SettingOrigin
{
    clientOverride,
    user,
    machine,
    byDefault
};

/// The registry as one session sees it: the session's overrides go before the registry.
/// Overrides live as long as the object and never reach the registry. One thread at a time.
class RegisterCache : public RegisterBase
{
public:
    /// The override for that group and name (compared without case, as the registry does), else the
    /// registry's value, else `defaultEntry`.
    [[nodiscard]] RegEntry read(const QdxString& group, const QdxString& name,
                                const RegEntry& defaultEntry) const;

    struct Found
    {
        std::optional<RegEntry> entry; ///< Nothing: the default holds.
        std::wstring text = {};        ///< The same, of a text with all its characters.
        SettingOrigin origin = SettingOrigin::byDefault;
        bool passedOver = false; ///< On the way a value was found that is of a type that no setting has.
    };
    /// The same look-up, and where it ended.
    [[nodiscard]] Found lookUp(const QdxString& group, const QdxString& name) const;
    /// The override for that group and name, if there is one.
    [[nodiscard]] std::optional<Found> overrideOf(const QdxString& group, const QdxString& name) const;

    /// From now on `entry` is what read() gives for its group and name; a later override replaces an earlier
    /// one. `text` has all the characters of its value.
    void override(const RegEntry& entry, std::wstring_view text = {});

    /// A value of the registry under one of the groups.
    struct StoredName
    {
        std::wstring name;
        SettingOrigin origin = SettingOrigin::user;
    };
    /// All values that the user and the machine have in a group.
    [[nodiscard]] static std::vector<StoredName> namesIn(const QdxString& group);

private:
    struct Override
    {
        RegEntry entry;
        std::wstring text;
    };
    std::vector<Override> overrides_;
};
