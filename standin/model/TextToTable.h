#pragma once

#include "Table.h"

#include <cstdint>
#include <optional>

namespace standin::model {

/// How a table is made of text.
struct TextToTableOptions
{
    /// What ends a cell within a paragraph; none: every paragraph is a cell.
    std::optional<char16_t> separator = {};
    std::optional<std::int32_t> rows = {};    ///< at least so many; further ones are empty
    std::optional<std::int32_t> columns = {}; ///< left out: as many as the longest row needs
    float columnWidth = 0;                    ///< points; 0: the columns share the text's width
    Table::Borders borders = Table::Borders::none;
};

/// Makes a table of the paragraphs that the range touches; the range then is the table.
///
/// A separator becomes the mark of the cell that it ends. A paragraph mark becomes the cell's mark, or, where
/// it ends a row, the row's mark behind a new mark of the last cell. So what ends in front of a mark still
/// does, and what starts behind one starts in the next cell. Rows that are short are filled with empty cells;
/// cells for which a row has no room go into the next one, so that no text is lost. The story's final mark
/// stays behind the table. Paragraphs, characters, fields and bookmarks are as before; a separator inside a
/// field is text of that field.
///
/// Raises 4608 for sizes that no table has, NotSupported where the text holds tables, ends of sections or
/// fields that run over several paragraphs.
Table convertToTable(LiveRange& range, const TextToTableOptions& options);

} // namespace standin::model
