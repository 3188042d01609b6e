#include "WaitingTags.h"

#include <algorithm>

namespace compose {

std::size_t WaitingTags::place(const std::u16string& bookmark)
{
    remove(bookmark);
    numbers_[bookmark] = ++last_;
    return last_;
}

void WaitingTags::remove(std::u16string_view bookmark)
{
    const auto waiting = numbers_.find(bookmark);
    if (waiting == numbers_.end())
        return;
    numbers_.erase(waiting);
    areSomeStale_ = true;
}

bool WaitingTags::isStale(const Item& item) const
{
    const auto* const tag = std::get_if<Tag>(&item.what);
    if (!tag)
        return false;
    const auto waiting = numbers_.find(tag->bookmark);
    return waiting == numbers_.end() || waiting->second != tag->number;
}

// All at once: a search for each would take longer and longer.
void WaitingTags::dropStale(Blocks& blocks)
{
    if (!areSomeStale_)
        return;
    const auto dropFrom = [this](Paragraph& paragraph) {
        std::erase_if(paragraph.items, [this](const Item& item) { return isStale(item); });
    };
    for (Block& block : blocks) {
        if (auto* const paragraph = std::get_if<Paragraph>(&block)) {
            dropFrom(*paragraph);
            continue;
        }
        for (Row& row : std::get<Table>(block).rows)
            for (Cell& each : row)
                std::ranges::for_each(each, dropFrom);
    }
    areSomeStale_ = false;
}

void WaitingTags::clear()
{
    numbers_.clear();
    areSomeStale_ = false;
}

} // namespace compose
