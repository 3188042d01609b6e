#pragma once

#include "TableRow.h"

#include <StandinBases.h>

namespace standin {
class CellObject : public CellBase
{
public:
    CellObject(std::shared_ptr<Server> server, const model::TableCell& cell);

    /// The cell behind a client's argument; raises WordError 4218 for anything else.
    static model::TableCell& of(IUnknown* object);

protected:
    Word::RangePtr getRange() override;
    Word::RowPtr getRow() override;
    Word::ColumnPtr getColumn() override;
    long getRowIndex() override { return cell_.row().index(); }
    long getColumnIndex() override { return cell_.index(); }
    float getWidth() override { return cell_.format().width; }
    void putWidth(float points) override { cell_.setWidth(points, model::RulerStyle::none); }
    void doSetWidth(float points, long ruler) override;
    float getHeight() override;
    void putHeight(float points) override;
    long getHeightRule() override;
    void putHeightRule(long rule) override;
    void doSetHeight(const VARIANT& points, long rule) override;
    long getNestingLevel() override { return 1; }

private:
    model::TableCell cell_;
};
} // namespace standin
