#pragma once

#include "Content.h"
#include "FontChange.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

/// What a pen does, one thing after the other. Positions count UTF-16 units, as Word does, from where their
/// passage begins (Plan.h).
namespace compose {

using Position = std::int32_t;

struct Span
{
    Position start = 0;
    Position end = 0;

    bool operator==(const Span&) const = default;
};

/// Text with its paragraph ends (CR) and page breaks (FF), as yet without any formatting of its own.
struct WriteText
{
    Position at = 0;
    std::u16string text;
};
/// Text that was written behind formatted text loses what it took over.
struct ClearFont
{
    Span span;
};
/// Whole paragraphs, their ends included.
struct PutStyle
{
    Span span;
    std::u16string style;
};
/// Whole paragraphs. Nothing: as their style says.
struct PutAlignment
{
    Span span;
    std::optional<int> alignment; ///< Word's number
};
struct PutFont
{
    Span span;
    FontChange change;
};
/// A paragraph for each cell, row by row. Each row becomes one position longer.
struct MakeTable
{
    Span span;
    std::size_t rows = 0;
    std::size_t columns = 0;
    std::vector<int> heights; ///< of the rows, in points; 0: Word decides
    /// The story's last one: what comes to a table later comes to this one.
    bool isLast = false;
    std::u16string style = {}; ///< the table style; empty: none
};
/// Tables that Word has read in in front of the passage get a table style.
struct StyleTables
{
    long start = 0;         ///< of what was read in, counted from the story's beginning
    std::size_t tables = 0; ///< in it
    std::u16string style;
};
/// The story's last table, or rather its rows and columns behind those that it has.
struct ExtendTable
{
    std::size_t columns = 0; ///< in all
    std::size_t rows = 0;    ///< in all
    std::size_t rowsBefore = 0;
    std::vector<int> heights; ///< of the last row that it has and of the new ones
    std::size_t columnsBefore = 0;
};
struct AddField
{
    Position at = 0;
    int number = 0; ///< the client's
    /// The character at the place is there to give the field its font, and goes.
    bool replacesCharacter = false;
};
struct AddEntry
{
    Position at = 0;
    std::u16string text;
    int level = 1;
};
struct AddLink
{
    Span span;
    LinkTarget target;
};
struct PlaceTag
{
    Position at = 0;
    std::u16string bookmark;
    bool isBehindField = false; ///< Right behind the field or entry added last, wherever that ends.
};
/// The next operation takes the character in front away, which was there to give the picture its place.
struct AddPicture
{
    Position at = 0;
    KeptPicturePtr picture;
};
/// Takes text away again that was there for another operation's sake.
struct RemoveText
{
    Span span;
};
/// The paragraph end at the place ends a section instead.
struct BreakSection
{
    Position at = 0;
};
/// The page break at the place may become a section's end later.
struct KeepBreak
{
    Position at = 0;
};
/// The table of contents will be made there.
struct KeepContents
{
    Position at = 0;
};

using Operation = std::variant<WriteText, ClearFont, PutStyle, PutAlignment, PutFont, MakeTable, StyleTables,
                               ExtendTable, AddField, AddEntry, AddLink, PlaceTag, AddPicture, RemoveText,
                               BreakSection, KeepBreak, KeepContents>;

} // namespace compose
