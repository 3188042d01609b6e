#include "TableCell.h"

#include "TableRow.h"
#include "WordError.h"

#include <algorithm>
#include <span>

namespace standin::model {

namespace {

/// Makes the cells share `room` equally.
void share(std::span<CellFormat> cells, float room)
{
    for (CellFormat& cell : cells)
        cell.width = std::max(room / static_cast<float>(cells.size()), RowFormat::leastWidth);
}

} // namespace

TableRow TableCell::row() const
{
    const Story& story = anchor_.story();
    const ParagraphSpan row = rowAt(story, story.paragraphIndexAt(mark()));
    return {anchor_.storyPtr(), endOf(story, row) - 1};
}

LiveRange TableCell::range() const
{
    const Story& story = anchor_.story();
    const Position end = mark() + 1;
    std::size_t first = story.paragraphIndexAt(end - 1);
    while (first > 0 && story.paragraph(first - 1).format->inTable &&
           story.paragraph(first - 1).format->end == ParagraphEnd::mark)
        --first;
    return {anchor_.storyPtr(), story.paragraph(first).start, end};
}

std::int32_t TableCell::index() const
{
    const Story& story = anchor_.story();
    const std::vector<ParagraphSpan> cells = cellsOf(story, row().locate());
    const std::size_t paragraph = story.paragraphIndexAt(mark());
    const auto mine = std::find_if(cells.begin(), cells.end(), [paragraph](const ParagraphSpan& cell) {
        return cell.past == paragraph + 1;
    });
    return static_cast<std::int32_t>(mine - cells.begin()) + 1;
}

const CellFormat& TableCell::format() const
{
    return row().format().cells[static_cast<std::size_t>(index() - 1)];
}

void TableCell::setWidth(float points, RulerStyle ruler)
{
    if (!(points >= 0 && points <= RowFormat::largest))
        throw WordError(WordErrorNumber::valueOutOfRange);
    TableRow row = this->row();
    RowFormat format = row.format();
    const std::span<CellFormat> from = std::span(format.cells).subspan(static_cast<std::size_t>(index() - 1));
    const float difference = points - from.front().width;
    float behind = -difference;
    for (const CellFormat& cell : from.subspan(1))
        behind += cell.width;
    from.front().width = std::max(points, RowFormat::leastWidth);
    if (ruler == RulerStyle::sameWidth)
        share(from.subspan(1), behind);
    row.setFormat(format);
}

Position TableCell::mark() const
{
    if (anchor_.isCollapsed() || !isCellMark(anchor_.story(), anchor_.end() - 1))
        throw WordError(WordErrorNumber::objectDeleted);
    return anchor_.end() - 1;
}

} // namespace standin::model
