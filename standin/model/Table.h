#pragma once

#include "TableRow.h"

#include <optional>

namespace standin::model {

/// A table of a story, followed through edits. Raises 5825 once nothing of it is left.
class Table
{
public:
    enum class Borders
    {
        none,
        single
    };

    static constexpr std::int32_t mostRows = 32767;

    /// The table that holds the character at `position` of a story; there must be one.
    Table(const std::shared_ptr<Story>& story, Position position);

    /// Puts an empty table in the place of `range`: in front of the paragraph at whose start that is, else
    /// behind a new paragraph mark. Its columns share the text's width equally. Raises 4608 for sizes that no
    /// table has.
    static Table add(LiveRange& range, std::int32_t rows, std::int32_t columns,
                     Borders borders = Borders::none);

    /// The format of a row of a new table, whose columns share the text's width equally.
    static RowFormat newRow(float textWidth, std::int32_t columns, Borders borders);

    LiveRange range() const;
    std::int32_t rowCount() const;
    std::int32_t columnCount() const; ///< of the row that has most
    bool isUniform() const;           ///< every row has as many cells
    /// Of every row the cells' widths are the same.
    bool hasEvenColumns() const;

    /// \name Parts, 1-based; raise 5941 for one that there is not.
    ///@{
    TableRow row(std::int32_t index) const;
    TableCell cell(std::int32_t row, std::int32_t column) const;
    ///@}
    std::vector<TableRow> rows() const;

    /// An empty row behind the last one, formatted as that is.
    TableRow addRow();
    /// An empty cell at the end of each row, formatted as the one in front of it. Raises 4608 when a row is
    /// full.
    void addColumn();

private:
    ParagraphSpan locate() const;

    LiveRange anchor_; ///< over the table as it was; what is left of it identifies it
};

/// The tables that have a part in the range.
std::vector<Table> tablesOf(const LiveRange& range);

} // namespace standin::model
