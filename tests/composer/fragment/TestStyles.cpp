#include "TestStyles.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace compose {

std::span<const TestStyle> TestStyles::all()
{
    // Bold, italic and underlined ones, too: taking that away must come out. The last ones are struck, have
    // another alignment, and a name that RTF has to escape.
    static const std::vector<TestStyle> styles = {
        {u"Normal", u"Normal", {.name = u"Times New Roman", .size = 12}},
        {u"Heading 1", u"heading 1", {.name = u"Arial", .size = 16, .isBold = true}},
        {u"Heading 2", u"heading 2", {.name = u"Arial", .size = 14, .isBold = true, .isItalic = true}},
        {u"Header", u"header", {.name = u"Times New Roman", .size = 10}},
        {u"Title", u"Title", {.name = u"Verdana", .size = 20, .isUnderlined = true}, 1},
        {u"Zitat {\u00E4\u4E2D}", u"Zitat {\u00E4\u4E2D}", {.name = u"Courier New", .size = 9}, 3},
        {u"Gone", u"Gone", {.name = u"Georgia", .size = 8, .isStruck = true}, 2},
    };
    return styles;
}

const TestStyle& TestStyles::find(const std::u16string& name)
{
    const auto found = std::ranges::find_if(
        all(), [&name](const TestStyle& style) { return style.name == name || style.rtfName == name; });
    if (found == all().end())
        throw std::out_of_range("no such style");
    return *found;
}

} // namespace compose
