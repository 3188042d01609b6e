#include "FieldsObject.h"

#include "Arguments.h"
#include "FieldObject.h"
#include "RangeObject.h"

namespace standin {
FieldsObject::FieldsObject(std::shared_ptr<Server> server, const model::LiveRange& scope)
    : FieldsBase(std::move(server)), scope_(scope)
{
}

long FieldsObject::getCount()
{
    return static_cast<long>(model::fieldsIn(scope_).size());
}

Word::FieldPtr FieldsObject::doItem(long index)
{
    return makeObject<FieldObject>(sharedServer(), memberAt(model::fieldsIn(scope_), index));
}

long FieldsObject::doUpdate()
{
    long firstError = 0;
    long index = 0;
    for (model::Field& field : model::fieldsIn(scope_)) {
        ++index;
        // The update of one around it may have replaced it.
        if (field.exists() && !field.update() && firstError == 0)
            firstError = index;
    }
    return firstError;
}

Word::FieldPtr FieldsObject::doAdd(Word::Range* range, const VARIANT& type, const VARIANT& text,
                                   const VARIANT& preserveFormatting)
{
    model::FieldRequest request;
    if (!isOmitted(type))
        request.type = toLong(type);
    request.text = optionalText(text).value_or(std::u16string());
    if (!isOmitted(preserveFormatting))
        request.preserveFormatting = toBool(preserveFormatting);
    return makeObject<FieldObject>(sharedServer(), model::addField(RangeObject::of(range), request));
}
} // namespace standin
