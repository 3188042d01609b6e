#pragma once

#include "RandomNumbers.h"

#include <string>

namespace reference {

/// What settings and the template say of how the document of a session looks.
struct SessionLook
{
    bool hasStyles = false;         ///< The template has `ruledTable`, and the style "TOC Heading".
    std::u16string tableStyle = {}; ///< of the setting
    std::u16string title = u"Table of Contents";

    static constexpr std::u16string_view ruledTable = u"Ruled";

    /// What tables get.
    [[nodiscard]] std::u16string styleOfTables() const
    {
        return hasStyles && tableStyle == ruledTable ? tableStyle : std::u16string();
    }
    /// What the heading of the table of contents gets; empty: none.
    [[nodiscard]] std::u16string styleOfTitle() const { return hasStyles ? u"TOC Heading" : u""; }
};

/// The template that has the styles.
inline constexpr char lookTemplate[] =
    "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\froman Times New Roman;}}{\\stylesheet{\\s0\\f0\\fs24 Normal;}"
    "{\\s300\\f0\\fs40\\b\\sbasedon0 TOC Heading;}"
    "{\\*\\ts400\\tsrowd\\trbrdrh\\brdrs\\brdrw10\\tsvertalc\\snext400 Ruled;}}\\pard\\par}";

inline SessionLook randomLook(RandomNumbers& numbers)
{
    static constexpr std::u16string_view titles[] = {u"Table of Contents", u"Inhalt", u"", u"One\nTwo"};
    static constexpr std::u16string_view styles[] = {SessionLook::ruledTable, SessionLook::ruledTable, u"",
                                                     u"No Such", u"TOC Heading"};
    SessionLook look;
    look.hasStyles = numbers.below(4) != 0;
    look.tableStyle = styles[static_cast<std::size_t>(numbers.below(std::size(styles)))];
    look.title = titles[static_cast<std::size_t>(numbers.below(std::size(titles)))];
    return look;
}

} // namespace reference
