#pragma once

#include "LiveRange.h"
#include "TableFormats.h"
#include "TableSpans.h"

namespace standin::model {

class TableRow;

/// A cell of a table, followed through edits. Raises 5825 once its mark is gone.
class TableCell
{
public:
    /// The cell that ends with the mark at `mark`.
    TableCell(std::shared_ptr<Story> story, Position mark) : anchor_(std::move(story), mark, mark + 1) {}

    TableRow row() const;
    LiveRange range() const;    ///< including the cell's mark
    std::int32_t index() const; ///< 1-based, within its row
    const CellFormat& format() const;

    /// Raises 4608 for a width that no cell has.
    void setWidth(float points, RulerStyle ruler);

private:
    Position mark() const;

    LiveRange anchor_;
};

} // namespace standin::model
