#include "RtfDefaults.h"

namespace standin::rtf {

using namespace model;

FontProperties plainFont()
{
    return {.name = u"Times New Roman",
            .size = 12.0f,
            .bold = false,
            .italic = false,
            .strikeThrough = false,
            .hidden = false,
            .underline = 0,
            .color = FontProperties::automaticColor};
}

ParagraphProperties plainParagraph()
{
    return {.alignment = Alignment::left,
            .leftIndent = 0.0f,
            .rightIndent = 0.0f,
            .firstLineIndent = 0.0f,
            .spaceBefore = 0.0f,
            .spaceAfter = 0.0f,
            .keepWithNext = false,
            .pageBreakBefore = false,
            .outlineLevel = 10,
            .tabs = std::vector<TabStop>(),
            .topBorder = Border(),
            .bottomBorder = Border()};
}

namespace {

template <typename Value>
void drop(std::optional<Value>& mine, const std::optional<Value>& other)
{
    if (mine == other)
        mine.reset();
}

} // namespace

FontProperties fontBeyond(const FontProperties& wanted, const FontProperties& base)
{
    FontProperties own = wanted;
    drop(own.name, base.name);
    drop(own.size, base.size);
    drop(own.bold, base.bold);
    drop(own.italic, base.italic);
    drop(own.strikeThrough, base.strikeThrough);
    drop(own.hidden, base.hidden);
    drop(own.underline, base.underline);
    drop(own.color, base.color);
    return own;
}

ParagraphProperties paragraphBeyond(const ParagraphProperties& wanted, const ParagraphProperties& base)
{
    ParagraphProperties own = wanted;
    drop(own.alignment, base.alignment);
    drop(own.leftIndent, base.leftIndent);
    drop(own.rightIndent, base.rightIndent);
    drop(own.firstLineIndent, base.firstLineIndent);
    drop(own.spaceBefore, base.spaceBefore);
    drop(own.spaceAfter, base.spaceAfter);
    drop(own.keepWithNext, base.keepWithNext);
    drop(own.pageBreakBefore, base.pageBreakBefore);
    drop(own.outlineLevel, base.outlineLevel);
    drop(own.tabs, base.tabs);
    drop(own.topBorder, base.topBorder);
    drop(own.bottomBorder, base.bottomBorder);
    return own;
}

} // namespace standin::rtf
