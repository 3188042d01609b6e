#include "CellObject.h"

#include "Arguments.h"
#include "RangeObject.h"
#include "TableArguments.h"

namespace standin {
CellObject::CellObject(std::shared_ptr<Server> server, const model::TableCell& cell)
    : CellBase(std::move(server)), cell_(cell)
{
}

Word::RangePtr CellObject::getRange()
{
    return makeObject<RangeObject>(sharedServer(), cell_.range());
}

void CellObject::doSetWidth(float points, long ruler)
{
    cell_.setWidth(points, rulerStyle(ruler));
}
} // namespace standin
