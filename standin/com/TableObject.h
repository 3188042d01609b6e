#pragma once

#include "Table.h"

#include <StandinBases.h>

namespace standin {
class TableObject : public TableBase
{
public:
    TableObject(std::shared_ptr<Server> server, const model::Table& table);

protected:
    Word::RangePtr getRange() override;
    Word::RowsPtr getRows() override;
    Word::ColumnsPtr getColumns() override;
    Word::CellPtr doCell(long row, long column) override;
    bool getUniform() override { return table_.isUniform(); }

private:
    model::Table table_;
};
} // namespace standin
