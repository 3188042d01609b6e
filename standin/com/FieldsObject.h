#pragma once

#include "Field.h"

#include <StandinBases.h>

namespace standin {
/// The fields that start in a range; of a document, those of its main text.
class FieldsObject : public FieldsBase
{
public:
    FieldsObject(std::shared_ptr<Server> server, const model::LiveRange& scope);

protected:
    long getCount() override;
    Word::FieldPtr doItem(long index) override;
    long doUpdate() override;
    Word::FieldPtr doAdd(Word::Range* range, const VARIANT& type, const VARIANT& text,
                         const VARIANT& preserveFormatting) override;

private:
    model::LiveRange scope_;
};
} // namespace standin
