#pragma once

#include "Table.h"

#include <StandinBases.h>

namespace standin {
/// The columns of a table.
class ColumnsObject : public ColumnsBase
{
public:
    ColumnsObject(std::shared_ptr<Server> server, const model::Table& table);

protected:
    long getCount() override { return table_.columnCount(); }
    /// Raises WordError 5992 when the rows' widths differ, so that there are no columns, and 5941 for one
    /// that there is not.
    Word::ColumnPtr doItem(long index) override;
    Word::ColumnPtr doAdd(const VARIANT& beforeColumn) override;

private:
    model::Table table_;
};
} // namespace standin
