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
};

/// The blocks as RTF. All must fit one (`fitsFragment`); the first begins a paragraph, each paragraph ends in
/// its mark, the last one too, and between two tables there is a paragraph.
///
/// A link that goes on behind the last paragraph or a cell ends in front of its mark. Fields have no results,
/// but are marked as to be updated.
std::string fragmentOf(std::span<const Block> blocks, const FragmentContext& context);

/// Whether a fragment's first character, when this is its first block, states the font that its style does,
/// and is visible text or a mark: then it shows what a reader made of that font.
bool beginsInStyleFont(const Block& block, StyleSheet& styles);

} // namespace compose
