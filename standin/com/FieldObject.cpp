#include "FieldObject.h"

#include "RangeObject.h"

#include <algorithm>

namespace standin {
FieldObject::FieldObject(std::shared_ptr<Server> server, model::Field field)
    : FieldBase(std::move(server)), field_(std::move(field))
{
}

Word::RangePtr FieldObject::getCode()
{
    return makeObject<RangeObject>(sharedServer(), field_.code());
}

void FieldObject::putCode(Word::Range* code)
{
    field_.setCode(RangeObject::of(code).text());
}

Word::RangePtr FieldObject::getResult()
{
    return makeObject<RangeObject>(sharedServer(), field_.result());
}

void FieldObject::putResult(Word::Range* result)
{
    field_.setResult(RangeObject::of(result).text());
}

Word::FieldPtr FieldObject::getNext()
{
    const auto [fields, place] = neighbours();
    if (place + 1 == fields.size())
        return {};
    return makeObject<FieldObject>(sharedServer(), fields[place + 1]);
}

Word::FieldPtr FieldObject::getPrevious()
{
    const auto [fields, place] = neighbours();
    if (place == 0)
        return {};
    return makeObject<FieldObject>(sharedServer(), fields[place - 1]);
}

long FieldObject::getIndex()
{
    return static_cast<long>(neighbours().second) + 1;
}

bool FieldObject::getShowCodes()
{
    field_.place();
    return false;
}

std::pair<std::vector<model::Field>, std::size_t> FieldObject::neighbours() const
{
    field_.place();
    const auto& story = field_.storyPtr();
    std::vector<model::Field> fields = model::fieldsIn(model::LiveRange(story, 0, story->length()));
    const auto place = std::find(fields.begin(), fields.end(), field_) - fields.begin();
    return {std::move(fields), static_cast<std::size_t>(place)};
}
} // namespace standin
