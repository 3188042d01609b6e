#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace reference {

struct Font
{
    std::u16string name;
    int size = 0; ///< points
    bool isBold = false;
    bool isItalic = false;
    bool isUnderlined = false;
    bool isStruck = false;

    bool operator==(const Font&) const = default;
};

enum class Alignment
{
    left,
    centre,
    right,
    justified
};

/// A place in a document: in front of the token `position` of a story.
struct Place
{
    std::size_t story = 0; ///< see DocumentContent
    std::size_t position = 0;

    bool operator==(const Place&) const = default;
};

/// Where a link leads: to an address, or to a place in the document.
struct LinkTarget
{
    std::u16string address;
    std::optional<Place> place = {}; ///< nothing, too, when the document lacks the place that the link names

    bool operator==(const LinkTarget&) const = default;
};

enum class TokenKind
{
    character,
    pageBreak,
    picture,
    object, ///< of another program, shown as an icon
    field,
    entry,    ///< an entry of the table of contents
    contents, ///< the table of contents
    paragraphEnd,
    sectionEnd, ///< of a paragraph as well
    cellEnd,    ///< of a paragraph as well
    rowEnd
};

/// What one place of a story holds.
struct Token
{
    TokenKind kind = TokenKind::character;
    char16_t character = 0;   ///< of a character
    std::u16string text = {}; ///< a field's keyword; an entry's text; "embedded" or "linked" of an object;
                              ///< "bitmap 45x30" of a picture, in twips; "with lines" of a row's end
    int level = 0;            ///< of an entry
    std::optional<Font> font = {}; ///< of a character
    std::u16string style = {};     ///< of the paragraph that ends here; of a row's end, the table's
    Alignment alignment = Alignment::left;
    bool isHidden = false;     ///< Nobody sees it.
    bool isFormatOpen = false; ///< the paragraph's style and alignment may be any
    bool isInTable = false;
    std::optional<LinkTarget> link = {};
    bool beginsLink = false;
    /// What is expected: out of an inserted file. Its direct formatting is the file's own.
    bool isFromFile = false;
    /// What was found: direct properties that say what the style says already, with commas between them.
    std::string redundantFormat = {};

    bool operator==(const Token&) const = default;
};

/// A bookmark that stands for a tag.
struct Tag
{
    std::size_t start = 0;   ///< the token that it begins in front of; `nowhere` inside what is one token
    bool endsInPlace = true; ///< at its start or behind, and not behind the start of the next one

    static constexpr auto nowhere = static_cast<std::size_t>(-1);
    bool operator==(const Tag&) const = default;
};

struct StoryContent
{
    std::vector<Token> tokens;
    std::vector<Tag> tags; ///< in the order of their starts

    bool operator==(const StoryContent&) const = default;
};

/// How the pages of a section are.
struct Page
{
    bool isLandscape = false;
    int leftMargin = 90; ///< points

    bool operator==(const Page&) const = default;
};

/// What a document holds, in a form in which what should be and what is can be compared.
struct DocumentContent
{
    /// The body, then of each section the header and the footer; nothing where a later section shows what the
    /// section before it does.
    std::vector<std::optional<StoryContent>> stories;
    std::vector<Page> pages; ///< of each section

    bool operator==(const DocumentContent&) const = default;
};

/// \name Numbers of stories
///@{
inline constexpr std::size_t bodyStory = 0;
constexpr std::size_t headerStory(std::size_t section) ///< sections count from 0
{
    return 1 + 2 * section;
}
constexpr std::size_t footerStory(std::size_t section)
{
    return 2 + 2 * section;
}
///@}

} // namespace reference
