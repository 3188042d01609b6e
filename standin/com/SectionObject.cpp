#include "SectionObject.h"

#include "HeadersFootersObject.h"
#include "PageSetupObject.h"
#include "RangeObject.h"

namespace standin {
SectionObject::SectionObject(std::shared_ptr<Server> server, model::SectionPtr section)
    : SectionBase(std::move(server)), section_(std::move(section))
{
}

Word::RangePtr SectionObject::getRange()
{
    const model::Document& document = section_->document();
    const std::int32_t index = document.indexOf(*section_);
    return makeObject<RangeObject>(
        sharedServer(),
        model::LiveRange(document.mainStory(), document.sectionStart(index), document.sectionEnd(index)));
}

Word::PageSetupPtr SectionObject::getPageSetup()
{
    section_->document();
    return makeObject<PageSetupObject>(sharedServer(), std::vector{section_});
}

Word::HeadersFootersPtr SectionObject::getHeaders()
{
    section_->document();
    return makeObject<HeadersFootersObject>(sharedServer(), section_, model::Section::Part::header);
}

Word::HeadersFootersPtr SectionObject::getFooters()
{
    section_->document();
    return makeObject<HeadersFootersObject>(sharedServer(), section_, model::Section::Part::footer);
}
} // namespace standin
