#include "ColumnObject.h"

#include "CellsObject.h"
#include "TableArguments.h"

namespace standin {
ColumnObject::ColumnObject(std::shared_ptr<Server> server, const model::Table& table, std::int32_t index)
    : ColumnBase(std::move(server)), table_(table), index_(index)
{
}

ColumnObject& ColumnObject::of(IUnknown* object)
{
    auto* column = dynamic_cast<ColumnObject*>(StandinObject::of(object));
    if (!column)
        throw model::WordError(model::WordErrorNumber::typeMismatch);
    return *column;
}

long ColumnObject::getIndex()
{
    if (index_ > table_.columnCount())
        throw model::WordError(model::WordErrorNumber::objectDeleted);
    return index_;
}

Word::CellsPtr ColumnObject::getCells()
{
    getIndex();
    return makeObject<CellsObject>(sharedServer(), CellsObject::sourceOf(table_, index_));
}

float ColumnObject::getWidth()
{
    return commonValue(CellsObject::sourceOf(table_, index_).read(),
                       [](const model::TableCell& cell) { return cell.format().width; });
}

void ColumnObject::putWidth(float points)
{
    doSetWidth(points, static_cast<long>(model::RulerStyle::none));
}

void ColumnObject::doSetWidth(float points, long ruler)
{
    for (model::TableCell& cell : CellsObject::sourceOf(table_, index_).read())
        cell.setWidth(points, rulerStyle(ruler));
}
} // namespace standin
