#pragma once

#include "Font.h"
#include "KeptPicture.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

/// What the calls of a client come to, before anything is said about how Word is made to hold it: blocks of
/// paragraphs and tables, and in the paragraphs what stands there in its order. Nothing here has a position.
namespace compose {

/// Number of a link within its story; what one link covers lies side by side and has the same number.
using LinkNumber = std::int32_t;
inline constexpr LinkNumber noLink = -1;

/// Where a link leads.
struct LinkTarget
{
    std::u16string address = {};  ///< of a page or a file; empty: a bookmark
    std::u16string bookmark = {}; ///< of a tag, placed or yet to be placed

    bool operator==(const LinkTarget&) const = default;
};

/// \name What can stand in a paragraph
/// @{
/// Text without paragraph ends.
struct Text
{
    std::u16string characters;
};
struct PageBreak
{
    bool isLast = false; ///< No other one was asked for since; it can still become the end of a section.
};
/// Of a client's number: 1 date, 2 time, 3 file name, 4 page; any other: Word decides.
struct Field
{
    int number = 0;
};
/// An entry of the table of contents, which shows in that table alone.
struct Entry
{
    std::u16string text;
    int level = 1; ///< 1 to 9
};
/// The place that a bookmark stands for.
struct Tag
{
    std::u16string bookmark;
    std::size_t number = 0; ///< of the tags of a story, in the order of their calls
};
/// The place of the table of contents.
struct Contents
{
};
/// Nothing kept: one in a table that Word is yet to make, which Word has already, behind the text in front of
/// it.
struct Picture
{
    bool isThere = false;     ///< Word has not refused it.
    KeptPicturePtr kept = {}; ///< It goes to Word with the text.
};
/// @}

struct Item
{
    std::variant<Text, PageBreak, Field, Entry, Tag, Contents, Picture> what;
    FontWishPtr font = {}; ///< of texts and fields
    LinkNumber link = noLink;
};

enum class ParagraphEnd
{
    mark,
    section ///< the next paragraph begins a section on a new page
};

struct Paragraph
{
    std::vector<Item> items = {};
    std::u16string style = u"Normal";
    std::optional<int> alignment = {}; ///< the client's number; nothing: what the style gives
    ParagraphEnd end = ParagraphEnd::mark;
    LinkNumber endLink = noLink; ///< of a link that goes on behind the paragraph's end
    bool holdsWritten = false;   ///< Its beginning is in Word already, be it text or a picture.
    bool isSettled = false;      ///< Its style and alignment are to be put even while it holds nothing.
    bool isAligned = false;      ///< Word has its alignment already.
    /// Bookmarks that are in Word already, behind all that is there of it.
    std::vector<std::u16string> tagsAtEnd = {};
    /// What is in Word of it ends in an entry, whose field is hidden.
    bool endsInEntry = false;

    /// Whether it holds more than tags.
    [[nodiscard]] bool holdsAnything() const;
    /// Whether what is put behind all of that comes to stand directly behind an entry.
    [[nodiscard]] bool endsInAnyEntry() const;
};

/// Whether it is more than a tag.
bool isAnything(const Item& item);
/// Whether it is a page break that can still become the end of a section.
bool isLastBreak(const Item& item);

using Cell = std::vector<Paragraph>;
using Row = std::vector<Cell>;

struct Table
{
    std::vector<Row> rows = {};
    std::vector<int> heights = {};  ///< one for each row, in points; 0: Word decides
    std::size_t writtenRows = 0;    ///< Those that are in Word already. The last of them is `rows.front()`,
                                    ///< with what has come to its cells since.
    std::size_t writtenColumns = 0; ///< of these

    /// Every row has as many cells as the first one.
    [[nodiscard]] std::size_t columns() const { return rows.empty() ? 0 : rows.front().size(); }
};

using Block = std::variant<Paragraph, Table>;
using Blocks = std::vector<Block>;

inline bool isAnything(const Item& item)
{
    if (const auto* const picture = std::get_if<Picture>(&item.what))
        return picture->isThere;
    return !std::holds_alternative<Tag>(item.what);
}

inline bool isLastBreak(const Item& item)
{
    const auto* const pageBreak = std::get_if<PageBreak>(&item.what);
    return pageBreak && pageBreak->isLast;
}

inline bool Paragraph::holdsAnything() const
{
    return holdsWritten || std::ranges::any_of(items, isAnything);
}

inline bool Paragraph::endsInAnyEntry() const
{
    const auto last = std::ranges::find_if(items.rbegin(), items.rend(), isAnything);
    return last == items.rend() ? endsInEntry : std::holds_alternative<Entry>(last->what);
}

} // namespace compose
