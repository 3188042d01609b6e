#include "Document.h"

#include "TableSpans.h"
#include "WordError.h"

namespace standin::model {

std::shared_ptr<Document> Document::make(std::u16string name, const Switches& switches)
{
    std::shared_ptr<Document> document(new Document(std::move(name), switches));
    return document;
}

Document::Document(std::u16string name, const Switches& switches)
    : switches_(switches), name_(std::move(name)),
      mainStory_(std::make_shared<Story>(*this, StoryType::mainText)), sections_(1),
      lastSection_(std::make_shared<Section>(*this))
{
}

Document::~Document()
{
    close();
}

std::u16string Document::fullName() const
{
    return path_.empty() ? name_ : path_ + u'\\' + name_;
}

void Document::setFile(std::u16string path, std::u16string name)
{
    path_ = std::move(path);
    name_ = std::move(name);
}

SectionPtr Document::section(std::int32_t index) const
{
    if (index < 1 || index > sectionCount())
        throw WordError(WordErrorNumber::noSuchMember);
    return index == sectionCount() ? lastSection_ : sections_.value(static_cast<std::size_t>(index - 1));
}

std::int32_t Document::sectionIndexAt(Position position) const
{
    return static_cast<std::int32_t>(sections_.firstAfter(position)) + 1;
}

std::int32_t Document::indexOf(const Section& section) const
{
    for (std::int32_t index = 1; index <= sectionCount(); ++index)
        if (this->section(index).get() == &section)
            return index;
    throw WordError(WordErrorNumber::objectDeleted);
}

SectionPtr Document::sectionOf(const Story& story, Position position) const
{
    if (&story == mainStory_.get())
        return section(sectionIndexAt(position));
    std::int32_t index = 1;
    while (index < sectionCount() && !section(index)->owns(story))
        ++index;
    return section(index);
}

Position Document::sectionStart(std::int32_t index) const
{
    return index == 1 ? 0 : sectionEnd(index - 1);
}

Position Document::sectionEnd(std::int32_t index) const
{
    section(index);
    return index == sectionCount() ? mainStory_->length()
                                   : sections_.position(static_cast<std::size_t>(index - 1));
}

SectionPtr Document::breakSection(Position at, SectionStart start)
{
    if (isInTable(*mainStory_, at))
        throw WordError(WordErrorNumber::notAvailable);
    const std::int32_t index = sectionIndexAt(at);
    const SectionPtr before = section(index);
    mainStory_->insertParagraphEnd(at, mark::page, ParagraphEnd::section);
    auto behind = std::make_shared<Section>(*this);
    behind->pageSetup = before->pageSetup;
    behind->pageSetup.sectionStart = start;
    if (before == lastSection_)
        lastSection_ = behind;
    else
        sections_.value(static_cast<std::size_t>(index - 1)) = behind;
    sections_.insert(at + 1, before);
    return behind;
}

void Document::setOddAndEvenPages(bool value)
{
    for (std::int32_t index = 1; index <= sectionCount(); ++index)
        section(index)->pageSetup.oddAndEvenPages = value;
    touched();
}

void Document::close()
{
    if (closed_)
        return;
    closed_ = true;
    mainStory_->kill();
    for (std::int32_t index = 1; index <= sectionCount(); ++index)
        section(index)->kill();
}

void Document::textInserted(const Story& story, Position at, Position count)
{
    if (&story == mainStory_.get())
        sections_.inserted(at, count);
    touched();
}

void Document::textErased(const Story& story, Position start, Position end)
{
    if (&story == mainStory_.get()) {
        eraseSections(start, end);
        sections_.erased(start, end);
    }
    touched();
}

void Document::eraseSections(Position start, Position end)
{
    const std::size_t first = sections_.firstAfter(start);
    const std::size_t past = sections_.firstAfter(end);
    if (first == past)
        return;
    // The text in front joins the section behind, whose page setup wins. What a later section showed of a
    // header through its link must not go with the section that held it.
    const SectionPtr survivor = section(static_cast<std::int32_t>(past) + 1);
    for (const auto part : {Section::Part::header, Section::Part::footer})
        for (const auto index :
             {HeaderFooterIndex::primary, HeaderFooterIndex::firstPage, HeaderFooterIndex::evenPages})
            survivor->setLinkToPrevious(part, index, false);
    for (std::size_t i = first; i < past; ++i)
        sections_.value(i)->kill();
    sections_.removeBetween(start, end);
}

} // namespace standin::model
