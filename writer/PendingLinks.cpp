#include "PendingLinks.h"

#include <algorithm>

void PendingLinks::add(const HyperLink& link)
{
    links_.push_back(link);
    if (!link.destination.resolved)
        unresolved_.emplace(link.destination.bookmark, &links_.back());
}

void PendingLinks::resolve(const QdxString& bookmark)
{
    const auto [first, last] = unresolved_.equal_range(bookmark);
    std::for_each(first, last, [](const auto& entry) { entry.second->destination.resolved = true; });
    unresolved_.erase(first, last);
}

PendingLinks::iterator PendingLinks::erase(iterator link)
{
    const auto [first, last] = unresolved_.equal_range(link->destination.bookmark);
    const auto entry = std::find_if(first, last, [&](const auto& e) { return e.second == &*link; });
    if (entry != last)
        unresolved_.erase(entry);
    return links_.erase(link);
}
