#include "PageNumbers.h"

namespace standin::model {

PageCounter::PageCounter(const Document& document)
    : document_(document), story_(*document.mainStory()), paragraph_(story_.paragraph(0))
{
    enterParagraph();
}

std::int32_t PageCounter::pageAt(Position position)
{
    while (at_ < position) {
        const char16_t character = story_.at(at_++);
        startsPage_ = false;
        if (at_ == paragraph_.end) {
            if (paragraph_.format->end == ParagraphEnd::section)
                endSection();
            if (++index_ < story_.paragraphCount()) {
                paragraph_ = story_.paragraph(index_);
                enterParagraph();
            }
        } else if (character == mark::page) {
            ++page_;
            startsPage_ = true;
        }
    }
    return page_;
}

void PageCounter::enterParagraph()
{
    ParagraphProperties properties = paragraph_.format->style->resolvedParagraph();
    properties.overlay(paragraph_.format->properties);
    if (!startsPage_ && properties.pageBreakBefore.value_or(false))
        ++page_;
}

void PageCounter::endSection()
{
    const bool isEven = page_ % 2 == 0;
    startsPage_ = true;
    switch (document_.section(++section_)->pageSetup.sectionStart) {
    case SectionStart::newPage:
        ++page_;
        return;
    case SectionStart::evenPage:
        page_ += isEven ? 2 : 1;
        return;
    case SectionStart::oddPage:
        page_ += isEven ? 1 : 2;
        return;
    case SectionStart::continuous:
    case SectionStart::newColumn:
        startsPage_ = false;
    }
}

std::int32_t pageNumberAt(const Document& document, Position position)
{
    return PageCounter(document).pageAt(position);
}

std::int32_t pageCount(const Document& document)
{
    return pageNumberAt(document, document.mainStory()->length() - 1);
}

} // namespace standin::model
