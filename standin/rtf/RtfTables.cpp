#include "RtfTables.h"

#include "RtfText.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace standin::rtf {

namespace {

using namespace model;

constexpr std::int32_t twipsPerPoint = 20;
constexpr std::int32_t farthest = static_cast<std::int32_t>(RowFormat::largest) * twipsPerPoint;

std::string border(std::string_view side, const Border& border)
{
    return border.isVisible ? borderLine(side, border) : "";
}

std::string height(const RowFormat& format)
{
    switch (format.heightRule) {
    case RowHeightRule::atLeast:
        return control("\\trrh", twips(format.height));
    case RowHeightRule::exactly:
        return control("\\trrh", -twips(format.height));
    case RowHeightRule::automatic:
        break;
    }
    return "";
}

} // namespace

std::string borderLine(std::string_view side, const Border& border)
{
    return std::string(side) + "\\brdrs" + control("\\brdrw", std::clamp(twips(border.width), 1, 75));
}

std::string rowDefinition(const RowFormat& format)
{
    std::string rtf = "\\trowd" + control("\\trgaph", twips(RowFormat::padding)) +
                      control("\\trleft", twips(format.leftEdge)) + height(format);
    float edge = format.leftEdge;
    for (const CellFormat& cell : format.cells) {
        rtf += border("\\clbrdrt", cell.top) + border("\\clbrdrl", cell.left) +
               border("\\clbrdrb", cell.bottom) + border("\\clbrdrr", cell.right);
        // A table may be wider than any single length.
        edge += cell.width;
        rtf += control("\\cellx", static_cast<std::int32_t>(std::lround(edge * twipsPerPoint)));
    }
    return rtf + "\n";
}

bool RowDefinitionReader::take(std::string_view word, std::int32_t number)
{
    if (word == "trowd") {
        *this = {};
    } else if (word == "trleft") {
        edge_ = std::clamp(number, -farthest, farthest);
        row_.leftEdge = static_cast<float>(edge_) / twipsPerPoint;
    } else if (word == "trrh") {
        row_.heightRule = number < 0 ? RowHeightRule::exactly
                                     : (number > 0 ? RowHeightRule::atLeast : RowHeightRule::automatic);
        row_.height = std::min(std::abs(static_cast<float>(number)) / twipsPerPoint, RowFormat::largest);
    } else if (word == "cellx") {
        finishCell(number);
    } else {
        return borderWord(word, number);
    }
    return true;
}

bool RowDefinitionReader::borderWord(std::string_view word, std::int32_t number)
{
    static const std::map<std::string_view, Border CellFormat::*> sides = {{"clbrdrt", &CellFormat::top},
                                                                           {"clbrdrl", &CellFormat::left},
                                                                           {"clbrdrb", &CellFormat::bottom},
                                                                           {"clbrdrr", &CellFormat::right}};
    if (const auto side = sides.find(word); side != sides.end()) {
        border_ = side->second;
        return true;
    }
    if (!word.starts_with("brdr"))
        return false;
    if (word == "brdrt" || word == "brdrl" || word == "brdrb" || word == "brdrr")
        border_ = nullptr; // a paragraph's
    else if (border_ && word == "brdrw")
        (cell_.*border_).width = static_cast<float>(std::clamp(number, 1, 75)) / twipsPerPoint;
    else if (border_ && word != "brdrcf")
        (cell_.*border_).isVisible = word != "brdrnone" && word != "brdrnil";
    return true;
}

void RowDefinitionReader::finishCell(std::int32_t rightEdge)
{
    if (row_.cells.size() < RowFormat::mostCells) {
        const std::int32_t width = std::clamp(rightEdge, edge_, edge_ + farthest) - edge_;
        edge_ += width;
        cell_.width = static_cast<float>(width) / twipsPerPoint;
        row_.cells.push_back(cell_);
    }
    cell_ = {};
    border_ = nullptr;
}

RowFormat RowDefinitionReader::format(std::size_t cells) const
{
    CellFormat other;
    other.width = 72;
    RowFormat format = row_;
    format.cells.resize(cells, row_.cells.empty() ? other : row_.cells.back());
    return format;
}

} // namespace standin::rtf
