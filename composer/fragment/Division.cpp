#include "Division.h"

#include "FragmentFitness.h"

#include <algorithm>
#include <variant>

namespace compose {

namespace {

bool holdsLastBreak(const Paragraph& paragraph)
{
    return std::ranges::any_of(paragraph.items, isLastBreak);
}

/// A link that goes on behind a paragraph end goes on in the next paragraph.
bool endsInALink(const Block& block)
{
    const auto* const paragraph = std::get_if<Paragraph>(&block);
    return paragraph && paragraph->endLink != noLink;
}

bool fitsOpen(const Paragraph& paragraph)
{
    return paragraph.holdsAnything() && !endsFragment(paragraph);
}

} // namespace

bool beginsWithLastBreak(const Block& block)
{
    const auto* const paragraph = std::get_if<Paragraph>(&block);
    return paragraph && !paragraph->items.empty() && isLastBreak(paragraph->items.front());
}

std::vector<Stretch> divide(std::span<const Block> blocks, const std::vector<LinkTarget>& links,
                            std::size_t closed, const Extent& page)
{
    const auto fits = [&](std::size_t index) {
        const auto* const paragraph = std::get_if<Paragraph>(&blocks[index]);
        const bool isOpen = index >= closed;
        return !(isOpen && (closed + 1 < blocks.size() || !fitsOpen(*paragraph))) &&
               fitsFragment(blocks[index], links, page) &&
               !(paragraph && holdsLastBreak(*paragraph) && !beginsWithLastBreak(blocks[index]));
    };
    std::vector<Stretch> stretches;
    const auto add = [&](std::size_t first, std::size_t past, bool isFragment) {
        if (first == past)
            return;
        if (!isFragment && !stretches.empty() && !stretches.back().isFragment)
            stretches.back().past = past;
        else
            stretches.push_back({first, past, isFragment});
    };
    for (std::size_t first = 0; first < blocks.size();) {
        std::size_t past = first;
        while (past < blocks.size() && fits(past) &&
               (past == first || !(beginsWithLastBreak(blocks[past]) || endsFragment(blocks[past - 1]))))
            ++past;
        if (past == first) {
            add(first, first + 1, false);
            ++first;
            continue;
        }
        const bool beginsInALink = first > 0 && endsInALink(blocks[first - 1]);
        std::size_t end = past;
        while (end > first && endsInALink(blocks[end - 1]))
            --end;
        if (beginsInALink)
            end = first;
        add(first, end, true);
        add(end, past, false);
        first = past;
    }
    return stretches;
}

} // namespace compose
