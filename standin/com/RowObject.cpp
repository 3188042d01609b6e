#include "RowObject.h"

#include "CellsObject.h"
#include "RangeObject.h"
#include "TableArguments.h"

namespace standin {
RowObject::RowObject(std::shared_ptr<Server> server, const model::TableRow& row)
    : RowBase(std::move(server)), row_(row)
{
}

Word::RangePtr RowObject::getRange()
{
    return makeObject<RangeObject>(sharedServer(), row_.range());
}

Word::CellsPtr RowObject::getCells()
{
    row_.index(); // a row that is gone has no cells to show
    return makeObject<CellsObject>(sharedServer(), row_);
}

float RowObject::getHeight()
{
    return heightOf(row_);
}

long RowObject::getHeightRule()
{
    return heightRuleOf(row_);
}

void RowObject::doSetHeight(float points, long rule)
{
    row_.setHeight(points, heightRule(rule));
}
} // namespace standin
