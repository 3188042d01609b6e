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
    Word::RowPtr getFirst() override { return doItem(1); }
    Word::RowPtr getLast() override { return doItem(table_.rowCount()); }
    Word::RowPtr doItem(long index) override;
    Word::RowPtr doAdd(const VARIANT& beforeRow) override;
    float getHeight() override;
    void putHeight(float points) override;
    long getHeightRule() override;
    void putHeightRule(long rule) override;
    void doSetHeight(float points, long rule) override;
    void doDelete() override { table_.remove(); }
    long getNestingLevel() override { return 1; }

private:
    model::Table table_;
};
} // namespace standin
