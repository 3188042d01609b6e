#include "Placement.h"

#include "HyperLink.h"
#include "MirovelSectionData.h"
#include "PositionCount.h"
#include "StyleNumber.h"
#include "TocFieldText.h"
#include "TrackedPlacement.h"
#include "WordConstants.h"
#include "mirovelsection.h"

#include <windows.h>

namespace {

/// By how many characters one drawn link is taken to lengthen the text in front of the table of contents.
constexpr std::int32_t linkGrowth = 42;

bool isLeadByte(unsigned char byte)
{
    return IsDBCSLeadByte(byte) != 0;
}

} // namespace

const Placement& Placement::counted()
{
    static const Placement placement;
    return placement;
}

const Placement& Placement::tracked()
{
    static const TrackedPlacement placement;
    return placement;
}

void Placement::textWritten(MirovelSectionData& d, std::wstring_view text) const
{
    d.pos += positionGrowth(text);
}

void Placement::writingLinkText(MirovelSectionData& d, std::wstring_view text) const
{
    d.pos += static_cast<std::int32_t>(text.size());
}

void Placement::linkTextWritten(MirovelSectionData&, const wchar_t*, std::int32_t) const {}

void Placement::pageBreakPassed(MirovelSection& writer) const
{
    writer.reopenStyle();
}

void Placement::breakSection(MirovelSectionData& d, std::int32_t breakPos) const
{
    const Word::RangePtr& range = d.range;
    range->PutStart(breakPos);
    range->PutEnd(breakPos + 1);
    range->Delete(Word::wdCharacter, 1L);
    range->PutStart(breakPos);
    range->InsertBreak(Word::wdSectionBreakNextPage);
}

// A paragraph end is left out when the style began right behind a paragraph end, even if text was written
// since: clients have always had it so.
bool Placement::needsEndl(const MirovelSectionData& d) const
{
    return d.pos != d.lastEndlPos && d.pos != d.stylePos && d.lastEndlPos != d.stylePos;
}

bool Placement::isFontInForce(const MirovelSectionData& d, const FontData& font) const
{
    return !(font != d.pendingFont);
}

// Without a name it differs from every font, so that the next one begins a run.
void Placement::fontRunsApplied(MirovelSectionData& d) const
{
    d.pendingFont.name = "";
}

void Placement::applyFontToTable(MirovelSection& writer, const FontSave& run, const FontSave* next) const
{
    const Word::TablePtr& table = run.getTable();
    const long lastRow = next ? next->getRow() : table->GetRows()->GetCount();
    const long lastCol = next ? next->getCol() : table->GetColumns()->GetCount();

    // Wider than the numbers they count, so that the largest of those is not the last one for ever.
    for (long row = run.getRow(); row <= lastRow; ++row) {
        const bool firstRow = row == run.getRow();
        for (long col = firstRow ? run.getCol() : 1; col <= lastCol; ++col) {
            const bool firstCell = firstRow && col == run.getCol();
            const Word::RangePtr range =
                writer.cellRange(static_cast<std::int16_t>(row), static_cast<std::int16_t>(col));
            const long start = firstCell ? run.getStart() : range->GetStart();
            MirovelSection::putFont(range, start, range->GetEnd(), run.getFont());
        }
    }
}

std::int32_t Placement::alignmentStart(MirovelSectionData& d) const
{
    return (d.tableIndex != -1 ? d.cellRange : d.range)->GetEnd();
}

std::int32_t Placement::lastAlignmentEnd(const MirovelSectionData& d) const
{
    return d.alignRuns.back().range->GetEnd();
}

void Placement::alignAgain(MirovelSection& writer, std::int16_t align) const
{
    writer.setTextAlign(align);
}

void Placement::finishBeforeTable(MirovelSection& writer) const
{
    finishBeforeFile(writer);
    writer.setStyle("Normal", false);
}

// A character behind the table, so that writing can go on there.
void Placement::makeRoomForTable(MirovelSectionData& d) const
{
    d.range->InsertAfter(L" ");
    ++d.pos;
}

void Placement::tableMade(MirovelSectionData& d) const
{
    d.pos = d.range->GetEnd();
}

void Placement::leaveTable(MirovelSectionData& d) const
{
    d.pos = d.range->GetEnd();
}

// The placeholder stays in the cell; documents in use depend on that.
void Placement::insertFieldInCell(MirovelSection& writer, const _variant_t& type) const
{
    const Word::RangePtr& range = writer.data_->cellRange;
    range->PutStart(range->GetEnd() - 1);
    writer.insertPlaceholder();
    const Word::RangePtr place = range->GetDuplicate();
    place->PutEnd(place->GetEnd() - 1);
    range->GetFields()->Add(place, type);
}

void Placement::writeEntry(MirovelSection& writer) const
{
    MirovelSectionData& d = *writer.data_;
    const Word::RangePtr& range = d.range;
    range->Collapse(Word::wdCollapseEnd);
    range->InsertAfter(L"X");
    ++d.pos;
    const QdxString text = tocFieldText(d.tocText, styleNumber("Heading ", d.styleName), isLeadByte);
    const Word::RangePtr place = range->GetDuplicate();
    place->PutEnd(d.pos);
    range->GetFields()->Add(place, Word::wdFieldTOCEntry, toWide(text));
    d.pos = range->GetEnd();
    writer.deleteLastChar();
}

Word::RangePtr Placement::filePlace(const MirovelSectionData& d, std::int32_t place) const
{
    const long position = place; // a VT_I4 for Word
    return d.document->Range(position, position);
}

void Placement::finishBeforeFile(MirovelSection& writer) const
{
    writer.applyStyle();
    writer.applyFont();
    writer.applyAlign();
}

void Placement::placeTag(MirovelSection& writer, const Word::BookmarksPtr& bookmarks,
                         const QdxString& name) const
{
    MirovelSectionData& d = *writer.data_;
    const Word::BookmarkPtr bookmark = bookmarks->Add(toWide(name));
    bookmark->PutStart(d.pos);
    endLastTag(d);
    d.lastTagBookmark = bookmark;
}

void Placement::endLastTag(MirovelSectionData& d) const
{
    if (d.lastTagBookmark)
        d.lastTagBookmark->PutEnd(d.pos - 1);
}

// Word makes a field of each link; the places of the links behind it are not moved.
void Placement::draw(MirovelSection& writer) const
{
    MirovelSectionData& d = *writer.data_;
    d.document->UndoClear();
    int drawn = 0;
    for (auto link = d.links.begin(); link != d.links.end();) {
        if (!link->destination.resolved) {
            ++link;
            continue;
        }
        if (link->end < d.tocStartPos)
            d.tocPos += linkGrowth;
        writer.drawAHyperLink(*link);
        link = d.links.erase(link);
        writer.clearUndoAfterLink(drawn);
    }
    writer.drawTOC();
}
