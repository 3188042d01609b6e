#include "RtfStoryReader.h"

namespace standin::rtf {

using namespace model;

void StoryReader::flush()
{
    if (pending_.empty())
        return;
    insert(normalizeText(pending_));
    pending_.clear();
    endedWithMark_ = false;
}

void StoryReader::insert(std::u16string_view text)
{
    const Position at = insertionPoint();
    story_->insert(at, text);
    story_->setCharacterFormat(at, at + static_cast<Position>(text.size()), characterFormat());
}

CharacterFormat StoryReader::characterFormat() const
{
    return {format_.characterStyle, format_.ownFont(keepsAllStated_)};
}

Position StoryReader::lastParagraphStart() const
{
    return story_->paragraph(story_->paragraphCount() - 1).start;
}

void StoryReader::formatLastParagraph()
{
    ParagraphFormat format;
    format.style = format_.paragraphStyle;
    format.properties = format_.ownParagraph(keepsAllStated_);
    story_->setParagraphFormat(story_->paragraphCount() - 1, format);
}

void StoryReader::endParagraph()
{
    flush();
    if (!format_.inTable)
        endRow();
    formatLastParagraph();
    const char16_t paragraphMark = mark::paragraph;
    insert({&paragraphMark, 1});
    if (format_.inTable)
        row_.takeParagraph(*story_);
    endedWithMark_ = true;
    markedStory_ = story_;
}

void StoryReader::endSection()
{
    if (!isInBody())
        return;
    endRow();
    formatLastParagraph();
    document_.breakSection(insertionPoint(), SectionStart::newPage);
    endedWithMark_ = false;
}

void StoryReader::endCell()
{
    flush();
    formatLastParagraph();
    row_.endCell(*story_, insertionPoint(), characterFormat());
    endedWithMark_ = false;
}

void StoryReader::endRow(Position at)
{
    if (!row_.isOpen())
        return;
    row_.end(*story_, at, tables_.styles);
    endedWithMark_ = false;
}

void StoryReader::finishStory()
{
    flush();
    endRow();
    if (endsWithMark()) {
        const Position last = story_->length() - 1;
        const ParagraphFormat format = *story_->paragraphAt(last - 1).format;
        const CharacterFormat characters = *story_->runAt(last - 1).format;
        BookmarkReader::eraseDoubleMark(story_);
        story_->setParagraphFormat(story_->paragraphCount() - 1, format);
        story_->setCharacterFormat(last - 1, last, characters);
    } else {
        formatLastParagraph();
    }
    endedWithMark_ = false;
    markedStory_.reset();
}

void StoryReader::openField()
{
    flush();
    fields_.open(story_, characterFormat());
    endedWithMark_ = false;
}

void StoryReader::closeField()
{
    fields_.close();
    endedWithMark_ = false;
}

void StoryReader::insertHiddenField(std::u16string_view code)
{
    CharacterFormat format = characterFormat();
    format.font.hidden = true;
    fields_.open(story_, format);
    const Position at = insertionPoint();
    story_->insert(at, code);
    story_->setCharacterFormat(at, at + static_cast<Position>(code.size()), format);
    closeField();
}

void StoryReader::insertShape(const InlineShape& shape)
{
    const Position at = insertionPoint();
    const char16_t character = mark::picture;
    insert({&character, 1});
    CharacterFormat format = characterFormat();
    format.shape = std::make_shared<InlineShape>(shape);
    story_->setCharacterFormat(at, at + 1, format);
    endedWithMark_ = false;
}

void StoryReader::insertObjectField(const InlineShape& object)
{
    const Position at = insertionPoint();
    insertShape(object);
    story_->wrapInField(at, at + 1, objectFieldCode(object));
}

void StoryReader::beginHeader(Section::Part part, HeaderFooterIndex index)
{
    flush();
    endRow();
    const SectionPtr section = document_.section(document_.sectionCount());
    section->setLinkToPrevious(part, index, false);
    story_ = section->story(part, index);
    story_->erase(0, story_->length() - 1);
    endedWithMark_ = false;
}

void StoryReader::endHeader()
{
    finishStory();
    story_ = document_.mainStory();
}

} // namespace standin::rtf
