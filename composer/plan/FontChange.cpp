#include "FontChange.h"

#include "StyleSheet.h"

namespace compose {

FontChange changeOf(const FontWish* wish, const std::u16string& paragraphStyle, StyleSheet& styles)
{
    FontChange change;
    if (!wish)
        return change;
    const bool isOtherStyle = wish->style != paragraphStyle;
    const auto set = [&](auto& changed, FontProperty property, auto Font::*member, const auto& wished) {
        if (!wished && !isOtherStyle)
            return;
        const auto wanted = wished ? *wished : styles.fontOf(wish->style, property).*member;
        if (wanted != styles.fontOf(paragraphStyle, property).*member)
            changed = wanted;
    };
    set(change.name, FontProperty::name, &Font::name, wish->name);
    if (wish->size != 0)
        set(change.size, FontProperty::size, &Font::size,
            wish->size ? std::optional(static_cast<float>(*wish->size)) : std::nullopt);
    if (change.size == 0.0F) // Nobody knows the style's.
        change.size.reset();
    set(change.isBold, FontProperty::bold, &Font::isBold, wish->isBold);
    set(change.isItalic, FontProperty::italic, &Font::isItalic, wish->isItalic);
    set(change.isUnderlined, FontProperty::underline, &Font::isUnderlined, wish->isUnderlined);
    set(change.isStruck, FontProperty::strike, &Font::isStruck, wish->isStruck);
    return change;
}

} // namespace compose
