#include "ReferenceStyles.h"

#include <algorithm>
#include <array>

namespace reference {

int headingNumber(std::u16string_view name)
{
    constexpr std::u16string_view prefix = u"Heading ";
    if (!name.starts_with(prefix))
        return 0;
    int number = 0;
    for (const char16_t digit : name.substr(prefix.size()))
        number = number * 10 + (digit - u'0');
    return number;
}

const ReferenceStyle* findStyle(std::u16string_view name)
{
    static const std::array styles = {
        ReferenceStyle{u"Normal", {u"Times New Roman", 12}},
        ReferenceStyle{u"Heading 1", {u"Arial", 16, true}},
        ReferenceStyle{u"Heading 2", {u"Arial", 14, true, true}},
        ReferenceStyle{u"Heading 3", {u"Arial", 13, true}},
        ReferenceStyle{u"Heading 9", {u"Arial", 11}},
        ReferenceStyle{u"Title", {u"Arial", 16, true}, Alignment::centre},
        ReferenceStyle{u"Plain Text", {u"Courier New", 10}},
        ReferenceStyle{u"TOC Heading", {u"Times New Roman", 20, true}},
        ReferenceStyle{u"Header", {u"Times New Roman", 12}},
        ReferenceStyle{u"Footer", {u"Times New Roman", 12}},
    };
    const std::u16string_view real = headingNumber(name) > 9 ? u"Heading 9" : name;
    const auto found = std::find_if(styles.begin(), styles.end(),
                                    [real](const ReferenceStyle& each) { return each.name == real; });
    return found == styles.end() ? nullptr : &*found;
}

} // namespace reference
