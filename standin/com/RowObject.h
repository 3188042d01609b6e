#pragma once

#include "TableRow.h"

#include <StandinBases.h>

namespace standin {
class RowObject : public RowBase
{
public:
    RowObject(std::shared_ptr<Server> server, const model::TableRow& row);

protected:
    Word::RangePtr getRange() override;
    Word::CellsPtr getCells() override;
    float getHeight() override;
    long getHeightRule() override;
    void doSetHeight(float points, long rule) override;

private:
    model::TableRow row_;
};
} // namespace standin
