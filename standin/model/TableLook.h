#pragma once

#include "Formats.h"

namespace standin::model {

enum class VerticalAlignment
{
    top,
    center,
    bottom
};

/// What a table style says of the tables that have it. Lengths in points.
struct TableLook
{
    Border top;
    Border left;
    Border bottom;
    Border right;
    Border insideHorizontal; ///< between rows
    Border insideVertical;   ///< between columns
    float paddingAbove = 0;  ///< between a cell's edge and its text
    float paddingBelow = 0;
    VerticalAlignment alignment = VerticalAlignment::top;

    /// \name The first row
    ///@{
    Border headingBottom; ///< in place of the line between rows, if it is visible
    FontProperties headingFont = {};
    std::int32_t headingShading = FontProperties::automaticColor; ///< automatic: none
    ///@}

    bool operator==(const TableLook&) const = default;
};

} // namespace standin::model
