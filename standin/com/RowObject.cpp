#include "RowObject.h"

#include "CellsObject.h"
#include "RangeObject.h"
#include "Table.h"
#include "TableArguments.h"

namespace standin {
RowObject::RowObject(std::shared_ptr<Server> server, const model::TableRow& row)
    : RowBase(std::move(server)), row_(row)
{
}

model::TableRow& RowObject::of(IUnknown* object)
{
    auto* row = dynamic_cast<RowObject*>(StandinObject::of(object));
    if (!row)
        throw model::WordError(model::WordErrorNumber::typeMismatch);
    return row->row_;
}

Word::RangePtr RowObject::getRange()
{
    return makeObject<RangeObject>(sharedServer(), row_.range());
}

Word::CellsPtr RowObject::getCells()
{
    row_.index(); // a row that is gone has no cells to show
    return makeObject<CellsObject>(sharedServer(), CellsObject::sourceOf(row_));
}

bool RowObject::getIsLast()
{
    return row_.index() == row_.table().rowCount();
}

float RowObject::getHeight()
{
    return heightOf(row_);
}

void RowObject::putHeight(float points)
{
    putHeightOf(row_, points);
}

long RowObject::getHeightRule()
{
    return heightRuleOf(row_);
}

void RowObject::putHeightRule(long rule)
{
    putHeightRuleOf(row_, rule);
}

void RowObject::doSetHeight(float points, long rule)
{
    row_.setHeight(points, heightRule(rule));
}

Word::RowPtr RowObject::neighbour(std::int32_t distance)
{
    const model::Table table = row_.table();
    const std::int32_t index = row_.index() + distance;
    if (index < 1 || index > table.rowCount())
        return {};
    return makeObject<RowObject>(sharedServer(), table.row(index));
}
} // namespace standin
