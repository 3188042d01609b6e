#pragma once

#include "TableRow.h"

#include <StandinBases.h>

namespace standin {
class RowObject : public RowBase
{
public:
    RowObject(std::shared_ptr<Server> server, const model::TableRow& row);

    /// The row behind a client's argument; raises WordError 4218 for anything else.
    static model::TableRow& of(IUnknown* object);

protected:
    Word::RangePtr getRange() override;
    Word::CellsPtr getCells() override;
    long getIndex() override { return row_.index(); }
    bool getIsFirst() override { return row_.index() == 1; }
    bool getIsLast() override;
    Word::RowPtr getNext() override { return neighbour(1); }
    Word::RowPtr getPrevious() override { return neighbour(-1); }
    float getHeight() override;
    void putHeight(float points) override;
    long getHeightRule() override;
    void putHeightRule(long rule) override;
    void doSetHeight(float points, long rule) override;
    void doDelete() override { row_.remove(); }
    long getNestingLevel() override { return 1; }

private:
    /// Null beyond the table's first and last row.
    Word::RowPtr neighbour(std::int32_t distance);

    model::TableRow row_;
};
} // namespace standin
