#include "StyleName.h"

#include <algorithm>
#include <array>

namespace compose {

namespace {

constexpr std::u16string_view normal = u"Normal";

struct RenamedStyle
{
    std::u16string_view shown; ///< in lower case
    std::u16string_view inFiles;
};
constexpr std::array renamedStyles = {
    RenamedStyle{u"caption", u"caption"},
    RenamedStyle{u"comment text", u"annotation text"},
    RenamedStyle{u"endnote text", u"endnote text"},
    RenamedStyle{u"envelope address", u"envelope address"},
    RenamedStyle{u"envelope return", u"envelope return"},
    RenamedStyle{u"footer", u"footer"},
    RenamedStyle{u"footnote text", u"footnote text"},
    RenamedStyle{u"header", u"header"},
    RenamedStyle{u"index heading", u"index heading"},
    RenamedStyle{u"macro text", u"macro"},
    RenamedStyle{u"normal", normal},
    RenamedStyle{u"table of authorities", u"table of authorities"},
    RenamedStyle{u"table of figures", u"table of figures"},
    RenamedStyle{u"toa heading", u"toa heading"},
};
/// Followed by a digit from 1 to 9.
constexpr std::array<std::u16string_view, 3> numberedStyles = {u"heading ", u"index ", u"toc "};

std::u16string lowerCase(std::u16string_view name)
{
    std::u16string lower(name);
    for (char16_t& c : lower)
        if (c >= u'A' && c <= u'Z')
            c = static_cast<char16_t>(c - u'A' + u'a');
    return lower;
}

bool isNumberedStyle(std::u16string_view lower)
{
    if (lower.empty() || lower.back() < u'1' || lower.back() > u'9')
        return false;
    return std::ranges::find(numberedStyles, lower.substr(0, lower.size() - 1)) != numberedStyles.end();
}

} // namespace

std::u16string rtfStyleName(std::u16string_view style)
{
    std::u16string lower = lowerCase(style);
    if (isNumberedStyle(lower))
        return lower;
    const auto* renamed = std::ranges::find(renamedStyles, lower, &RenamedStyle::shown);
    return std::u16string(renamed == renamedStyles.end() ? style : renamed->inFiles);
}

} // namespace compose
