#include "registry/RegisterCache.h"

#include <algorithm>
#include <utility>

namespace {

QdxString lowerCase(QdxString text)
{
    text.toLower();
    return text;
}

bool isNamed(const RegEntry& entry, const QdxString& group, const QdxString& name)
{
    return lowerCase(entry.getGroup()) == lowerCase(group) && lowerCase(entry.getName()) == lowerCase(name);
}

} // namespace

RegEntry RegisterCache::read(const QdxString& group, const QdxString& name,
                             const RegEntry& defaultEntry) const
{
    return lookUp(group, name).entry.value_or(defaultEntry);
}

const RegEntry* RegisterCache::overrideOf(const QdxString& group, const QdxString& name) const
{
    for (const RegEntry& entry : overrides_)
        if (isNamed(entry, group, name))
            return &entry;
    return nullptr;
}

RegisterCache::Found RegisterCache::lookUp(const QdxString& group, const QdxString& name) const
{
    if (const RegEntry* const entry = overrideOf(group, name))
        return {*entry, SettingOrigin::clientOverride};
    Stored users = stored(HKEY_CURRENT_USER, group, name);
    if (users.entry)
        return {std::move(users.entry), SettingOrigin::user};
    Stored machines = stored(HKEY_LOCAL_MACHINE, group, name);
    const SettingOrigin origin = machines.entry ? SettingOrigin::machine : SettingOrigin::byDefault;
    return {std::move(machines.entry), origin, users.isOfForeignType || machines.isOfForeignType};
}

void RegisterCache::override(const RegEntry& entry)
{
    const auto earlier = std::find_if(overrides_.begin(), overrides_.end(), [&](const RegEntry& candidate) {
        return isNamed(candidate, entry.getGroup(), entry.getName());
    });
    if (earlier == overrides_.end())
        overrides_.push_back(entry);
    else
        *earlier = entry;
}
