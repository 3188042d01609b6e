#include "InlineShapeObject.h"

#include "RangeObject.h"

namespace standin {
InlineShapeObject::InlineShapeObject(std::shared_ptr<Server> server, const model::PlacedShape& shape)
    : InlineShapeBase(std::move(server)), shape_(shape)
{
}

Word::RangePtr InlineShapeObject::getRange()
{
    return makeObject<RangeObject>(sharedServer(), shape_.range());
}

float InlineShapeObject::getScaleWidth()
{
    const model::InlineShape& shape = shape_.shape();
    return 100 * shape.width / shape.picture->width;
}

void InlineShapeObject::putScaleWidth(float percent)
{
    shape_.setWidth(shape_.shape().picture->width * percent / 100);
}

float InlineShapeObject::getScaleHeight()
{
    const model::InlineShape& shape = shape_.shape();
    return 100 * shape.height / shape.picture->height;
}

void InlineShapeObject::putScaleHeight(float percent)
{
    shape_.setHeight(shape_.shape().picture->height * percent / 100);
}

void InlineShapeObject::doReset()
{
    const model::Picture& picture = *shape_.shape().picture;
    shape_.setWidth(picture.width);
    shape_.setHeight(picture.height);
}
} // namespace standin
