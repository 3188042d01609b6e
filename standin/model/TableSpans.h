#pragma once

#include "Story.h"
#include "TableFormats.h"

#include <optional>
#include <vector>

/// Where the tables of a story lie. Rows that touch each other are one table.
namespace standin::model {

/// A stretch of whole paragraphs.
struct ParagraphSpan
{
    std::size_t first = 0; ///< index of its first paragraph
    std::size_t past = 0;  ///< index behind its last one

    bool operator==(const ParagraphSpan&) const = default;
};

bool isInTable(const Story& story, Position position);
/// True for the mark that ends a cell, not for one that ends a row.
bool isCellMark(const Story& story, Position position);
bool isRowMark(const Story& story, Position position);

Position startOf(const Story& story, const ParagraphSpan& span);
Position endOf(const Story& story, const ParagraphSpan& span); ///< behind the last mark

/// The table that holds the character at `position`, if one does.
std::optional<ParagraphSpan> tableAt(const Story& story, Position position);
/// All tables that have a part in [start,end), or, if that is empty, that hold the character at `start`.
std::vector<ParagraphSpan> tablesTouching(const Story& story, Position start, Position end);

/// The row whose mark ends the paragraph `mark`.
ParagraphSpan rowEndingAt(const Story& story, std::size_t mark);
/// The row that the paragraph is part of; it must lie in a table.
ParagraphSpan rowAt(const Story& story, std::size_t paragraph);
/// Indices of the paragraphs that end on the table's row marks.
std::vector<std::size_t> rowMarks(const Story& story, const ParagraphSpan& table);
std::vector<ParagraphSpan> cellsOf(const Story& story, const ParagraphSpan& row);
const RowFormat& formatOf(const Story& story, const ParagraphSpan& row);

} // namespace standin::model
