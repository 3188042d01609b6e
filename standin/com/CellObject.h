#pragma once

#include "TableRow.h"

#include <StandinBases.h>

namespace standin {
class CellObject : public CellBase
{
public:
    CellObject(std::shared_ptr<Server> server, const model::TableCell& cell);

protected:
    Word::RangePtr getRange() override;
    float getWidth() override { return cell_.format().width; }
    void doSetWidth(float points, long ruler) override;

private:
    model::TableCell cell_;
};
} // namespace standin
