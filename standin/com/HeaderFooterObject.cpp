#include "HeaderFooterObject.h"

#include "RangeObject.h"

namespace standin {
HeaderFooterObject::HeaderFooterObject(std::shared_ptr<Server> server, model::SectionPtr section,
                                       model::Section::Part part, model::HeaderFooterIndex index)
    : HeaderFooterBase(std::move(server)), section_(std::move(section)), part_(part), index_(index)
{
}

Word::RangePtr HeaderFooterObject::getRange()
{
    section_->document();
    const auto story = section_->story(part_, index_);
    return makeObject<RangeObject>(sharedServer(), model::LiveRange(story, 0, story->length()));
}

bool HeaderFooterObject::getExists()
{
    section_->document();
    return section_->exists(index_);
}

bool HeaderFooterObject::getLinkToPrevious()
{
    section_->document();
    return section_->linkToPrevious(part_, index_);
}

void HeaderFooterObject::putLinkToPrevious(bool linked)
{
    section_->document();
    section_->setLinkToPrevious(part_, index_, linked);
}
} // namespace standin
