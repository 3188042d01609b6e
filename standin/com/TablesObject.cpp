#include "TablesObject.h"

#include "Arguments.h"
#include "RangeObject.h"
#include "TableObject.h"

namespace standin {
namespace {
constexpr long word8Behavior = 0; ///< without borders
constexpr long word9Behavior = 1; ///< with borders, the columns fitted to their text

model::Table::Borders bordersOf(const VARIANT& behavior)
{
    switch (optionalLong(behavior).value_or(word8Behavior)) {
    case word8Behavior:
        return model::Table::Borders::none;
    case word9Behavior:
        return model::Table::Borders::single;
    default:
        throw model::WordError(model::WordErrorNumber::valueOutOfRange);
    }
}
} // namespace

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
    if (optionalLong(autoFit).value_or(0) != 0)
        throw model::NotSupported("fitting columns to their text needs a layout, which the stand-in has not");
    const model::Table::Borders borders = bordersOf(behavior);
    return makeObject<TableObject>(sharedServer(),
                                   model::Table::add(RangeObject::of(range), rows, columns, borders));
}

Word::TablePtr TablesObject::doAddOld(Word::Range* range, long rows, long columns)
{
    return doAdd(range, rows, columns, Word::missing, Word::missing);
}
} // namespace standin
