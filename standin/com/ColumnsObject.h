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
    Word::ColumnPtr getFirst() override { return doItem(1); }
    Word::ColumnPtr getLast() override { return doItem(table_.columnCount()); }
    Word::ColumnPtr doItem(long index) override;
    Word::ColumnPtr doAdd(const VARIANT& beforeColumn) override;
    float getWidth() override;
    void putWidth(float points) override;
    void doSetWidth(float points, long ruler) override;
    long getNestingLevel() override { return 1; }

private:
    model::Table table_;
};

/// The column of a table. Raises WordError 5992 when the rows' widths differ, so that there are no columns,
/// and 5941 for one that there is not.
Word::ColumnPtr columnOf(std::shared_ptr<Server> server, const model::Table& table, long index);
} // namespace standin
