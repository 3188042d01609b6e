#pragma once

#include "Story.h"
#include "TableFormats.h"

#include <cstddef>

/// Putting the marks of cells and rows into a story. The caller sees to it that they make whole rows.
namespace standin::model {

/// A cell's mark at `at`, whose paragraph and characters are formatted as the paragraph `pattern` and its
/// mark are.
void insertCellMark(Story& story, Position at, std::size_t pattern);
/// A row's mark at `at`, behind the mark of its last cell and formatted as that is.
void insertRowMark(Story& story, Position at, const RowFormat& format);
/// Of the row whose mark ends the paragraph `mark`.
void setRowFormat(Story& story, std::size_t mark, const RowFormat& format);

} // namespace standin::model
