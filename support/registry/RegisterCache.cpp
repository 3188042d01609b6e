#include "registry/RegisterCache.h"

#include <algorithm>

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
    for (const RegEntry& entry : overrides_)
        if (isNamed(entry, group, name))
            return entry;
    return find(group, name, Scope::userThenAllUsers).value_or(defaultEntry);
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
