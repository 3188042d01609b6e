#pragma once

#include "Table.h"

#include <StandinBases.h>

namespace standin {
/// A column of a table whose rows are all alike. It is a number, and means another column after cells were
/// added.
class ColumnObject : public ColumnBase
{
public:
    ColumnObject(std::shared_ptr<Server> server, const model::Table& table, std::int32_t index);

protected:
    float getWidth() override;

private:
    model::Table table_;
    std::int32_t index_;
};
} // namespace standin
