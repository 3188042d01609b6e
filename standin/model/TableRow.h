#pragma once

#include "TableCell.h"

namespace standin::model {

class Table;

/// A row of a table, followed through edits. Raises 5825 once its mark is gone.
class TableRow
{
public:
    /// The row that ends with the mark at `mark`.
    TableRow(std::shared_ptr<Story> story, Position mark) : anchor_(std::move(story), mark, mark + 1) {}

    LiveRange range() const; ///< including the row's mark
    std::int32_t index() const;
    const RowFormat& format() const { return formatOf(anchor_.story(), locate()); }
    void setFormat(const RowFormat& format);

    std::int32_t cellCount() const;
    TableCell cell(std::int32_t index) const; ///< 1-based; raises 5941
    std::vector<TableCell> cells() const;
    /// An empty cell at the row's end, formatted as the last one. Raises 4608 when the row is full.
    TableCell addCell();

    /// Raises 4608 for a height that no row has.
    void setHeight(float points, RowHeightRule rule);

private:
    friend class Table;
    friend class TableCell;
    ParagraphSpan locate() const;

    LiveRange anchor_;
};

} // namespace standin::model
