#pragma once

#include "Content.h"

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

/// Divides what waits in a story into stretches, in its order: those that fit a fragment, and what is between
/// them. The last block is the story's open paragraph; `isTableOpen`: in front of it stands an open table.
///
/// A fragment begins a paragraph and ends with one that holds something, or with a table: so it shows what
/// became of its end. The last page break is in none, because its place is wanted later.
std::vector<Stretch> divide(std::span<const Block> blocks, const std::vector<LinkTarget>& links,
                            bool isTableOpen);

} // namespace compose
