#pragma once

#include "Placement.h"

/// The mode of "Word"/"TrackPositions": the document equals what the client said.
///
/// Four things make it right, and the rest follows from them. The count is exact, and Word is asked where
/// Word alone knows. A run ends where the next begins, in a table in the middle of a cell if need be, and
/// what stands behind a table or a file starts from the plain last paragraph. Links and the table of contents
/// are drawn from the back to the front, so none moves one that is still to be drawn. A writer whose links
/// wait for tags of others is kept until the document is closed.
class TrackedPlacement : public Placement
{
public:
    NarrowForm narrowForm() const override { return NarrowForm::utf8; }
    void textWritten(MirovelSectionData& d, std::wstring_view text) const override;
    void writingLinkText(MirovelSectionData&, std::wstring_view) const override {}
    void linkTextWritten(MirovelSectionData& d, const wchar_t* text, std::int32_t end) const override;
    bool entriesHoldPlaceholders() const override { return false; }
    void placeholderLeft(MirovelSection& writer) const override;
    void pageBreakPassed(MirovelSection&) const override {}
    void breakSection(MirovelSectionData& d, std::int32_t breakPos) const override;

    bool needsEndl(const MirovelSectionData& d) const override;
    bool styleRunEndsParagraph() const override { return false; }
    bool appliesEmptyStyleRun(const MirovelSectionData& d) const override;
    bool appliesEmptyRuns() const override { return false; }
    bool tablesHoldStyleRuns() const override { return false; }
    bool isHeading(const QdxString& style) const override;
    bool isFontInForce(const MirovelSectionData& d, const FontData& font) const override;
    void fontRunsApplied(MirovelSectionData&) const override {}
    void applyFontToTable(MirovelSection& writer, const FontSave& run, const FontSave* next) const override;
    void fontInForceAgain(MirovelSection& writer, const FontData& font) const override;

    std::int32_t alignmentStart(MirovelSectionData& d) const override;
    std::int32_t lastAlignmentEnd(const MirovelSectionData& d) const override;
    void alignAgain(MirovelSection& writer, std::int16_t align) const override;

    void finishBeforeTable(MirovelSection& writer) const override;
    void makeRoomForTable(MirovelSectionData&) const override {}
    void tableMade(MirovelSectionData&) const override {}
    void tableFailed(MirovelSectionData& d) const override;
    void leaveTable(MirovelSectionData& d) const override;
    void insertFieldInCell(MirovelSection& writer, const _variant_t& type) const override;

    bool marksEntry(const MirovelSectionData& d) const override;
    void writeEntry(MirovelSection& writer) const override;

    Word::RangePtr filePlace(const MirovelSectionData& d, std::int32_t place) const override;
    void finishBeforeFile(MirovelSection& writer) const override;
    void fileInserted(MirovelSection& writer, std::int32_t alignment) const override;

    void placeTag(MirovelSection& writer, const Word::BookmarksPtr& bookmarks,
                  const QdxString& name) const override;
    void endLastTag(MirovelSectionData&) const override {}
    void draw(MirovelSection& writer) const override;

    bool joinsWriters() const override { return true; }
    void clearPart(const Word::RangePtr& range) const override;
    bool readsFontsOfThisDocument() const override { return true; }
    void writingEnds(MirovelSection& writer) const override;

private:
    /// A column, and a position in its cell as Word counts.
    struct PlaceInRow
    {
        long col;
        long position;
    };
    static constexpr long cellStart = -1;
    static constexpr long rowEnd = -1;

    static void putFontOnCells(const Word::TablePtr& table, long row, const PlaceInRow& from,
                               const PlaceInRow& to, const FontData& font);
    static void putFontOnRows(const Word::TablePtr& table, long first, long last, const FontData& font);
};
