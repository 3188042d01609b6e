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

    /// The column behind a client's argument; raises WordError 4218 for anything else.
    static ColumnObject& of(IUnknown* object);
    std::int32_t index() { return getIndex(); }

protected:
    long getIndex() override;
    bool getIsFirst() override { return getIndex() == 1; }
    bool getIsLast() override { return getIndex() == table_.columnCount(); }
    Word::CellsPtr getCells() override;
    float getWidth() override;
    void putWidth(float points) override;
    void doSetWidth(float points, long ruler) override;
    long getNestingLevel() override { return 1; }

private:
    model::Table table_;
    std::int32_t index_;
};
} // namespace standin
