#pragma once

#include "TextConversion.h"

#include "Word.h"

#include <cstdint>
#include <string_view>

class FontData;
class FontSave;
class MirovelSection;
class QdxString;
struct MirovelSectionData;

/// Where what a client writes comes to lie: the decisions in which the writer's two modes differ, each
/// answered here as clients have always had it.
///
/// The writer counts characters, puts what it has recorded where its count says, and leaves placeholders and
/// spaces behind. docs/known-behaviour.md tells what that leads to. The other answers are TrackedPlacement's.
///
/// Holds no state; the objects live as long as the process. A failed Word call raises `_com_error`, as in the
/// writer.
class Placement
{
public:
    static const Placement& counted();
    static const Placement& tracked();

    Placement() = default;
    virtual ~Placement() = default;
    Placement(const Placement&) = delete;
    Placement& operator=(const Placement&) = delete;

    /// @name Text
    /// @{
    /// The form in which link labels, entries of the table of contents and tags pass through 8-bit text.
    virtual NarrowForm narrowForm() const { return NarrowForm::ansi; }
    /// `text` has been written behind the output range.
    virtual void textWritten(MirovelSectionData& d, std::wstring_view text) const;
    /// A link's text is about to be written behind the output range, and has been, up to `end` in Word's
    /// count.
    /// @{
    virtual void writingLinkText(MirovelSectionData& d, std::wstring_view text) const;
    virtual void linkTextWritten(MirovelSectionData& d, const wchar_t* text, std::int32_t end) const;
    /// @}
    /// Whether an X that only holds a place goes into the entry of the table of contents that is being
    /// collected.
    virtual bool entriesHoldPlaceholders() const { return true; }
    /// What was to stand in the placeholder's place could not be made.
    virtual void placeholderLeft(MirovelSection&) const {}
    /// A page break has been written; in a table, only asked for.
    virtual void pageBreakPassed(MirovelSection& writer) const;
    /// Turns the page break at `breakPos` into a section break, through the output range.
    virtual void breakSection(MirovelSectionData& d, std::int32_t breakPos) const;
    /// @}

    /// @name Styles and fonts
    /// @{
    /// Whether the paragraph in hand is ended before another style begins.
    virtual bool needsEndl(const MirovelSectionData& d) const;
    /// Whether applying a style run ends the paragraph in hand.
    virtual bool styleRunEndsParagraph() const { return true; }
    /// Whether the open style run is applied although nothing was written in it.
    virtual bool appliesEmptyStyleRun(const MirovelSectionData&) const { return true; }
    /// Whether font and alignment runs are.
    virtual bool appliesEmptyRuns() const { return true; }
    /// Whether a style set in a table begins a style run.
    virtual bool tablesHoldStyleRuns() const { return true; }
    /// Whether a number behind the eighth character of a style's name makes it a heading, whatever stands in
    /// front.
    virtual bool isHeading(const QdxString&) const { return true; }
    /// Whether setting `font` needs no run of its own.
    virtual bool isFontInForce(const MirovelSectionData& d, const FontData& font) const;
    /// All font runs have been applied.
    virtual void fontRunsApplied(MirovelSectionData& d) const;
    /// Applies a font run that began in a table; the next one recorded, or null, tells where it ends.
    virtual void applyFontToTable(MirovelSection& writer, const FontSave& run, const FontSave* next) const;
    /// A part of the document with a style of its own has been written; `font` was in force before it.
    virtual void fontInForceAgain(MirovelSection&, const FontData&) const {}
    /// @}

    /// @name Alignment
    /// @{
    /// Where an alignment set now begins.
    virtual std::int32_t alignmentStart(MirovelSectionData& d) const;
    /// Where the last alignment of a table ends.
    virtual std::int32_t lastAlignmentEnd(const MirovelSectionData& d) const;
    /// The alignment `align` was in force before the heading of the table of contents and is to be so again.
    virtual void alignAgain(MirovelSection& writer, std::int16_t align) const;
    /// @}

    /// @name Tables
    /// @{
    /// Everything before the table gets its formatting; the table begins in Normal.
    virtual void finishBeforeTable(MirovelSection& writer) const;
    /// A table is about to be made at the output range's end, and has been.
    /// @{
    virtual void makeRoomForTable(MirovelSectionData& d) const;
    virtual void tableMade(MirovelSectionData& d) const;
    /// @}
    virtual void tableFailed(MirovelSectionData&) const {}
    /// Writing goes on behind the table.
    virtual void leaveTable(MirovelSectionData& d) const;
    virtual void insertFieldInCell(MirovelSection& writer, const _variant_t& type) const;
    /// @}

    /// @name Table of contents
    /// @{
    /// Whether `endTOCEntry` marks an entry.
    virtual bool marksEntry(const MirovelSectionData&) const { return true; }
    virtual void writeEntry(MirovelSection& writer) const;
    /// @}

    /// @name Files
    /// @{
    /// The place in front of a placeholder, or of the mark of a cell.
    virtual Word::RangePtr filePlace(const MirovelSectionData& d, std::int32_t place) const;
    /// Everything before a file's content gets its formatting.
    virtual void finishBeforeFile(MirovelSection& writer) const;
    /// The file's content stands in the body; `alignment` was in force before it.
    virtual void fileInserted(MirovelSection&, std::int32_t) const {}
    /// @}

    /// @name Tags and links
    /// @{
    virtual void placeTag(MirovelSection& writer, const Word::BookmarksPtr& bookmarks,
                          const QdxString& name) const;
    /// Ends the last tag at the insertion position.
    virtual void endLastTag(MirovelSectionData& d) const;
    /// Draws all resolved links, and the table of contents.
    virtual void draw(MirovelSection& writer) const;
    /// @}

    /// Whether the writers of one document know of each other: a link is drawn whichever writer places its
    /// tag, and a header that is started again goes on.
    virtual bool joinsWriters() const { return false; }

    /// A header or footer of the document is about to be written again: `range` is where, emptied.
    virtual void clearPart(const Word::RangePtr&) const {}

    /// Whether the first writer of a document asks Word for Normal's font, which another document may have
    /// had before.
    virtual bool readsFontsOfThisDocument() const { return false; }

    /// The client writes no more.
    virtual void writingEnds(MirovelSection&) const {}
};
