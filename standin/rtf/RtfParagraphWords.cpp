#include "RtfParagraphWords.h"

#include "RtfTables.h"
#include "RtfText.h"

#include <optional>
#include <string_view>
#include <vector>

namespace standin::rtf {

using namespace model;

namespace {

std::string_view alignmentWord(Alignment alignment)
{
    switch (alignment) {
    case Alignment::center:
        return "\\qc";
    case Alignment::right:
        return "\\qr";
    case Alignment::justify:
        return "\\qj";
    case Alignment::left:
        break;
    }
    return "\\ql";
}

std::string_view tabLeaderWord(TabStop::Leader leader)
{
    switch (leader) {
    case TabStop::Leader::dots:
        return "\\tldot";
    case TabStop::Leader::dashes:
        return "\\tlhyph";
    case TabStop::Leader::lines:
        return "\\tlul";
    case TabStop::Leader::heavy:
        return "\\tlth";
    case TabStop::Leader::middleDot:
        return "\\tlmdot";
    case TabStop::Leader::spaces:
        break;
    }
    return "";
}

std::string tabStops(const std::vector<TabStop>& tabs)
{
    std::string rtf;
    for (const TabStop& tab : tabs) {
        if (tab.kind != TabStop::Kind::left)
            rtf += tab.kind == TabStop::Kind::center ? "\\tqc" : "\\tqr";
        rtf += tabLeaderWord(tab.leader);
        rtf += control("\\tx", twips(tab.position));
    }
    return rtf;
}

std::string paragraphBorder(std::string_view side, const std::optional<Border>& border)
{
    // Word keeps a line a point away from the text.
    return border && border->isVisible ? borderLine(side, *border) + "\\brsp20" : "";
}

} // namespace

std::string paragraphWords(const ParagraphProperties& properties)
{
    std::string rtf(alignmentWord(properties.alignment.value_or(Alignment::left)));
    const auto length = [&rtf](std::string_view word, const std::optional<float>& points) {
        if (points.value_or(0) != 0)
            rtf += control(word, twips(*points));
    };
    length("\\li", properties.leftIndent);
    length("\\ri", properties.rightIndent);
    length("\\fi", properties.firstLineIndent);
    length("\\sb", properties.spaceBefore);
    length("\\sa", properties.spaceAfter);
    if (properties.keepWithNext.value_or(false))
        rtf += "\\keepn";
    if (properties.pageBreakBefore.value_or(false))
        rtf += "\\pagebb";
    const std::int32_t level = properties.outlineLevel.value_or(10);
    if (level >= 1 && level <= 9)
        rtf += control("\\outlinelevel", level - 1);
    rtf += paragraphBorder("\\brdrt", properties.topBorder) +
           paragraphBorder("\\brdrb", properties.bottomBorder);
    return rtf + tabStops(properties.tabs.value_or(std::vector<TabStop>()));
}

} // namespace standin::rtf
