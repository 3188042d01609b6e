#include "TableRow.h"

#include "Document.h"
#include "TableMarks.h"
#include "WordError.h"

namespace standin::model {

LiveRange TableRow::range() const
{
    const ParagraphSpan row = locate();
    return {anchor_.storyPtr(), startOf(anchor_.story(), row), endOf(anchor_.story(), row)};
}

std::int32_t TableRow::index() const
{
    const Story& story = anchor_.story();
    const ParagraphSpan row = locate();
    std::int32_t index = 1;
    for (std::size_t at = row.first; at > 0 && story.paragraph(at - 1).format->inTable; --at)
        index += story.paragraph(at - 1).format->end == ParagraphEnd::row ? 1 : 0;
    return index;
}

void TableRow::setFormat(const RowFormat& format)
{
    setRowFormat(anchor_.story(), locate().past - 1, format);
}

std::int32_t TableRow::cellCount() const
{
    return static_cast<std::int32_t>(format().cells.size());
}

TableCell TableRow::cell(std::int32_t index) const
{
    const Story& story = anchor_.story();
    const std::vector<ParagraphSpan> cells = cellsOf(story, locate());
    if (index < 1 || static_cast<std::size_t>(index) > cells.size())
        throw WordError(WordErrorNumber::noSuchMember);
    return {anchor_.storyPtr(), endOf(story, cells[static_cast<std::size_t>(index - 1)]) - 1};
}

std::vector<TableCell> TableRow::cells() const
{
    const Story& story = anchor_.story();
    std::vector<TableCell> cells;
    for (const ParagraphSpan& cell : cellsOf(story, locate()))
        cells.emplace_back(anchor_.storyPtr(), endOf(story, cell) - 1);
    return cells;
}

TableCell TableRow::addCell()
{
    Story& story = anchor_.story();
    RowFormat format = this->format();
    if (format.cells.size() >= RowFormat::mostCells)
        throw WordError(WordErrorNumber::valueOutOfRange);
    const Position at = endOf(story, locate()) - 1;
    insertCellMark(story, at, cellsOf(story, locate()).back().past - 1);
    format.cells.push_back(CellFormat(format.cells.back()));
    setFormat(format);
    return {anchor_.storyPtr(), at};
}

void TableRow::setHeight(float points, RowHeightRule rule)
{
    if (!(points >= 0 && points <= RowFormat::largest))
        throw WordError(WordErrorNumber::valueOutOfRange);
    RowFormat format = this->format();
    format.heightRule = rule;
    format.height = rule == RowHeightRule::automatic ? 0 : points;
    setFormat(format);
}

ParagraphSpan TableRow::locate() const
{
    const Story& story = anchor_.story();
    if (anchor_.isCollapsed() || !isRowMark(story, anchor_.end() - 1))
        throw WordError(WordErrorNumber::objectDeleted);
    return rowEndingAt(story, story.paragraphIndexAt(anchor_.end() - 1));
}

} // namespace standin::model
