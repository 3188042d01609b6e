#include "Table.h"

#include "TableMarks.h"
#include "TextArea.h"
#include "WordError.h"

#include <algorithm>

namespace standin::model {

namespace {

/// An empty row at `at`, formatted as the paragraph that starts there; returns the place behind it.
Position insertRow(Story& story, Position at, const RowFormat& format)
{
    for (std::size_t count = format.cells.size(); count > 0; --count) {
        insertCellMark(story, at, story.paragraphIndexAt(at));
        ++at;
    }
    insertRowMark(story, at, format);
    return at + 1;
}

LiveRange wholeTable(const std::shared_ptr<Story>& story, Position position)
{
    const auto table = tableAt(*story, position);
    return {story, startOf(*story, *table), endOf(*story, *table)};
}

} // namespace

Table::Table(const std::shared_ptr<Story>& story, Position position) : anchor_(wholeTable(story, position)) {}

Table Table::add(LiveRange& range, std::int32_t rows, std::int32_t columns, Borders borders)
{
    if (rows < 1 || rows > mostRows || columns < 1 ||
        columns > static_cast<std::int32_t>(RowFormat::mostCells))
        throw WordError(WordErrorNumber::valueOutOfRange);
    Story& story = range.story();
    Position at = std::min(range.start(), story.length() - 1);
    if (isInTable(story, at))
        throw NotSupported("a table inside a table");
    if (!range.isCollapsed())
        range.remove();
    if (story.paragraphAt(at).start != at) {
        const char16_t paragraphMark = mark::paragraph;
        story.insert(at++, {&paragraphMark, 1});
    }
    const Position start = at;
    const RowFormat format = newRow(textAreaAt(story, at).width, columns, borders);
    for (; rows > 0; --rows)
        at = insertRow(story, at, format);
    return {range.storyPtr(), start};
}

RowFormat Table::newRow(float textWidth, std::int32_t columns, Borders borders)
{
    CellFormat cell;
    cell.width = (textWidth + 2 * RowFormat::padding) / static_cast<float>(columns);
    const bool lines = borders == Borders::single;
    for (Border* border : {&cell.top, &cell.left, &cell.bottom, &cell.right})
        border->isVisible = lines;
    RowFormat row;
    row.cells.assign(static_cast<std::size_t>(columns), cell);
    return row;
}

LiveRange Table::range() const
{
    const ParagraphSpan table = locate();
    return {anchor_.storyPtr(), startOf(anchor_.story(), table), endOf(anchor_.story(), table)};
}

std::int32_t Table::rowCount() const
{
    return static_cast<std::int32_t>(rowMarks(anchor_.story(), locate()).size());
}

std::int32_t Table::columnCount() const
{
    std::int32_t most = 0;
    for (const TableRow& each : rows())
        most = std::max(most, each.cellCount());
    return most;
}

bool Table::isUniform() const
{
    const std::vector<TableRow> all = rows();
    return std::all_of(all.begin(), all.end(),
                       [&all](const TableRow& row) { return row.cellCount() == all.front().cellCount(); });
}

bool Table::hasEvenColumns() const
{
    const auto widths = [](const TableRow& row) {
        std::vector<float> result;
        for (const CellFormat& cell : row.format().cells)
            result.push_back(cell.width);
        return result;
    };
    const std::vector<TableRow> all = rows();
    return std::all_of(all.begin(), all.end(),
                       [&](const TableRow& row) { return widths(row) == widths(all.front()); });
}

TableRow Table::row(std::int32_t index) const
{
    const Story& story = anchor_.story();
    const std::vector<std::size_t> marks = rowMarks(story, locate());
    if (index < 1 || static_cast<std::size_t>(index) > marks.size())
        throw WordError(WordErrorNumber::noSuchMember);
    return {anchor_.storyPtr(), story.paragraph(marks[static_cast<std::size_t>(index - 1)]).end - 1};
}

TableCell Table::cell(std::int32_t row, std::int32_t column) const
{
    return this->row(row).cell(column);
}

std::vector<TableRow> Table::rows() const
{
    const Story& story = anchor_.story();
    std::vector<TableRow> rows;
    for (const std::size_t mark : rowMarks(story, locate()))
        rows.emplace_back(anchor_.storyPtr(), story.paragraph(mark).end - 1);
    return rows;
}

TableRow Table::addRow()
{
    Story& story = anchor_.story();
    const ParagraphSpan like = rowEndingAt(story, locate().past - 1);
    const RowFormat format = formatOf(story, like);
    Position at = endOf(story, like);
    for (const ParagraphSpan& cell : cellsOf(story, like)) {
        insertCellMark(story, at, cell.past - 1);
        ++at;
    }
    insertRowMark(story, at, format);
    return {anchor_.storyPtr(), at};
}

void Table::addColumn()
{
    std::vector<TableRow> all = rows();
    const bool hasRoom = std::ranges::all_of(all, [](const TableRow& row) {
        return row.cellCount() < static_cast<std::int32_t>(RowFormat::mostCells);
    });
    if (!hasRoom)
        throw WordError(WordErrorNumber::valueOutOfRange);
    for (TableRow& row : all)
        row.addCell();
}

ParagraphSpan Table::locate() const
{
    const std::vector<ParagraphSpan> left =
        anchor_.isCollapsed() ? std::vector<ParagraphSpan>()
                              : tablesTouching(anchor_.story(), anchor_.start(), anchor_.end());
    if (left.empty())
        throw WordError(WordErrorNumber::objectDeleted);
    return left.front();
}

std::vector<Table> tablesOf(const LiveRange& range)
{
    std::vector<Table> tables;
    for (const ParagraphSpan& span : tablesTouching(range.story(), range.start(), range.end()))
        tables.emplace_back(range.storyPtr(), startOf(range.story(), span));
    return tables;
}

} // namespace standin::model
