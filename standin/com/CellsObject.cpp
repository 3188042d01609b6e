#include "CellsObject.h"

#include "CellObject.h"
#include "TableArguments.h"

namespace standin {
CellsObject::CellsObject(std::shared_ptr<Server> server, const model::TableRow& row)
    : CellsBase(std::move(server)), row_(row)
{
}

Word::CellPtr CellsObject::doItem(long index)
{
    return makeObject<CellObject>(sharedServer(), row_.cell(index));
}

Word::CellPtr CellsObject::doAdd(const VARIANT& beforeCell)
{
    refusePlace(beforeCell);
    return makeObject<CellObject>(sharedServer(), row_.addCell());
}
} // namespace standin
