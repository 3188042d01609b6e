#include "ColumnObject.h"

namespace standin {
ColumnObject::ColumnObject(std::shared_ptr<Server> server, const model::Table& table, std::int32_t index)
    : ColumnBase(std::move(server)), table_(table), index_(index)
{
}

float ColumnObject::getWidth()
{
    std::optional<float> common;
    for (const model::TableRow& row : table_.rows()) {
        if (index_ > row.cellCount())
            continue;
        const float width = row.cell(index_).format().width;
        if (common && *common != width)
            return static_cast<float>(model::mixedValue);
        common = width;
    }
    return common.value_or(static_cast<float>(model::mixedValue));
}
} // namespace standin
