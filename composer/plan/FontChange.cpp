#include "FontChange.h"

#include "StyleSheet.h"

namespace compose {

namespace {

template <class Property>
void setWhereDifferent(std::optional<Property>& change, const Property& wanted, const Property& given)
{
    if (wanted != given)
        change = wanted;
}

} // namespace

FontChange changeOf(const FontWish* wish, const std::u16string& paragraphStyle, StyleSheet& styles)
{
    if (!wish || (wish->style == paragraphStyle && !wish->changesAnything()))
        return {};
    const Font base = styles.fontOf(wish->style);
    const Font& given = styles.fontOf(paragraphStyle);
    const float size = wish->size ? static_cast<float>(*wish->size) : base.size;

    FontChange change;
    setWhereDifferent(change.name, wish->name.value_or(base.name), given.name);
    if (size != 0)
        setWhereDifferent(change.size, size, given.size);
    setWhereDifferent(change.isBold, wish->isBold.value_or(base.isBold), given.isBold);
    setWhereDifferent(change.isItalic, wish->isItalic.value_or(base.isItalic), given.isItalic);
    setWhereDifferent(change.isUnderlined, wish->isUnderlined.value_or(base.isUnderlined),
                      given.isUnderlined);
    setWhereDifferent(change.isStruck, wish->isStruck.value_or(base.isStruck), given.isStruck);
    return change;
}

} // namespace compose
