#include "Section.h"

#include "Document.h"
#include "StoryCopy.h"
#include "WordError.h"

namespace standin::model {

namespace {

StoryType storyType(Section::Part part, HeaderFooterIndex index)
{
    const bool header = part == Section::Part::header;
    switch (index) {
    case HeaderFooterIndex::firstPage:
        return header ? StoryType::firstPageHeader : StoryType::firstPageFooter;
    case HeaderFooterIndex::evenPages:
        return header ? StoryType::evenPagesHeader : StoryType::evenPagesFooter;
    case HeaderFooterIndex::primary:
        break;
    }
    return header ? StoryType::primaryHeader : StoryType::primaryFooter;
}

/// Null for a section that nothing lies before.
SectionPtr sectionBefore(const Section& section)
{
    const Document& document = section.document();
    const std::int32_t index = document.indexOf(section);
    return index > 1 ? document.section(index - 1) : nullptr;
}

} // namespace

Section::~Section()
{
    kill();
}

Document& Section::document() const
{
    if (!document_)
        throw WordError(WordErrorNumber::objectDeleted);
    return *document_;
}

void Section::kill()
{
    document_ = nullptr;
    for (auto& part : items_) {
        for (Item& each : part) {
            if (each.story) {
                each.story->kill();
                each.story.reset();
            }
        }
    }
}

bool Section::linkToPrevious(Part part, HeaderFooterIndex index) const
{
    return sectionBefore(*this) != nullptr && item(part, index).linked;
}

void Section::setLinkToPrevious(Part part, HeaderFooterIndex index, bool linked)
{
    const SectionPtr before = sectionBefore(*this);
    Item& mine = item(part, index);
    if (!before || mine.linked == linked)
        return;
    if (linked) {
        if (mine.story) {
            mine.story->kill();
            mine.story.reset();
        }
    } else {
        auto copy = std::make_shared<Story>(document(), storyType(part, index));
        copyStory(*before->story(part, index), *copy);
        mine.story = std::move(copy);
    }
    mine.linked = linked;
    document().touched();
}

std::shared_ptr<Story> Section::story(Part part, HeaderFooterIndex index)
{
    if (linkToPrevious(part, index))
        return sectionBefore(*this)->story(part, index);
    Item& mine = item(part, index);
    if (!mine.story)
        mine.story = std::make_shared<Story>(document(), storyType(part, index));
    return mine.story;
}

std::shared_ptr<Story> Section::ownStory(Part part, HeaderFooterIndex index) const
{
    return linkToPrevious(part, index) ? nullptr : item(part, index).story;
}

bool Section::owns(const Story& story) const
{
    for (const auto& part : items_) {
        for (const Item& each : part)
            if (each.story.get() == &story)
                return true;
    }
    return false;
}

bool Section::exists(HeaderFooterIndex index) const
{
    switch (index) {
    case HeaderFooterIndex::firstPage:
        return pageSetup.differentFirstPage;
    case HeaderFooterIndex::evenPages:
        return pageSetup.oddAndEvenPages;
    case HeaderFooterIndex::primary:
        break;
    }
    return true;
}

Section::Item& Section::item(Part part, HeaderFooterIndex index)
{
    return const_cast<Item&>(std::as_const(*this).item(part, index));
}

const Section::Item& Section::item(Part part, HeaderFooterIndex index) const
{
    const auto number = static_cast<std::int32_t>(index);
    if (number < 1 || number > 3)
        throw WordError(WordErrorNumber::noSuchMember);
    return items_[part == Part::header ? 0 : 1][static_cast<std::size_t>(number - 1)];
}

} // namespace standin::model
