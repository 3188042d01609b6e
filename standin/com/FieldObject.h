#pragma once

#include "Field.h"

#include <StandinBases.h>

namespace standin {
class FieldObject : public FieldBase
{
public:
    FieldObject(std::shared_ptr<Server> server, model::Field field);

protected:
    Word::RangePtr getCode() override;
    long getType() override { return field_.type(); }
    Word::RangePtr getResult() override;
    bool doUpdate() override { return field_.update(); }

private:
    model::Field field_;
};
} // namespace standin
