#include "RtfTableLook.h"

#include "RtfText.h"

#include <algorithm>
#include <map>

namespace standin::rtf {

using namespace model;

namespace {

std::string_view alignmentOfStyle(VerticalAlignment alignment)
{
    switch (alignment) {
    case VerticalAlignment::center:
        return "\\tsvertalc";
    case VerticalAlignment::bottom:
        return "\\tsvertalb";
    case VerticalAlignment::top:
        break;
    }
    return "\\tsvertalt";
}

} // namespace

bool TableLookReader::take(std::string_view word, std::int32_t number, const ColorTableReader& colors)
{
    static const std::map<std::string_view, VerticalAlignment> alignments = {
        {"tsvertalt", VerticalAlignment::top},
        {"tsvertalc", VerticalAlignment::center},
        {"tsvertalb", VerticalAlignment::bottom}};
    if (const auto found = alignments.find(word); found != alignments.end())
        look_.alignment = found->second;
    else if (word == "tscfirstrow")
        isOfFirstRow_ = true;
    else if (word == "tscellcbpat")
        look_.headingShading = colors.color(number);
    else if (word == "trpaddt" || word == "trpaddb")
        (word == "trpaddt" ? look_.paddingAbove : look_.paddingBelow) = points(std::clamp(number, 0, 31680));
    else
        return borderWord(word, number, colors) || word.starts_with("ts") || word.starts_with("tr") ||
               word.starts_with("tbl");
    return true;
}

bool TableLookReader::borderWord(std::string_view word, std::int32_t number, const ColorTableReader& colors)
{
    static const std::map<std::string_view, Border TableLook::*> sides = {
        {"brdrt", &TableLook::top},
        {"brdrl", &TableLook::left},
        {"brdrb", &TableLook::bottom},
        {"brdrr", &TableLook::right},
        {"brdrh", &TableLook::insideHorizontal},
        {"brdrv", &TableLook::insideVertical}};
    const bool isSide = word.starts_with("trbrdr") || word.starts_with("tsbrdr");
    if (isSide) {
        const auto side = sides.find(word.substr(2));
        border_ = side == sides.end() ? nullptr : &(look_.*(side->second));
        return true;
    }
    if (!word.starts_with("brdr"))
        return false;
    if (!border_)
        return true;
    if (word == "brdrw")
        border_->width = points(std::clamp(number, 1, 75));
    else if (word == "brdrcf")
        border_->color = colors.color(number);
    else
        border_->isVisible = word != "brdrnone" && word != "brdrnil";
    return true;
}

void TableLookReader::define(TableLook& look, const FontProperties& font) const
{
    if (!isOfFirstRow_) {
        look = look_;
        look.headingShading = FontProperties::automaticColor;
        return;
    }
    look.headingBottom = look_.bottom;
    look.headingShading = look_.headingShading;
    look.headingFont = font;
}

std::string tableWords(const TableLook& look, const RowNumbers& numbers)
{
    std::string rtf =
        visibleBorder("\\trbrdrt", look.top, numbers) + visibleBorder("\\trbrdrl", look.left, numbers) +
        visibleBorder("\\trbrdrb", look.bottom, numbers) + visibleBorder("\\trbrdrr", look.right, numbers) +
        visibleBorder("\\trbrdrh", look.insideHorizontal, numbers) +
        visibleBorder("\\trbrdrv", look.insideVertical, numbers) + "\\trftsWidthB3";
    const std::int32_t side = twips(RowFormat::padding);
    rtf += control("\\trpaddl", side) + control("\\trpaddr", side) +
           control("\\trpaddt", twips(look.paddingAbove)) + control("\\trpaddb", twips(look.paddingBelow)) +
           "\\trpaddfl3\\trpaddft3\\trpaddfb3\\trpaddfr3\\tblind0\\tblindtype3";
    return rtf.append(alignmentOfStyle(look.alignment));
}

std::string headingWords(const TableLook& look, const RowNumbers& numbers)
{
    std::string rtf = visibleBorder("\\tsbrdrb", look.headingBottom, numbers);
    if (look.headingShading != FontProperties::automaticColor)
        rtf += control("\\tscellcbpat", numbers.color(look.headingShading));
    return rtf;
}

} // namespace standin::rtf
