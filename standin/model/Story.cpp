#include "Story.h"

#include "Document.h"
#include "WordError.h"

#include <algorithm>
#include <stdexcept>

namespace standin::model {

Story::Story(Document& document, StoryType type)
    : document_(&document), type_(type), paragraphs_(1), runs_(1), fields_(1), endpoints_(1)
{
    const char16_t finalMark = mark::paragraph;
    text_.insert(0, {&finalMark, 1});
    const Styles& styles = document.styles();
    ParagraphFormat format;
    format.style = &styles.normal();
    if (type != StoryType::mainText) {
        const bool header = type == StoryType::primaryHeader || type == StoryType::firstPageHeader ||
                            type == StoryType::evenPagesHeader;
        format.style = styles.findBuiltin(header ? -32 : -33).get();
    }
    paragraphs_.insert(1, format);
    runs_.insert(1, {});
}

Document& Story::document() const
{
    if (!document_)
        throw WordError(WordErrorNumber::objectDeleted);
    return *document_;
}

Paragraph Story::paragraph(std::size_t index) const
{
    return {index == 0 ? 0 : paragraphs_.position(index - 1), paragraphs_.position(index),
            &paragraphs_.value(index)};
}

std::size_t Story::paragraphIndexAt(Position position) const
{
    return std::min(paragraphs_.firstAfter(position), paragraphs_.size() - 1);
}

CharacterRun Story::run(std::size_t index) const
{
    return {index == 0 ? 0 : runs_.position(index - 1), runs_.position(index), &runs_.value(index)};
}

std::size_t Story::runIndexAt(Position position) const
{
    return std::min(runs_.firstAfter(position), runs_.size() - 1);
}

FontProperties Story::effectiveFont(Position position) const
{
    return effectiveFont(*paragraphAt(position).format, *runAt(position).format);
}

FontProperties Story::effectiveFont(const ParagraphFormat& paragraph, const CharacterFormat& run)
{
    FontProperties font = paragraph.style->resolvedFont();
    if (run.style)
        font.overlay(run.style->resolvedFont());
    font.overlay(run.font);
    return font;
}

FontProperties Story::fontForInsertion(Position at) const
{
    return effectiveFont(*paragraphAt(at).format, formatForInsertion(at));
}

void Story::insert(Position at, std::u16string_view text)
{
    if (!FieldMarks::isPaired(text))
        throw std::invalid_argument("half a field in a text to insert");
    insertPart(at, text);
    fields_.enter(at, text);
}

void Story::insertPart(Position at, std::u16string_view text)
{
    checkInsertion(at, ParagraphEnd::mark);
    if (!text.empty())
        insertFormatted(at, text, formatForInsertion(at));
}

void Story::enterFields(Position start, Position end)
{
    fields_.enter(start, text(start, end));
}

void Story::insertParagraphEnd(Position at, char16_t character, ParagraphEnd end)
{
    checkInsertion(at, end);
    const CharacterFormat format = formatForInsertion(at);
    ParagraphFormat split = splitFormat(at);
    split.end = end;
    insertRaw(at, {&character, 1});
    paragraphs_.insert(at + 1, split);
    setCharacterFormat(at, at + 1, format);
}

Position Story::erase(Position start, Position end)
{
    if (start < 0 || start > end || end >= length())
        throw WordError(WordErrorNumber::valueOutOfRange);
    std::vector<Position> kept;
    if (!fields_.isEmpty())
        kept = fields_.halvesIn(start, end);
    Position past = end;
    for (auto each = kept.rbegin(); each != kept.rend(); ++each) {
        eraseRaw(*each + 1, past);
        past = *each;
    }
    eraseRaw(start, past);
    Position place = start;
    for (Position at = start; at < start + static_cast<Position>(kept.size()); ++at)
        place = text_.at(at) == mark::fieldEnd ? at + 1 : place;
    return place;
}

FieldId Story::wrapInField(Position start, Position end, std::u16string_view code)
{
    checkInsertion(start, ParagraphEnd::mark);
    checkInsertion(end, ParagraphEnd::mark);
    if (start > end || !fields_.halvesIn(start, end).empty() || !FieldMarks::isPaired(code))
        throw std::invalid_argument("a field around half a field");
    const CharacterFormat format = formatForInsertion(start);
    insertFormatted(end, {&mark::fieldEnd, 1}, format);
    const std::u16string head = mark::fieldBegin + std::u16string(code) + mark::fieldSeparator;
    insertFormatted(start, head, format);
    fields_.enter(start + 1, code);
    const auto length = static_cast<Position>(head.size());
    return fields_.enter(start, start + length - 1, end + length);
}

void Story::addFieldResult(FieldId id)
{
    const std::optional<FieldPlace> place = fields_.find(id);
    if (place && !place->separator) {
        insertFormatted(place->end, {&mark::fieldSeparator, 1}, *runAt(place->begin).format);
        fields_.enterSeparator(id, place->end);
    }
}

void Story::unwrapField(FieldId id)
{
    if (const std::optional<FieldPlace> place = fields_.find(id)) {
        eraseRaw(place->end, place->past());
        eraseRaw(place->begin, place->resultStart());
    }
}

void Story::eraseRaw(Position start, Position end)
{
    if (start == end)
        return;
    Document& owner = document();
    text_.erase(start, end);
    fields_.erased(start, end);
    paragraphs_.removeBetween(start, end);
    paragraphs_.erased(start, end);
    // A run that reaches into the deleted text from before keeps its part in front of it.
    const std::size_t first = runs_.firstAfter(start);
    const bool cutsRun = run(first).start < start && run(first).end <= end;
    const CharacterFormat cut = runs_.value(first);
    runs_.removeBetween(start, end);
    if (cutsRun)
        runs_.insert(start, cut);
    runs_.erased(start, end);
    mergeRunsAt(start);
    endpoints_.erased(start, end);
    owner.textErased(*this, start, end);
}

void Story::setParagraphFormat(std::size_t index, const ParagraphFormat& format)
{
    paragraphs_.value(index) = format;
    document().touched();
}

void Story::setCharacterFormat(Position start, Position end, const CharacterFormat& format)
{
    if (start < 0 || end > length())
        throw WordError(WordErrorNumber::valueOutOfRange);
    if (start >= end)
        return;
    const CharacterRun present = runAt(start);
    if (present.end >= end && *present.format == format)
        return;
    document().touched();
    splitRunAt(start);
    splitRunAt(end);
    runs_.removeBetween(start, end);
    runs_.insert(end, format);
    mergeRunsAt(end);
    mergeRunsAt(start);
}

void Story::checkInsertion(Position at, ParagraphEnd kind) const
{
    if (at < 0 || at >= length())
        throw WordError(WordErrorNumber::valueOutOfRange);
    const bool isStructure = kind == ParagraphEnd::cell || kind == ParagraphEnd::row;
    if (!isStructure && paragraphAt(at).format->end == ParagraphEnd::row)
        throw WordError(WordErrorNumber::atRowEnd);
}

void Story::insertRaw(Position at, std::u16string_view text)
{
    if (text.size() > static_cast<std::size_t>(maximumLength - length()))
        throw WordError(WordErrorNumber::stringTooLong);
    Document& owner = document();
    const auto count = static_cast<Position>(text.size());
    text_.insert(at, text);
    paragraphs_.inserted(at, count);
    runs_.inserted(at, count);
    fields_.inserted(at, count);
    endpoints_.inserted(at, count);
    owner.textInserted(*this, at, count);
}

void Story::insertFormatted(Position at, std::u16string_view text, const CharacterFormat& format)
{
    const CharacterFormat kept = format; // may be one of the runs that move now
    const ParagraphFormat split = splitFormat(at);
    insertRaw(at, text);
    Position position = at;
    for (const char16_t unit : text) {
        ++position;
        if (unit == mark::paragraph)
            paragraphs_.insert(position, split);
    }
    setCharacterFormat(at, position, kept);
}

CharacterFormat Story::formatForInsertion(Position at) const
{
    const Position start = paragraphAt(at).start;
    Position before = at;
    bool isBehindHidden = false;
    while (before > start) {
        const std::optional<FieldPlace> field = fields_.endingAt(before - 1);
        if (!field)
            break;
        if (before == at)
            isBehindHidden = directFont(field->begin).hidden.value_or(false);
        before = field->begin;
    }
    CharacterFormat format = *runAt(before > start ? before - 1 : at).format;
    format.shape.reset();
    if (isBehindHidden && !document().switches().textBehindHiddenFieldShows)
        format.font.hidden = true;
    return format;
}

ParagraphFormat Story::splitFormat(Position at) const
{
    ParagraphFormat format = *paragraphAt(at).format;
    format.end = ParagraphEnd::mark;
    format.row.reset();
    return format;
}

void Story::splitRunAt(Position position)
{
    if (position <= 0 || position >= length())
        return;
    const CharacterRun present = runAt(position);
    if (present.start < position) {
        const CharacterFormat format = *present.format;
        runs_.insert(position, format);
    }
}

void Story::mergeRunsAt(Position position)
{
    if (position <= 0 || position >= length())
        return;
    const std::size_t behind = runs_.firstAfter(position);
    if (behind > 0 && runs_.position(behind - 1) == position &&
        runs_.value(behind - 1) == runs_.value(behind))
        runs_.removeBetween(position - 1, position);
}

std::u16string normalizeText(std::u16string_view text)
{
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        switch (text[i]) {
        case u'\r':
            result += mark::paragraph;
            if (i + 1 < text.size() && text[i + 1] == u'\n')
                ++i;
            break;
        case u'\n':
            result += mark::paragraph;
            break;
        case mark::picture:
        case mark::cell:
        case mark::fieldBegin:
        case mark::fieldSeparator:
        case mark::fieldEnd:
            result += u' ';
            break;
        default:
            result += text[i];
        }
    }
    return result;
}

} // namespace standin::model
