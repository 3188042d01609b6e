#include "ColumnsObject.h"

#include "Arguments.h"
#include "ColumnObject.h"
#include "TableArguments.h"

namespace standin {
ColumnsObject::ColumnsObject(std::shared_ptr<Server> server, const model::Table& table)
    : ColumnsBase(std::move(server)), table_(table)
{
}

Word::ColumnPtr ColumnsObject::doItem(long index)
{
    return columnOf(sharedServer(), table_, index);
}

Word::ColumnPtr ColumnsObject::doAdd(const VARIANT& beforeColumn)
{
    std::int32_t index = table_.columnCount() + 1;
    if (isOmitted(beforeColumn)) {
        table_.addColumn();
    } else {
        index = ColumnObject::of(toObject(beforeColumn)).index();
        table_.addColumn(index);
    }
    return makeObject<ColumnObject>(sharedServer(), table_, index);
}

float ColumnsObject::getWidth()
{
    return commonValue(table_.rows(), [](const model::TableRow& row) {
        return commonValue(row.format().cells, [](const model::CellFormat& cell) { return cell.width; });
    });
}

void ColumnsObject::putWidth(float points)
{
    doSetWidth(points, static_cast<long>(model::RulerStyle::none));
}

void ColumnsObject::doSetWidth(float points, long ruler)
{
    for (const model::TableRow& row : table_.rows())
        for (model::TableCell& cell : row.cells())
            cell.setWidth(points, rulerStyle(ruler));
}

Word::ColumnPtr columnOf(std::shared_ptr<Server> server, const model::Table& table, long index)
{
    if (!table.hasEvenColumns())
        throw model::WordError(model::WordErrorNumber::mixedColumns);
    if (index < 1 || index > table.columnCount())
        throw model::WordError(model::WordErrorNumber::noSuchMember);
    return makeObject<ColumnObject>(std::move(server), table, index);
}
} // namespace standin
