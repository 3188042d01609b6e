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
    void putCode(Word::Range* code) override;
    long getType() override { return field_.type(); }
    Word::RangePtr getResult() override;
    void putResult(Word::Range* result) override;
    Word::FieldPtr getNext() override;
    Word::FieldPtr getPrevious() override;
    long getIndex() override;
    bool getShowCodes() override;
    bool doUpdate() override { return field_.update(); }
    void doUnlink() override { field_.unlink(); }
    void doDelete() override { field_.remove(); }

private:
    /// The story's fields and the place of this one among them.
    std::pair<std::vector<model::Field>, std::size_t> neighbours() const;

    model::Field field_;
};
} // namespace standin
