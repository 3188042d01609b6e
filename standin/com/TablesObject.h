#pragma once

#include "LiveRange.h"

#include <StandinBases.h>

namespace standin {
/// The tables that have a part in a range; of a document, those of its main text.
class TablesObject : public TablesBase
{
public:
    TablesObject(std::shared_ptr<Server> server, const model::LiveRange& scope);

protected:
    long getCount() override;
    Word::TablePtr doItem(long index) override;
    Word::TablePtr doAdd(Word::Range* range, long rows, long columns, const VARIANT& behavior,
                         const VARIANT& autoFit) override;

private:
    model::LiveRange scope_;
};
} // namespace standin
