#pragma once

#include "registry/RegisterBase.h"

#include <optional>
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
        SettingOrigin origin = SettingOrigin::byDefault;
        bool passedOver = false; ///< On the way a value was found that is of a type that no setting has.
    };
    /// The same look-up, and where it ended.
    [[nodiscard]] Found lookUp(const QdxString& group, const QdxString& name) const;
    /// The override for that group and name, or null; borrowed until the next override.
    [[nodiscard]] const RegEntry* overrideOf(const QdxString& group, const QdxString& name) const;

    /// From now on `entry` is what read() gives for its group and name; a later override replaces an earlier
    /// one.
    void override(const RegEntry& entry);

private:
    std::vector<RegEntry> overrides_;
};
