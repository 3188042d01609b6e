#pragma once

#include "Table.h"

#include <StandinBases.h>

namespace standin {
/// The rows of a table.
class RowsObject : public RowsBase
{
public:
    RowsObject(std::shared_ptr<Server> server, const model::Table& table);

protected:
    long getCount() override { return table_.rowCount(); }
    Word::RowPtr doItem(long index) override;
    Word::RowPtr doAdd(const VARIANT& beforeRow) override;
    void doSetHeight(float points, long rule) override;

private:
    model::Table table_;
};
} // namespace standin
