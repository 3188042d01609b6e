#pragma once

#include "Content.h"
#include "PictureRoom.h"

#include <cstddef>
#include <span>
#include <vector>

namespace compose {

/// Blocks that lie side by side and go into Word by the same way.
struct Stretch
{
    std::size_t first = 0;
    std::size_t past = 0;
    bool isFragment = false; ///< A fragment can carry them.

    bool operator==(const Stretch&) const = default;
};

/// Whether it begins with the last page break.
bool beginsWithLastBreak(const Block& block);

/// Divides what waits in a story into stretches, in its order: those that fit a fragment, and what is between
/// them. `closed`: how many of them nothing can come to any more; behind these a table fits none, and a
/// paragraph only as the last one of a fragment. `page`: the room for pictures.
///
/// A fragment begins and ends with whole paragraphs. What is to become more than a paragraph end
/// (`endsFragment`) is its last one. The last page break is in none, because its place is
/// wanted later, unless one can begin with it.
std::vector<Stretch> divide(std::span<const Block> blocks, const std::vector<LinkTarget>& links,
                            std::size_t closed, const Extent& page = {});

} // namespace compose
