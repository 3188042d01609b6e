#include "Formats.h"

namespace standin::model {

namespace {

template <typename T>
void take(std::optional<T>& mine, const std::optional<T>& other)
{
    if (other)
        mine = other;
}

template <typename T>
void keepIfEqual(std::optional<T>& mine, const std::optional<T>& other)
{
    if (mine != other)
        mine.reset();
}

} // namespace

void FontProperties::overlay(const FontProperties& other)
{
    take(name, other.name);
    take(size, other.size);
    take(bold, other.bold);
    take(italic, other.italic);
    take(strikeThrough, other.strikeThrough);
    take(hidden, other.hidden);
    take(underline, other.underline);
    take(color, other.color);
}

void FontProperties::keepCommon(const FontProperties& other)
{
    keepIfEqual(name, other.name);
    keepIfEqual(size, other.size);
    keepIfEqual(bold, other.bold);
    keepIfEqual(italic, other.italic);
    keepIfEqual(strikeThrough, other.strikeThrough);
    keepIfEqual(hidden, other.hidden);
    keepIfEqual(underline, other.underline);
    keepIfEqual(color, other.color);
}

void ParagraphProperties::overlay(const ParagraphProperties& other)
{
    take(alignment, other.alignment);
    take(leftIndent, other.leftIndent);
    take(rightIndent, other.rightIndent);
    take(firstLineIndent, other.firstLineIndent);
    take(spaceBefore, other.spaceBefore);
    take(spaceAfter, other.spaceAfter);
    take(keepWithNext, other.keepWithNext);
    take(pageBreakBefore, other.pageBreakBefore);
    take(outlineLevel, other.outlineLevel);
    take(tabs, other.tabs);
    take(topBorder, other.topBorder);
    take(bottomBorder, other.bottomBorder);
}

void ParagraphProperties::keepCommon(const ParagraphProperties& other)
{
    keepIfEqual(alignment, other.alignment);
    keepIfEqual(leftIndent, other.leftIndent);
    keepIfEqual(rightIndent, other.rightIndent);
    keepIfEqual(firstLineIndent, other.firstLineIndent);
    keepIfEqual(spaceBefore, other.spaceBefore);
    keepIfEqual(spaceAfter, other.spaceAfter);
    keepIfEqual(keepWithNext, other.keepWithNext);
    keepIfEqual(pageBreakBefore, other.pageBreakBefore);
    keepIfEqual(outlineLevel, other.outlineLevel);
    keepIfEqual(tabs, other.tabs);
    keepIfEqual(topBorder, other.topBorder);
    keepIfEqual(bottomBorder, other.bottomBorder);
}

} // namespace standin::model
