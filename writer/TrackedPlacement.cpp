#include "TrackedPlacement.h"

#include "HyperLink.h"
#include "MirovelSectionData.h"
#include "StyleNumber.h"
#include "TocFieldText.h"
#include "WordConstants.h"
#include "mirovelsection.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr std::string_view headingPrefix = "Heading ";
constexpr int deepestLevel = 9;
constexpr std::int32_t nothingSaid = 0; // of alignment

constexpr bool endsParagraph(wchar_t unit)
{
    return unit == L'\r' || unit == L'\n';
}

/// What Word takes as one character each, besides printable text.
constexpr bool isPlain(wchar_t unit)
{
    return unit >= L' ' || unit == L'\t' || unit == L'\v' || endsParagraph(unit);
}

/// Word makes one paragraph mark of CR, of LF and of CR LF.
constexpr std::size_t paragraphEndAt(std::wstring_view text)
{
    return text.starts_with(L"\r\n") ? 2 : 1;
}

std::int32_t growth(std::wstring_view text)
{
    std::int32_t count = 0;
    for (; !text.empty(); ++count)
        text.remove_prefix(paragraphEndAt(text));
    return count;
}

std::int32_t leadingParagraphEnds(std::wstring_view text)
{
    std::int32_t count = 0;
    for (; !text.empty() && endsParagraph(text.front()); ++count)
        text.remove_prefix(paragraphEndAt(text));
    return count;
}

bool isTableOpen(const MirovelSectionData& d)
{
    return d.tableIndex != -1;
}

} // namespace

// Of control characters other than line ends Word alone knows what becomes of them.
void TrackedPlacement::textWritten(MirovelSectionData& d, std::wstring_view text) const
{
    if (text.empty())
        return;
    // As in `insertEndl`: paragraph ends right where a style begins stay outside it.
    if (d.pos == d.stylePos && d.styleName != "Normal")
        d.stylePos += leadingParagraphEnds(text);
    if (std::ranges::all_of(text, isPlain))
        d.pos += growth(text);
    else
        d.pos = d.range->GetEnd();
    if (endsParagraph(text.back()))
        d.lastEndlPos = d.pos;
}

void TrackedPlacement::linkTextWritten(MirovelSectionData& d, const wchar_t* text, std::int32_t end) const
{
    if (d.collectingTocEntry)
        d.tocText.append(toNarrow(text, narrowForm()));
    if (isTableOpen(d))
        return;
    d.pos = end;
    const std::wstring_view label = text;
    if (!label.empty() && endsParagraph(label.back()))
        d.lastEndlPos = end;
}

void TrackedPlacement::placeholderLeft(MirovelSection& writer) const
{
    try {
        writer.deleteLastChar();
    } catch (const _com_error&) { // the first failure is the one to report
    }
}

// The section break comes first, so that a tag behind the page break stays behind it.
void TrackedPlacement::breakSection(MirovelSectionData& d, std::int32_t breakPos) const
{
    const Word::RangePtr& range = d.range;
    range->PutStart(breakPos);
    range->PutEnd(breakPos);
    range->InsertBreak(Word::wdSectionBreakNextPage);
    range->PutStart(breakPos + 1);
    range->PutEnd(breakPos + 2);
    range->Delete(Word::wdCharacter, 1L);
    if (d.pos == breakPos + 1)
        d.lastEndlPos = d.pos;
}

// A paragraph has one style, so what was written in it is not given another one.
bool TrackedPlacement::needsEndl(const MirovelSectionData& d) const
{
    return d.pos != d.lastEndlPos;
}

// What is applied to no text reaches the paragraph that it stands in. That is the document's last one, from
// which tables and the text behind them start: it stays Normal.
bool TrackedPlacement::appliesEmptyStyleRun(const MirovelSectionData& d) const
{
    return d.styleName == "Normal";
}

bool TrackedPlacement::isHeading(const QdxString& style) const
{
    return style.startsWith(headingPrefix.data()) && styleNumber(headingPrefix.data(), style) > 0;
}

bool TrackedPlacement::isFontInForce(const MirovelSectionData& d, const FontData& font) const
{
    return !d.fontRuns.empty() && !(font != d.pendingFont);
}

// From the place in its cell where the run began to the place where the next one begins. Rows that it covers
// from end to end are formatted together. Cells are in Normal's font from the beginning.
void TrackedPlacement::applyFontToTable(MirovelSection& writer, const FontSave& run,
                                        const FontSave* next) const
{
    const MirovelSectionData& d = *writer.data_;
    const FontData font = run.getFont();
    if (!(font != d.plainFont))
        return;
    const Word::TablePtr& table = run.getTable();
    if (next && next->getTable().GetInterfacePtr() != table.GetInterfacePtr())
        next = nullptr;
    const long columns = std::max<long>(d.tableColumns, 1);
    const long firstRow = run.getRow();
    const long firstCol = std::min<long>(run.getCol(), columns);
    const long nextRow = next ? next->getRow() : table->GetRows()->GetCount() + 1;
    const long nextCol = next ? std::min<long>(next->getCol(), columns) : columns;

    const bool firstRowIsWhole =
        firstCol == 1 && table->Cell(firstRow, 1)->GetRange()->GetStart() == run.getStart();
    const long firstWholeRow = firstRowIsWhole ? firstRow : firstRow + 1;
    if (!firstRowIsWhole) {
        const bool ends = nextRow == firstRow;
        putFontOnCells(table, firstRow, {firstCol, run.getStart()},
                       {ends ? nextCol : columns, ends ? next->getStart() : rowEnd}, font);
    }
    if (firstWholeRow < nextRow)
        putFontOnRows(table, firstWholeRow, nextRow - 1, font);
    if (next && firstWholeRow <= nextRow)
        putFontOnCells(table, nextRow, {1, cellStart}, {nextCol, next->getStart()}, font);
}

void TrackedPlacement::putFontOnCells(const Word::TablePtr& table, long row, const PlaceInRow& from,
                                      const PlaceInRow& to, const FontData& font)
{
    for (long col = from.col; col <= to.col; ++col) {
        const Word::RangePtr range = table->Cell(row, col)->GetRange();
        const long start = col == from.col && from.position != cellStart ? from.position : range->GetStart();
        const long end = col == to.col && to.position != rowEnd ? to.position : range->GetEnd();
        if (start < end)
            MirovelSection::putFont(range, start, end, font);
    }
}

void TrackedPlacement::putFontOnRows(const Word::TablePtr& table, long first, long last, const FontData& font)
{
    const Word::RowsPtr rows = table->GetRows();
    const Word::RangePtr range = rows->Item(first)->GetRange();
    if (last > first)
        range->PutEnd(rows->Item(last)->GetRange()->GetEnd());
    MirovelSection::toFontPtr(range->GetFont(), font);
}

void TrackedPlacement::fontInForceAgain(MirovelSection& writer, const FontData& font) const
{
    writer.setFont(font);
}

// In a cell, in front of its mark: so the paragraph in hand is aligned too.
std::int32_t TrackedPlacement::alignmentStart(MirovelSectionData& d) const
{
    return isTableOpen(d) ? d.cellRange->GetEnd() - 1 : d.range->GetEnd();
}

std::int32_t TrackedPlacement::lastAlignmentEnd(const MirovelSectionData& d) const
{
    return d.table->GetRange()->GetEnd() - 1;
}

// Where no alignment was said before, the heading's own ends: the style of each paragraph decides again.
void TrackedPlacement::alignAgain(MirovelSection& writer, std::int16_t align) const
{
    MirovelSectionData& d = *writer.data_;
    const bool headingHasOwn = d.alignment != align;
    const bool saidBefore = d.alignRuns.size() > 1 && std::next(d.alignRuns.rbegin())->isSet;
    writer.setTextAlign(align);
    if (headingHasOwn && !saidBefore)
        d.alignRuns.back().isSet = false;
}

// Word makes one table of two that touch.
void TrackedPlacement::finishBeforeTable(MirovelSection& writer) const
{
    MirovelSectionData& d = *writer.data_;
    if (d.tableEnd != 0 && d.pos == d.tableEnd)
        writer.insertEndl();
    finishBeforeFile(writer);
    d.styleName = "Normal";
    d.pendingFont = d.plainFont;
}

// What was meant for its cells is not lost: it goes into the text.
void TrackedPlacement::tableFailed(MirovelSectionData& d) const
{
    d.tableIndex = -1;
}

// Writing goes on in the paragraph behind the table, which is as plain as the document's last paragraph
// always is.
void TrackedPlacement::leaveTable(MirovelSectionData& d) const
{
    d.pendingFont = d.plainFont;
    d.pos = d.table->GetRange()->GetEnd();
    d.range->PutStart(d.pos);
    d.tableEnd = d.lastEndlPos = d.pos;
}

void TrackedPlacement::insertFieldInCell(MirovelSection& writer, const _variant_t& type) const
{
    writer.data_->cellRange->GetFields()->Add(writer.placeInCell(), type);
}

bool TrackedPlacement::marksEntry(const MirovelSectionData& d) const
{
    return d.collectingTocEntry;
}

void TrackedPlacement::writeEntry(MirovelSection& writer) const
{
    MirovelSectionData& d = *writer.data_;
    const int level =
        isHeading(d.styleName) ? std::min(styleNumber(headingPrefix.data(), d.styleName), deepestLevel) : 1;
    const std::wstring text =
        wholeTocFieldText(static_cast<const wchar_t*>(toWide(d.tocText, narrowForm())), level);
    if (isTableOpen(d)) {
        d.cellRange->GetFields()->Add(writer.placeInCell(), Word::wdFieldTOCEntry, text.c_str());
        return;
    }
    writer.addFieldBehind(Word::wdFieldTOCEntry, text.c_str());
}

// In the writer's own story, which may be a header's.
Word::RangePtr TrackedPlacement::filePlace(const MirovelSectionData& d, std::int32_t place) const
{
    const Word::RangePtr range = (isTableOpen(d) ? d.cellRange : d.range)->GetDuplicate();
    range->PutStart(place);
    range->PutEnd(place);
    return range;
}

void TrackedPlacement::finishBeforeFile(MirovelSection& writer) const
{
    writer.checkForEndl();
    Placement::finishBeforeFile(writer);
}

// Style, font and alignment stay in force behind the file. Whether it ended its last paragraph is Word's to
// say.
void TrackedPlacement::fileInserted(MirovelSection& writer, std::int32_t alignment) const
{
    MirovelSectionData& d = *writer.data_;
    if (d.pos != 0) {
        const Word::RangePtr last = d.range->GetDuplicate();
        last->PutStart(d.pos - 1);
        last->PutEnd(d.pos);
        const _bstr_t text = last->GetText();
        const wchar_t* const ending = text;
        if (!ending || !endsParagraph(*ending))
            writer.insertEndl();
    }
    d.lastEndlPos = d.stylePos = d.pos;
    writer.storeFont(d.pendingFont);
    if (alignment != nothingSaid)
        writer.setTextAlign(static_cast<std::int16_t>(alignment));
}

// A point at the writer's own place, wherever the user's selection is: in a header or in a cell, too. Not
// every program finds a bookmark in which another one begins, as one that reaches to the next tag often would
// have.
void TrackedPlacement::placeTag(MirovelSection& writer, const Word::BookmarksPtr& bookmarks,
                                const QdxString& name) const
{
    const MirovelSectionData& d = *writer.data_;
    if (isTableOpen(d)) {
        bookmarks->Add(toWide(name), Word::object(writer.placeInCell()));
        return;
    }
    d.range->PutStart(d.pos);
    bookmarks->Add(toWide(name), Word::object(d.range));
}

// From the back to the front: what is drawn moves nothing that is still to be drawn.
void TrackedPlacement::draw(MirovelSection& writer) const
{
    MirovelSectionData& d = *writer.data_;
    d.document->UndoClear();
    int drawn = 0;
    for (auto link = d.links.end(); link != d.links.begin();) {
        --link;
        if (link->start < d.tocPos)
            writer.drawTOC();
        if (!link->destination.resolved)
            continue;
        writer.drawAHyperLink(*link);
        link = d.links.erase(link);
        writer.clearUndoAfterLink(drawn);
    }
    writer.drawTOC();
}

// Its last paragraph keeps what it was formatted with, text or not.
void TrackedPlacement::clearPart(const Word::RangePtr& range) const
{
    range->GetParagraphFormat()->Reset();
}

void TrackedPlacement::writingEnds(MirovelSection& writer) const
{
    writer.endTable();
}
