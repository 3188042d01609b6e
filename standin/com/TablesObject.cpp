#include "TablesObject.h"

#include "RangeObject.h"
#include "TableArguments.h"
#include "TableObject.h"

namespace standin {
TablesObject::TablesObject(std::shared_ptr<Server> server, const model::LiveRange& scope)
    : TablesBase(std::move(server)), scope_(scope)
{
}

long TablesObject::getCount()
{
    return static_cast<long>(model::tablesOf(scope_).size());
}

Word::TablePtr TablesObject::doItem(long index)
{
    const std::vector<model::Table> tables = model::tablesOf(scope_);
    if (index < 1 || static_cast<std::size_t>(index) > tables.size())
        throw model::WordError(model::WordErrorNumber::noSuchMember);
    return makeObject<TableObject>(sharedServer(), tables[static_cast<std::size_t>(index) - 1]);
}

Word::TablePtr TablesObject::doAdd(Word::Range* range, long rows, long columns, const VARIANT& behavior,
                                   const VARIANT& autoFit)
{
    refuseFitting(autoFit);
    const model::Table::Borders borders = bordersOf(behavior);
    return makeObject<TableObject>(sharedServer(),
                                   model::Table::add(RangeObject::of(range), rows, columns, borders));
}
} // namespace standin
