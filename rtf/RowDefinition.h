#pragma once

#include <string>
#include <vector>

namespace rtf {

/// What RTF says of a table's row in front of its cells. Lengths are points.
struct RowDefinition
{
    std::vector<float> widths = {}; ///< of the cells, from edge to edge
    float exactHeight = 0;          ///< 0: as high as its text
    float padding = 5.4f;           ///< between a cell's edge and its text, left and right
    float leftEdge = -5.4f;         ///< of the first cell, from the margin
};

std::string textOf(const RowDefinition& row);

} // namespace rtf
