#pragma once

#include "Content.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace compose {

/// Content that fits a fragment: every kind of item, block and formatting, with texts and names that have to
/// be escaped; pictures of every kind, in paragraphs and cells, linked and not.
struct RandomContent
{
    Blocks blocks;
    std::vector<LinkTarget> links;
};

/// `below` gives a number from 0 to its argument - 1.
RandomContent makeContent(const std::function<std::size_t(std::size_t)>& below);

/// Of the bookmarks that links lead to, one is never placed: no link is to be made to it.
bool isLinkedBookmark(const std::u16string& bookmark);

} // namespace compose
