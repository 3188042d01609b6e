#include "FollowingOperations.h"

#include <variant>

namespace compose {

bool hasTagBehindField(const std::deque<Operation>& operations)
{
    for (auto next = operations.begin() + 1; next != operations.end(); ++next) {
        if (std::holds_alternative<RemoveText>(*next))
            continue;
        const auto* const tag = std::get_if<PlaceTag>(&*next);
        return tag && tag->isBehindField;
    }
    return false;
}

void releaseTags(std::deque<Operation>& operations)
{
    for (auto next = operations.begin() + 1; next != operations.end(); ++next)
        if (auto* const tag = std::get_if<PlaceTag>(&*next); tag && tag->isBehindField)
            tag->isBehindField = false;
        else if (!std::holds_alternative<RemoveText>(*next))
            return;
}

void closeGap(std::deque<Operation>& operations, Position at)
{
    for (auto next = operations.begin() + 1; next != operations.end();) {
        auto* const link = std::get_if<AddLink>(&*next);
        if (auto* const tag = std::get_if<PlaceTag>(&*next); tag && tag->at > at)
            --tag->at;
        if (link && link->span.end > at)
            --link->span.end;
        const bool isEmpty = link && link->span.start == link->span.end;
        next = isEmpty ? operations.erase(next) : next + 1;
    }
}

} // namespace compose
