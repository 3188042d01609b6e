#include "registry/RegisterCache.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace {

bool isSameWithoutCase(const QdxString& a, const QdxString& b)
{
    const auto lower = [](unsigned char c) { return std::tolower(c); };
    return std::equal(a.data(), a.data() + a.length(), b.data(), b.data() + b.length(),
                      [&](char x, char y) { return lower(x) == lower(y); });
}

bool isNamed(const RegEntry& entry, const QdxString& group, const QdxString& name)
{
    return isSameWithoutCase(entry.getName(), name) && isSameWithoutCase(entry.getGroup(), group);
}

} // namespace

RegEntry RegisterCache::read(const QdxString& group, const QdxString& name,
                             const RegEntry& defaultEntry) const
{
    return lookUp(group, name).entry.value_or(defaultEntry);
}

std::optional<RegisterCache::Found> RegisterCache::overrideOf(const QdxString& group,
                                                              const QdxString& name) const
{
    for (const Override& each : overrides_)
        if (isNamed(each.entry, group, name))
            return Found{each.entry, each.text, SettingOrigin::clientOverride};
    return std::nullopt;
}

RegisterCache::Found RegisterCache::lookUp(const QdxString& group, const QdxString& name) const
{
    if (std::optional<Found> found = overrideOf(group, name))
        return std::move(*found);
    Stored users = stored(HKEY_CURRENT_USER, group, name);
    if (users.entry)
        return {std::move(users.entry), std::move(users.text), SettingOrigin::user};
    Stored machines = stored(HKEY_LOCAL_MACHINE, group, name);
    const SettingOrigin origin = machines.entry ? SettingOrigin::machine : SettingOrigin::byDefault;
    return {std::move(machines.entry), std::move(machines.text), origin,
            users.isOfForeignType || machines.isOfForeignType};
}

void RegisterCache::override(const RegEntry& entry, std::wstring_view text)
{
    const auto earlier = std::ranges::find_if(overrides_, [&](const Override& candidate) {
        return isNamed(candidate.entry, entry.getGroup(), entry.getName());
    });
    if (earlier == overrides_.end())
        overrides_.push_back({entry, std::wstring(text)});
    else
        *earlier = {entry, std::wstring(text)};
}

std::vector<RegisterCache::StoredName> RegisterCache::namesIn(const QdxString& group)
{
    std::vector<StoredName> found;
    for (std::wstring& name : storedNames(HKEY_CURRENT_USER, group))
        found.push_back({std::move(name), SettingOrigin::user});
    for (std::wstring& name : storedNames(HKEY_LOCAL_MACHINE, group))
        found.push_back({std::move(name), SettingOrigin::machine});
    return found;
}
