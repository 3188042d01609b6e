#include "TableRow.h"

#include "Document.h"
#include "Table.h"
#include "TableMarks.h"
#include "WordError.h"

namespace standin::model {

Table TableRow::table() const
{
    return {anchor_.storyPtr(), endOf(anchor_.story(), locate()) - 1};
}

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
    for (std::size_t at = row.first; at > 0 && story.paragraph(at - 1).format->inTable; --at) {
        index += story.paragraph(at - 1).format->end == ParagraphEnd::row ? 1 : 0;
    }
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
    if (index < 1 || static_cast<std::size_t>(index) > cells.size()) {
        throw WordError(WordErrorNumber::noSuchMember);
    }
    return {anchor_.storyPtr(), endOf(story, cells[static_cast<std::size_t>(index - 1)]) - 1};
}

std::vector<TableCell> TableRow::cells() const
{
    const Story& story = anchor_.story();
    std::vector<TableCell> cells;
    for (const ParagraphSpan& cell : cellsOf(story, locate())) {
        cells.emplace_back(anchor_.storyPtr(), endOf(story, cell) - 1);
    }
    return cells;
}

TableCell TableRow::addCell(const TableCell* before)
{
    Story& story = anchor_.story();
    RowFormat format = this->format();
    if (format.cells.size() >= RowFormat::mostCells) {
        throw WordError(WordErrorNumber::valueOutOfRange);
    }
    const std::vector<ParagraphSpan> cells = cellsOf(story, locate());
    std::size_t place = cells.size();
    if (before) {
        if (before->row().locate() != locate()) {
            throw WordError(WordErrorNumber::badValue);
        }
        place = static_cast<std::size_t>(before->index() - 1);
    }
    const std::size_t neighbour = std::min(place, cells.size() - 1);
    const Position at = place == cells.size() ? endOf(story, locate()) - 1 : startOf(story, cells[place]);
    insertCellMark(story, at, cells[neighbour].past - 1);
    const CellFormat cellFormat = format.cells[neighbour];
    format.cells.insert(format.cells.begin() + static_cast<std::ptrdiff_t>(place), cellFormat);
    setFormat(format);
    return {anchor_.storyPtr(), at};
}

void TableRow::setHeight(float points, RowHeightRule rule)
{
    if (!(points >= 0 && points <= RowFormat::largest)) {
        throw WordError(WordErrorNumber::valueOutOfRange);
    }
    RowFormat format = this->format();
    format.heightRule = rule;
    format.height = rule == RowHeightRule::automatic ? 0 : points;
    setFormat(format);
}

void TableRow::remove()
{
    Story& story = anchor_.story();
    const ParagraphSpan row = locate();
    story.erase(startOf(story, row), endOf(story, row));
}

ParagraphSpan TableRow::locate() const
{
    const Story& story = anchor_.story();
    if (anchor_.isCollapsed() || !isRowMark(story, anchor_.end() - 1)) {
        throw WordError(WordErrorNumber::objectDeleted);
    }
    return rowEndingAt(story, story.paragraphIndexAt(anchor_.end() - 1));
}

} // namespace standin::model
