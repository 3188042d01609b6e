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
} // namespace standin
