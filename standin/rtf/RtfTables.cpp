#include "RtfTables.h"

#include "RtfText.h"
#include "Styles.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace standin::rtf {

namespace {

using namespace model;

constexpr std::int32_t twipsPerPoint = 20;
constexpr std::int32_t farthest = static_cast<std::int32_t>(RowFormat::largest) * twipsPerPoint;

std::string_view alignmentOfCell(VerticalAlignment alignment)
{
    switch (alignment) {
    case VerticalAlignment::center:
        return "\\clvertalc";
    case VerticalAlignment::bottom:
        return "\\clvertalb";
    case VerticalAlignment::top:
        break;
    }
    return "\\clvertalt";
}

/// The lines around a row's cells, and what else its style says of them.
class CellWords
{
public:
    CellWords(const RowFormat& row, RowPlace place, const RowNumbers& numbers)
        : row_(row), place_(place), numbers_(numbers)
    {
    }

    [[nodiscard]] std::string of(std::size_t column) const
    {
        const CellFormat& cell = row_.cells[column];
        if (!row_.style)
            return border("\\clbrdrt", cell.top) + border("\\clbrdrl", cell.left) +
                   border("\\clbrdrb", cell.bottom) + border("\\clbrdrr", cell.right);
        const TableLook& look = row_.style->table;
        const bool isFirst = column == 0;
        const bool isLast = column + 1 == row_.cells.size();
        std::string rtf(alignmentOfCell(look.alignment));
        rtf += border("\\clbrdrt", either(cell.top, above(look))) +
               border("\\clbrdrl", either(cell.left, isFirst ? look.left : look.insideVertical)) +
               border("\\clbrdrb", either(cell.bottom, below(look))) +
               border("\\clbrdrr", either(cell.right, isLast ? look.right : look.insideVertical));
        if (place_.isFirst && look.headingShading != FontProperties::automaticColor)
            rtf += control("\\clcbpat", numbers_.color(look.headingShading));
        return rtf;
    }

private:
    static const Border& either(const Border& own, const Border& ofStyle)
    {
        return own.isVisible ? own : ofStyle;
    }
    [[nodiscard]] const Border& above(const TableLook& look) const
    {
        if (place_.isFirst)
            return look.top;
        return place_.isSecond ? belowHeading(look) : look.insideHorizontal;
    }
    [[nodiscard]] const Border& below(const TableLook& look) const
    {
        if (place_.isLast)
            return look.bottom;
        return place_.isFirst ? belowHeading(look) : look.insideHorizontal;
    }
    static const Border& belowHeading(const TableLook& look)
    {
        return either(look.headingBottom, look.insideHorizontal);
    }
    [[nodiscard]] std::string border(std::string_view side, const Border& border) const
    {
        return visibleBorder(side, border, numbers_);
    }

    const RowFormat& row_;
    RowPlace place_;
    const RowNumbers& numbers_;
};

// Some readers take the first edge for that of the text, and look for the distance between both here alone.
std::string startOfStyledRow(const RowFormat& format, const RowNumbers& numbers)
{
    const TableLook& look = format.style->table;
    const std::int32_t edge = twips(format.leftEdge + RowFormat::padding);
    const std::int32_t padding = twips(RowFormat::padding);
    std::string rtf = control("\\ts", numbers.style) + control("\\trgaph", padding) +
                      control("\\trleft", edge) + control("\\tblind", edge) + "\\tblindtype3" +
                      control("\\trpaddl", padding) + control("\\trpaddr", padding) +
                      "\\trpaddfl3\\trpaddfr3";
    if (look.paddingAbove > 0)
        rtf += control("\\trpaddt", twips(look.paddingAbove)) + "\\trpaddft3";
    if (look.paddingBelow > 0)
        rtf += control("\\trpaddb", twips(look.paddingBelow)) + "\\trpaddfb3";
    return rtf;
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

std::string borderLine(std::string_view side, const Border& border, std::int32_t colorNumber)
{
    return std::string(side) + "\\brdrs" + control("\\brdrw", std::clamp(twips(border.width), 1, 75)) +
           (colorNumber > 0 ? control("\\brdrcf", colorNumber) : "");
}

std::string visibleBorder(std::string_view side, const Border& border, const RowNumbers& numbers)
{
    if (!border.isVisible)
        return "";
    const bool isAutomatic = border.color == FontProperties::automaticColor || !numbers.color;
    return borderLine(side, border, isAutomatic ? 0 : numbers.color(border.color));
}

std::string rowDefinition(const RowFormat& format, RowPlace place, const RowNumbers& numbers)
{
    std::string rtf = "\\trowd";
    if (format.style)
        rtf += startOfStyledRow(format, numbers);
    else
        rtf += control("\\trgaph", twips(RowFormat::padding)) + control("\\trleft", twips(format.leftEdge));
    rtf += height(format);
    const CellWords words(format, place, numbers);
    float edge = format.style ? format.leftEdge + RowFormat::padding : format.leftEdge;
    for (std::size_t column = 0; column < format.cells.size(); ++column) {
        rtf += words.of(column);
        // A table may be wider than any single length.
        edge += format.cells[column].width;
        rtf += control("\\cellx", static_cast<std::int32_t>(std::lround(edge * twipsPerPoint)));
    }
    return rtf + "\n";
}

bool RowDefinitionReader::take(std::string_view word, std::int32_t number, const ColorTableReader& colors)
{
    if (word == "trowd") {
        *this = {};
    } else if (word == "ts") {
        style_ = number;
    } else if (word == "tblind") {
        textEdge_ = std::clamp(number, -farthest, farthest);
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
        return borderWord(word, number, colors);
    }
    return true;
}

bool RowDefinitionReader::borderWord(std::string_view word, std::int32_t number,
                                     const ColorTableReader& colors)
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
    else if (border_ && word == "brdrcf")
        (cell_.*border_).color = colors.color(number);
    else if (border_)
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
    if (textEdge_)
        format.leftEdge = static_cast<float>(*textEdge_) / twipsPerPoint - RowFormat::padding;
    format.cells.resize(cells, row_.cells.empty() ? other : row_.cells.back());
    return format;
}

} // namespace standin::rtf
