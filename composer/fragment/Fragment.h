#pragma once

#include "Content.h"
#include "StyleSheet.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace compose {

/// What a fragment needs to know beside the content.
struct FragmentContext
{
    StyleSheet& styles;                   ///< What a style says already is not said again.
    const std::vector<LinkTarget>& links; ///< by number
    /// Whether a link to that bookmark is to be made; else there is its text alone.
    std::function<bool(const std::u16string& bookmark)> isLinked;
    float tableWidth; ///< points; every table is that wide, with equal columns
    /// Behind the blocks stands a character (`endMark`) in a paragraph like this one; null: none does.
    const Paragraph* behind = nullptr;
    /// It stands at the end of the last block instead, which is a paragraph, without the tags there:
    /// Bookmarks at the edge of what goes may go with it.
    bool endsOpen = false;
};

/// The text of a paragraph by which the end of a fragment is found.
inline constexpr char16_t endMark = u'\u00a7';

/// The tags behind which the paragraph holds nothing.
std::span<const Item> tagsAtEnd(const Paragraph& paragraph);

/// The blocks as RTF. All must fit one (`fitsFragment`); the first begins a paragraph, each paragraph ends in
/// its mark, the last one too, and between two tables there is a paragraph.
///
/// A link that goes on behind the last paragraph or a cell ends in front of its mark. Fields have no results,
/// but are marked as to be updated.
std::string fragmentOf(std::span<const Block> blocks, const FragmentContext& context);

} // namespace compose
