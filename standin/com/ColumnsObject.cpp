#include "ColumnsObject.h"

#include "ColumnObject.h"
#include "TableArguments.h"

namespace standin {
ColumnsObject::ColumnsObject(std::shared_ptr<Server> server, const model::Table& table)
    : ColumnsBase(std::move(server)), table_(table)
{
}

Word::ColumnPtr ColumnsObject::doItem(long index)
{
    if (!table_.hasEvenColumns())
        throw model::WordError(model::WordErrorNumber::mixedColumns);
    if (index < 1 || index > table_.columnCount())
        throw model::WordError(model::WordErrorNumber::noSuchMember);
    return makeObject<ColumnObject>(sharedServer(), table_, index);
}

Word::ColumnPtr ColumnsObject::doAdd(const VARIANT& beforeColumn)
{
    refusePlace(beforeColumn);
    table_.addColumn();
    return makeObject<ColumnObject>(sharedServer(), table_, table_.columnCount());
}
} // namespace standin
