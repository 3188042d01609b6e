#include "HyperlinkObject.h"

#include "RangeObject.h"

namespace standin {
HyperlinkObject::HyperlinkObject(std::shared_ptr<Server> server, model::Hyperlink link)
    : HyperlinkBase(std::move(server)), link_(std::move(link))
{
}

Word::RangePtr HyperlinkObject::getRange()
{
    return makeObject<RangeObject>(sharedServer(), link_.range());
}
} // namespace standin
