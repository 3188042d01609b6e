#include "TableOfContentsObject.h"

#include "RangeObject.h"

namespace standin {
using model::WordError;
using model::WordErrorNumber;

TableOfContentsObject::TableOfContentsObject(std::shared_ptr<Server> server, model::TableOfContents table)
    : TableOfContentsBase(std::move(server)), table_(std::move(table))
{
}

Word::RangePtr TableOfContentsObject::getRange()
{
    return makeObject<RangeObject>(sharedServer(), table_.range());
}

void TableOfContentsObject::putTabLeader(long leader)
{
    table_.range();
    if (leader < 0 || leader > static_cast<long>(model::TabStop::Leader::middleDot))
        throw WordError(WordErrorNumber::valueOutOfRange);
    table_.setTabLeader(static_cast<model::TabStop::Leader>(leader));
}
} // namespace standin
