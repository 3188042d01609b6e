#include "RowsObject.h"

#include "RowObject.h"
#include "TableArguments.h"

namespace standin {
RowsObject::RowsObject(std::shared_ptr<Server> server, const model::Table& table)
    : RowsBase(std::move(server)), table_(table)
{
}

Word::RowPtr RowsObject::doItem(long index)
{
    return makeObject<RowObject>(sharedServer(), table_.row(index));
}

Word::RowPtr RowsObject::doAdd(const VARIANT& beforeRow)
{
    refusePlace(beforeRow);
    return makeObject<RowObject>(sharedServer(), table_.addRow());
}

void RowsObject::doSetHeight(float points, long rule)
{
    for (model::TableRow& row : table_.rows())
        row.setHeight(points, heightRule(rule));
}
} // namespace standin
