#pragma once

#include "TableOfContents.h"

#include <StandinBases.h>

namespace standin {
class TableOfContentsObject : public TableOfContentsBase
{
public:
    TableOfContentsObject(std::shared_ptr<Server> server, model::TableOfContents table);

protected:
    long getUpperHeadingLevel() override { return table_.options().upperHeadingLevel; }
    long getLowerHeadingLevel() override { return table_.options().lowerHeadingLevel; }
    Word::RangePtr getRange() override;
    long getTabLeader() override { return static_cast<long>(table_.tabLeader()); }
    void putTabLeader(long leader) override;
    void doUpdate() override { table_.update(); }

private:
    model::TableOfContents table_;
};
} // namespace standin
