#include "TextToTable.h"

#include "Document.h"
#include "TableMarks.h"
#include "TextArea.h"
#include "WordError.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace standin::model {

namespace {

constexpr std::int32_t mostColumns = static_cast<std::int32_t>(RowFormat::mostCells);

/// Where a cell of the table ends: at a separator or at a paragraph mark.
struct CellEnd
{
    Position at;
    bool endsParagraph;
};

ParagraphSpan paragraphsOf(const LiveRange& range)
{
    const Story& story = range.story();
    const Position last = std::max(range.start(), range.end() - 1);
    return {story.paragraphIndexAt(range.start()), story.paragraphIndexAt(last) + 1};
}

void checkPlainText(const Story& story, const ParagraphSpan& text)
{
    for (std::size_t i = text.first; i < text.past; ++i) {
        const Paragraph paragraph = story.paragraph(i);
        if (paragraph.format->inTable || paragraph.format->end != ParagraphEnd::mark)
            throw NotSupported("a table of text with tables or sections in it");
        if (!story.fields().halvesIn(paragraph.start, paragraph.end).empty())
            throw NotSupported("a table of text with fields over several paragraphs");
    }
}

void addSeparators(std::vector<CellEnd>& ends, const Story& story, const Paragraph& paragraph,
                   char16_t separator)
{
    const std::u16string text = story.text(paragraph.start, paragraph.end - 1);
    int depth = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        depth += text[i] == mark::fieldBegin ? 1 : 0;
        depth -= text[i] == mark::fieldEnd ? 1 : 0;
        if (text[i] == separator && depth == 0)
            ends.push_back({paragraph.start + static_cast<Position>(i), false});
    }
}

/// A row of the table: its cells' ends, first to last.
using Row = std::vector<CellEnd>;

std::vector<Row> rowsOfParagraphs(const Story& story, const ParagraphSpan& text, std::size_t columns)
{
    std::vector<Row> rows;
    for (std::size_t i = text.first; i < text.past; ++i) {
        if (rows.empty() || rows.back().size() == columns)
            rows.emplace_back();
        rows.back().push_back({story.paragraph(i).end - 1, true});
    }
    return rows;
}

std::vector<Row> rowsOfSeparated(const Story& story, const ParagraphSpan& text, char16_t separator,
                                 std::size_t columns)
{
    std::vector<Row> rows;
    for (std::size_t i = text.first; i < text.past; ++i) {
        const Paragraph paragraph = story.paragraph(i);
        std::vector<CellEnd> ends;
        addSeparators(ends, story, paragraph, separator);
        ends.push_back({paragraph.end - 1, true});
        for (std::size_t each = 0; each < ends.size(); ++each) {
            if (each % columns == 0)
                rows.emplace_back();
            rows.back().push_back(ends[each]);
        }
    }
    return rows;
}

std::size_t longest(const std::vector<Row>& rows)
{
    std::size_t most = 0;
    for (const Row& row : rows)
        most = std::max(most, row.size());
    return most;
}

std::vector<Row> rowsOf(const Story& story, const ParagraphSpan& text, const TextToTableOptions& options)
{
    if (options.separator) {
        const auto columns = static_cast<std::size_t>(options.columns.value_or(mostColumns));
        return rowsOfSeparated(story, text, *options.separator, columns);
    }
    std::int32_t columns = options.columns.value_or(1);
    if (!options.columns && options.rows) {
        const auto count = static_cast<std::int32_t>(text.past - text.first);
        columns = std::min((count + *options.rows - 1) / *options.rows, mostColumns);
    }
    return rowsOfParagraphs(story, text, static_cast<std::size_t>(columns));
}

void checkSizes(const TextToTableOptions& options)
{
    const auto within = [](std::int32_t number, std::int32_t most) { return number >= 1 && number <= most; };
    if (!within(options.rows.value_or(1), Table::mostRows) ||
        !within(options.columns.value_or(1), mostColumns) ||
        !(options.columnWidth >= 0 && options.columnWidth <= RowFormat::largest))
        throw WordError(WordErrorNumber::valueOutOfRange);
}

/// Turns the cells' ends into marks. From the back to the front, so that places in front stay as they are.
class Builder
{
public:
    Builder(Story& story, RowFormat format) : story_(story), format_(std::move(format)) {}

    /// Behind the row come `more` empty ones.
    void makeRow(const Row& row, std::int32_t more)
    {
        const Position last = row.back().at;
        const bool isFinalMark = last == story_.length() - 1;
        const std::size_t pattern = story_.paragraphIndexAt(last);
        Position at = endRow(last, pattern, format_.cells.size() - row.size() + 1);
        for (; more > 0; --more)
            at = endRow(at, pattern, format_.cells.size());
        if (!isFinalMark)
            story_.erase(at, at + 1);
        for (auto cell = row.rbegin() + 1; cell != row.rend(); ++cell) {
            insertCellMark(story_, cell->at, story_.paragraphIndexAt(cell->at));
            story_.erase(cell->at + 1, cell->at + 2);
        }
    }

private:
    /// Puts the marks of so many cells and the row's mark at `at`, the last of them in front of the mark that
    /// is there, whose paragraph they are formatted as. Returns the place behind them.
    Position endRow(Position at, std::size_t pattern, std::size_t cells)
    {
        for (; cells > 0; --cells)
            insertCellMark(story_, at++, pattern);
        insertRowMark(story_, at, format_);
        return at + 1;
    }

    Story& story_;
    RowFormat format_;
};

} // namespace

Table convertToTable(LiveRange& range, const TextToTableOptions& options)
{
    checkSizes(options);
    Story& story = range.story();
    const ParagraphSpan text = paragraphsOf(range);
    checkPlainText(story, text);
    const std::vector<Row> rows = rowsOf(story, text, options);
    const auto count = static_cast<std::int32_t>(rows.size());
    if (count > Table::mostRows)
        throw WordError(WordErrorNumber::valueOutOfRange);
    const auto columns = options.columns.value_or(static_cast<std::int32_t>(longest(rows)));
    const Position start = startOf(story, text);
    const Position behind = std::max(story.length() - endOf(story, text), 1); // the final mark stays
    RowFormat format = Table::newRow(textAreaAt(story, start).width, columns, options.borders);
    if (options.columnWidth > 0)
        for (CellFormat& cell : format.cells)
            cell.width = std::max(options.columnWidth, RowFormat::leastWidth);
    Builder builder(story, format);
    std::int32_t more = std::max(options.rows.value_or(0) - count, 0);
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
        builder.makeRow(*row, std::exchange(more, 0));
    const bool coversTable = story.document().switches().convertToTableRangeCoversTable;
    range.setRange(start, coversTable ? story.length() - behind : start);
    return {range.storyPtr(), start};
}

} // namespace standin::model
