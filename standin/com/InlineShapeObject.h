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

private:
    model::PlacedShape shape_;
};
} // namespace standin
