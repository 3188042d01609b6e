#pragma once

#include "Formats.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace standin::model {

// The enumerations have the values of Word's own, so that a number from a client can be cast.

enum class RowHeightRule : std::int32_t
{
    automatic = 0,
    atLeast = 1,
    exactly = 2
};

/// What becomes of a row's other cells when one gets another width.
enum class RulerStyle : std::int32_t
{
    none = 0,     ///< they keep their widths, and those behind move
    sameWidth = 3 ///< the row's right edge stays: cells behind share what is left equally
};

struct CellFormat
{
    float width = 0; ///< points, from this cell's left edge to the next one's
    Border top;
    Border left;
    Border bottom;
    Border right;

    bool operator==(const CellFormat&) const = default;
};

/// Formatting of a row of a table, kept with the row's last mark. Lengths in points.
struct RowFormat
{
    static constexpr float padding = 5.4f; ///< between a cell's edge and its text, left and right
    static constexpr std::size_t mostCells = 63;
    static constexpr float leastWidth = 2 * padding + 0.1f; ///< narrower a cell has no room for its text
    static constexpr float largest = 1584; ///< the largest width of a cell and height of a row

    float leftEdge = -padding; ///< of the first cell, from the left margin
    RowHeightRule heightRule = RowHeightRule::automatic;
    float height = 0; ///< nothing under the automatic rule
    std::vector<CellFormat> cells;
    const Style* style = nullptr; ///< the table's; null: none

    bool operator==(const RowFormat&) const = default;
};

} // namespace standin::model
