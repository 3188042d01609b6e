#pragma once

#include "Content.h"

#include <span>

namespace compose {

/// A length of each kind, in points.
struct Extent
{
    float width = 0;
    float height = 0;
};

/// In its natural size.
Extent extentOf(const KeptPicture& picture);

/// What holds each of the blocks' kept pictures; nothing of each length where there are none.
Extent largestPicture(std::span<const Block> blocks);

/// Between a cell's edge and its text.
inline constexpr float cellPadding = 5.4F;

/// Of a page's width, which tables take up, as their text begins and ends where that of the page does.
constexpr float tableWidthOn(float pageWidth)
{
    return pageWidth + 2 * cellPadding;
}

/// For the text of each cell.
constexpr float cellWidthOn(float pageWidth, std::size_t columns)
{
    return tableWidthOn(pageWidth) / static_cast<float>(columns) - 2 * cellPadding;
}

} // namespace compose
