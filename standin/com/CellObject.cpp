#include "CellObject.h"

#include "Arguments.h"
#include "ColumnsObject.h"
#include "RangeObject.h"
#include "RowObject.h"
#include "Table.h"
#include "TableArguments.h"

namespace standin {
CellObject::CellObject(std::shared_ptr<Server> server, const model::TableCell& cell)
    : CellBase(std::move(server)), cell_(cell)
{
}

model::TableCell& CellObject::of(IUnknown* object)
{
    auto* cell = dynamic_cast<CellObject*>(StandinObject::of(object));
    if (!cell)
        throw model::WordError(model::WordErrorNumber::typeMismatch);
    return cell->cell_;
}

Word::RangePtr CellObject::getRange()
{
    return makeObject<RangeObject>(sharedServer(), cell_.range());
}

Word::RowPtr CellObject::getRow()
{
    return makeObject<RowObject>(sharedServer(), cell_.row());
}

Word::ColumnPtr CellObject::getColumn()
{
    return columnOf(sharedServer(), cell_.row().table(), cell_.index());
}

void CellObject::doSetWidth(float points, long ruler)
{
    cell_.setWidth(points, rulerStyle(ruler));
}

float CellObject::getHeight()
{
    return heightOf(cell_.row());
}

void CellObject::putHeight(float points)
{
    model::TableRow row = cell_.row();
    putHeightOf(row, points);
}

long CellObject::getHeightRule()
{
    return heightRuleOf(cell_.row());
}

void CellObject::putHeightRule(long rule)
{
    model::TableRow row = cell_.row();
    putHeightRuleOf(row, rule);
}

void CellObject::doSetHeight(const VARIANT& points, long rule)
{
    cell_.row().setHeight(toFloat(points), heightRule(rule));
}
} // namespace standin
