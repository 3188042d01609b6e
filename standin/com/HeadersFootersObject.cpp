#include "HeadersFootersObject.h"

#include "HeaderFooterObject.h"

namespace standin {
namespace {
constexpr long itemCount = 3;
} // namespace

HeadersFootersObject::HeadersFootersObject(std::shared_ptr<Server> server, model::SectionPtr section,
                                           model::Section::Part part)
    : HeadersFootersBase(std::move(server)), section_(std::move(section)), part_(part)
{
}

Word::HeaderFooterPtr HeadersFootersObject::doItem(long index)
{
    section_->document();
    if (index < 1 || index > itemCount)
        throw model::WordError(model::WordErrorNumber::noSuchMember);
    return makeObject<HeaderFooterObject>(sharedServer(), section_, part_,
                                          static_cast<model::HeaderFooterIndex>(index));
}
} // namespace standin
