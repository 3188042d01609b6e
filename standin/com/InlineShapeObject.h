#pragma once

#include "InlineShape.h"

#include <StandinBases.h>

namespace standin {
class InlineShapeObject : public InlineShapeBase
{
public:
    InlineShapeObject(std::shared_ptr<Server> server, const model::PlacedShape& shape);

protected:
    Word::RangePtr getRange() override;
    long getType() override { return static_cast<long>(shape_.shape().type); }
    float getWidth() override { return shape_.shape().width; }
    void putWidth(float points) override { shape_.setWidth(points); }
    float getHeight() override { return shape_.shape().height; }
    void putHeight(float points) override { shape_.setHeight(points); }
    float getScaleWidth() override;
    void putScaleWidth(float percent) override;
    float getScaleHeight() override;
    void putScaleHeight(float percent) override;
    void doReset() override;
    void doDelete() override { shape_.remove(); }

private:
    model::PlacedShape shape_;
};
} // namespace standin
