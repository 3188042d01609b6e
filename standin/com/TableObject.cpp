#include "TableObject.h"

#include "CellObject.h"
#include "ColumnsObject.h"
#include "RangeObject.h"
#include "RowsObject.h"

namespace standin {
TableObject::TableObject(std::shared_ptr<Server> server, const model::Table& table)
    : TableBase(std::move(server)), table_(table)
{
}

Word::RangePtr TableObject::getRange()
{
    return makeObject<RangeObject>(sharedServer(), table_.range());
}

Word::RowsPtr TableObject::getRows()
{
    table_.range(); // a table that is gone has no rows to show
    return makeObject<RowsObject>(sharedServer(), table_);
}

Word::ColumnsPtr TableObject::getColumns()
{
    table_.range();
    return makeObject<ColumnsObject>(sharedServer(), table_);
}

Word::CellPtr TableObject::doCell(long row, long column)
{
    return makeObject<CellObject>(sharedServer(), table_.cell(row, column));
}
} // namespace standin
