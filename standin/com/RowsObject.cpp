#include "RowsObject.h"

#include "Arguments.h"
#include "RowObject.h"
#include "TableArguments.h"

namespace standin {
RowsObject::RowsObject(std::shared_ptr<Server> server, const model::Table& table)
    : RowsBase(std::move(server)), table_(table)
{
}

Word::RowPtr RowsObject::doItem(long index)
{
    return makeObject<RowObject>(sharedServer(), table_.row(index));
}

Word::RowPtr RowsObject::doAdd(const VARIANT& beforeRow)
{
    const model::TableRow* before = isMissing(beforeRow) ? nullptr : &RowObject::of(toObject(beforeRow));
    return makeObject<RowObject>(sharedServer(), table_.addRow(before));
}

float RowsObject::getHeight()
{
    return commonValue(table_.rows(), heightOf);
}

void RowsObject::putHeight(float points)
{
    for (model::TableRow& row : table_.rows())
        putHeightOf(row, points);
}

long RowsObject::getHeightRule()
{
    return commonValue(table_.rows(), heightRuleOf);
}

void RowsObject::putHeightRule(long rule)
{
    for (model::TableRow& row : table_.rows())
        putHeightRuleOf(row, rule);
}

void RowsObject::doSetHeight(float points, long rule)
{
    for (model::TableRow& row : table_.rows())
        row.setHeight(points, heightRule(rule));
}
} // namespace standin
