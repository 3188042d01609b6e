#include "FieldObject.h"

#include "RangeObject.h"

namespace standin {
FieldObject::FieldObject(std::shared_ptr<Server> server, model::Field field)
    : FieldBase(std::move(server)), field_(std::move(field))
{
}

Word::RangePtr FieldObject::getCode()
{
    return makeObject<RangeObject>(sharedServer(), field_.code());
}

Word::RangePtr FieldObject::getResult()
{
    return makeObject<RangeObject>(sharedServer(), field_.result());
}
} // namespace standin
