#pragma once

#include "TableRow.h"

#include <StandinBases.h>

namespace standin {
/// The cells of a row.
class CellsObject : public CellsBase
{
public:
    CellsObject(std::shared_ptr<Server> server, const model::TableRow& row);

protected:
    long getCount() override { return row_.cellCount(); }
    Word::CellPtr doItem(long index) override;
    Word::CellPtr doAdd(const VARIANT& beforeCell) override;

private:
    model::TableRow row_;
};
} // namespace standin
