#include "TableSpans.h"

#include <algorithm>

namespace standin::model {

namespace {

bool isInTable(const Story& story, std::size_t paragraph)
{
    return story.paragraph(paragraph).format->inTable;
}

ParagraphEnd endKind(const Story& story, std::size_t paragraph)
{
    return story.paragraph(paragraph).format->end;
}

bool isMark(const Story& story, Position position, ParagraphEnd kind)
{
    const Paragraph paragraph = story.paragraphAt(position);
    return paragraph.format->end == kind && paragraph.end == position + 1;
}

ParagraphSpan tableAround(const Story& story, std::size_t paragraph)
{
    ParagraphSpan table{paragraph, paragraph + 1};
    while (table.first > 0 && isInTable(story, table.first - 1))
        --table.first;
    while (table.past < story.paragraphCount() && isInTable(story, table.past))
        ++table.past;
    return table;
}

} // namespace

bool isInTable(const Story& story, Position position)
{
    return isInTable(story, story.paragraphIndexAt(position));
}

bool isCellMark(const Story& story, Position position)
{
    return isMark(story, position, ParagraphEnd::cell);
}

bool isRowMark(const Story& story, Position position)
{
    return isMark(story, position, ParagraphEnd::row);
}

Position startOf(const Story& story, const ParagraphSpan& span)
{
    return story.paragraph(span.first).start;
}

Position endOf(const Story& story, const ParagraphSpan& span)
{
    return story.paragraph(span.past - 1).end;
}

std::optional<ParagraphSpan> tableAt(const Story& story, Position position)
{
    const std::size_t paragraph = story.paragraphIndexAt(position);
    return isInTable(story, paragraph) ? std::optional(tableAround(story, paragraph)) : std::nullopt;
}

std::vector<ParagraphSpan> tablesTouching(const Story& story, Position start, Position end)
{
    std::vector<ParagraphSpan> tables;
    const std::size_t past = story.paragraphIndexAt(std::max(start, end - 1)) + 1;
    for (std::size_t at = story.paragraphIndexAt(start); at < past;) {
        if (isInTable(story, at)) {
            tables.push_back(tableAround(story, at));
            at = tables.back().past;
        } else {
            ++at;
        }
    }
    return tables;
}

ParagraphSpan rowEndingAt(const Story& story, std::size_t mark)
{
    ParagraphSpan row{mark, mark + 1};
    while (row.first > 0 && isInTable(story, row.first - 1) &&
           endKind(story, row.first - 1) != ParagraphEnd::row)
        --row.first;
    return row;
}

ParagraphSpan rowAt(const Story& story, std::size_t paragraph)
{
    while (endKind(story, paragraph) != ParagraphEnd::row)
        ++paragraph;
    return rowEndingAt(story, paragraph);
}

std::vector<std::size_t> rowMarks(const Story& story, const ParagraphSpan& table)
{
    std::vector<std::size_t> marks;
    for (std::size_t at = table.first; at < table.past; ++at)
        if (endKind(story, at) == ParagraphEnd::row)
            marks.push_back(at);
    return marks;
}

std::vector<ParagraphSpan> cellsOf(const Story& story, const ParagraphSpan& row)
{
    std::vector<ParagraphSpan> cells;
    std::size_t first = row.first;
    for (std::size_t at = row.first; at < row.past; ++at) {
        if (endKind(story, at) == ParagraphEnd::cell) {
            cells.push_back({first, at + 1});
            first = at + 1;
        }
    }
    return cells;
}

const RowFormat& formatOf(const Story& story, const ParagraphSpan& row)
{
    return *story.paragraph(row.past - 1).format->row;
}

} // namespace standin::model
