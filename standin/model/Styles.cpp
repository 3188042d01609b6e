#include "Styles.h"

#include "BuiltinStyles.h"
#include "WordError.h"

#include <algorithm>

namespace standin::model {

namespace {

char16_t foldCase(char16_t c)
{
    const auto within = [c](int first, int last) { return c >= first && c <= last; };
    const auto plus = [c](int distance) { return static_cast<char16_t>(c + distance); };
    if (within('A', 'Z') || (within(0xC0, 0xDE) && c != 0xD7) || (within(0x391, 0x3A9) && c != 0x3A2) ||
        within(0x410, 0x42F))
        return plus(0x20);
    return within(0x400, 0x40F) ? plus(0x50) : c;
}

} // namespace

std::u16string foldCase(std::u16string_view text)
{
    std::u16string folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(), [](char16_t c) { return foldCase(c); });
    return folded;
}

Style::Style(std::u16string name, StyleType type, std::int32_t builtinNumber)
    : name_(std::move(name)), foldedName_(foldCase(name_)), type_(type), builtinNumber_(builtinNumber)
{
}

void Style::setBase(const Style* base)
{
    for (const Style* each = base; each; each = each->base_)
        if (each == this)
            throw WordError(WordErrorNumber::commandFailed, "A style cannot be based on itself.");
    base_ = base;
}

bool Style::hasCharacterStyle() const
{
    constexpr std::int32_t firstHeading = -2;
    constexpr std::int32_t lastHeading = -10;
    constexpr std::int32_t header = -32;
    constexpr std::int32_t footer = -33;
    constexpr std::int32_t title = -63;
    const bool isHeading = builtinNumber_ <= firstHeading && builtinNumber_ >= lastHeading;
    return isHeading || builtinNumber_ == header || builtinNumber_ == footer || builtinNumber_ == title;
}

FontProperties Style::resolvedFont() const
{
    FontProperties resolved = base_ ? base_->resolvedFont() : FontProperties();
    resolved.overlay(font);
    return resolved;
}

ParagraphProperties Style::resolvedParagraph() const
{
    ParagraphProperties resolved = base_ ? base_->resolvedParagraph() : ParagraphProperties();
    resolved.overlay(paragraph);
    return resolved;
}

Styles::Styles() : styles_(makeBuiltinStyles()), normal_(styles_.front())
{
    std::ranges::sort(
        styles_, {}, [](const StylePtr& each) -> auto& { return each->foldedName(); });
}

StylePtr Styles::byName(std::u16string_view name) const
{
    StylePtr style = find(name);
    if (!style)
        throw WordError(WordErrorNumber::noSuchMember);
    return style;
}

StylePtr Styles::byNumber(std::int32_t number) const
{
    StylePtr style;
    if (number < 0)
        style = findBuiltin(number);
    else if (number >= 1 && number <= count())
        style = styles_[static_cast<std::size_t>(number - 1)];
    if (!style)
        throw WordError(WordErrorNumber::noSuchMember);
    return style;
}

StylePtr Styles::find(std::u16string_view name) const
{
    const std::u16string folded = foldCase(name);
    const auto place = placeOf(folded);
    return place != styles_.end() && (*place)->foldedName() == folded ? *place : nullptr;
}

StylePtr Styles::findBuiltin(std::int32_t number) const
{
    const auto found = std::find_if(styles_.begin(), styles_.end(), [number](const StylePtr& each) {
        return each->isBuiltin() && each->builtinNumber() == number;
    });
    return found == styles_.end() ? nullptr : *found;
}

StylePtr Styles::characterStyleOf(const Style& style)
{
    const std::u16string name = style.name() + u" Char";
    StylePtr found = find(name);
    if (!found || found->type() != StyleType::character) {
        found = add(name, StyleType::character);
        found->font = style.resolvedFont();
    }
    return found;
}

StylePtr Styles::add(std::u16string_view name, StyleType type)
{
    if (name.empty() || find(name))
        throw WordError(WordErrorNumber::commandFailed, "The style name is empty or taken.");
    auto style = std::make_shared<Style>(std::u16string(name), type, 0);
    if (type == StyleType::paragraph)
        style->setBase(normal_.get());
    styles_.insert(placeOf(style->foldedName()), style);
    return style;
}

std::vector<StylePtr>::const_iterator Styles::placeOf(const std::u16string& foldedName) const
{
    return std::ranges::lower_bound(
        styles_, foldedName, {}, [](const StylePtr& each) -> auto& { return each->foldedName(); });
}

} // namespace standin::model
