#include "LiveRange.h"

#include "Document.h"
#include "Erasure.h"
#include "TableMarks.h"
#include "TableSpans.h"
#include "VisibleText.h"
#include "WordError.h"

#include <algorithm>
#include <vector>

namespace standin::model {

namespace {

/// Calls visit(start, end, paragraph format, run format) for each stretch of [start,end) that has one
/// formatting.
template <typename Visit>
void eachStretch(const Story& story, Position start, Position end, Visit visit)
{
    for (Position at = start; at < end;) {
        const Paragraph paragraph = story.paragraphAt(at);
        const CharacterRun run = story.runAt(at);
        const Position past = std::min({paragraph.end, run.end, end});
        visit(at, past, *paragraph.format, *run.format);
        at = past;
    }
}

/// Indices of the first paragraph touched and of the one behind the last.
std::pair<std::size_t, std::size_t> paragraphsTouched(const Story& story, Position start, Position end)
{
    const std::size_t first = story.paragraphIndexAt(start);
    const std::size_t last = end > start ? story.paragraphIndexAt(end - 1) : first;
    return {first, last + 1};
}

bool isFormatted(FontProperties font)
{
    font.hidden.reset();
    return font != FontProperties();
}

/// Takes away direct formatting that more than half of the paragraph's text has. What is hidden stays so.
void dropFontOfMost(Story& story, std::size_t index)
{
    const Paragraph paragraph = story.paragraph(index);
    Position formatted = 0;
    eachStretch(story, paragraph.start, paragraph.end - 1,
                [&](Position from, Position past, const ParagraphFormat&, const CharacterFormat& run) {
                    formatted += isFormatted(run.font) ? past - from : 0;
                });
    if (2 * formatted <= paragraph.end - 1 - paragraph.start)
        return;
    for (Position at = paragraph.start; at < paragraph.end;) {
        const CharacterRun run = story.runAt(at);
        const Position past = std::min(run.end, paragraph.end);
        CharacterFormat format = *run.format;
        format.font = {.hidden = format.font.hidden};
        story.setCharacterFormat(at, past, format);
        at = past;
    }
}

} // namespace

LiveRange::LiveRange(std::shared_ptr<Story> story, Position start, Position end) : story_(std::move(story))
{
    Story& owner = this->story();
    if (start < 0 || start >= owner.length() || end > owner.length())
        throw WordError(WordErrorNumber::valueOutOfRange);
    owner.endpoints().add(start_, start);
    owner.endpoints().add(end_, std::max(start, end));
}

LiveRange::LiveRange(const LiveRange& other) : story_(other.story_)
{
    EndpointSet& endpoints = story().endpoints();
    endpoints.add(start_, endpoints.position(other.start_));
    endpoints.add(end_, endpoints.position(other.end_));
}

LiveRange::~LiveRange()
{
    story_->endpoints().remove(start_);
    story_->endpoints().remove(end_);
}

Story& LiveRange::story() const
{
    if (!story_->isAlive())
        throw WordError(WordErrorNumber::objectDeleted);
    return *story_;
}

Position LiveRange::start() const
{
    return story().endpoints().position(start_);
}

Position LiveRange::end() const
{
    return story().endpoints().position(end_);
}

void LiveRange::setStart(Position start)
{
    start = withinStory(start, story().length() - 1);
    setRange(start, std::max(start, end()));
}

void LiveRange::setEnd(Position end)
{
    end = withinStory(end, story().length());
    setRange(std::min(start(), end), end);
}

void LiveRange::setRange(Position start, Position end)
{
    Story& owner = story();
    if (start < 0 || start >= owner.length() || end > owner.length())
        throw WordError(WordErrorNumber::valueOutOfRange);
    place(start, std::max(start, end));
}

void LiveRange::collapse(CollapseDirection direction)
{
    if (direction == CollapseDirection::start) {
        place(start(), start());
        return;
    }
    const bool stays = story().document().switches().collapseToEndStaysBeforeFinalMark;
    const Position at = stays ? std::min(end(), story().length() - 1) : end();
    place(at, at);
}

std::u16string LiveRange::text() const
{
    std::u16string text = visibleText(story(), start(), end());
    for (std::size_t at = text.find(mark::cell); at != std::u16string::npos;
         at = text.find(mark::cell, at + 2))
        text.insert(at, 1, mark::paragraph);
    return text;
}

void LiveRange::setText(std::u16string_view text)
{
    removeContent();
    const Position at = insertionPointAfter();
    place(at, at + insertInto(at, text));
}

void LiveRange::insertAfter(std::u16string_view text)
{
    const Position at = insertionPointAfter();
    const bool leavesMark =
        at < end() && isCellMark(story(), at) && !story().document().switches().cellRangeKeepsMark;
    const Position past = at + insertInto(at, text);
    if (end() < past || leavesMark)
        place(start(), past);
}

void LiveRange::insertBefore(std::u16string_view text)
{
    const Position at = std::min(start(), story().length() - 1);
    const Position past = at + insertInto(at, text);
    place(at, std::max(past, end()));
}

void LiveRange::insertParagraphAfter()
{
    const char16_t text = mark::paragraph;
    insertAfter({&text, 1});
}

void LiveRange::insertBreak(BreakType type)
{
    switch (type) {
    case BreakType::page:
        insertBreakCharacter(mark::page);
        return;
    case BreakType::column:
        insertBreakCharacter(mark::column);
        return;
    case BreakType::line:
        insertBreakCharacter(mark::line);
        return;
    case BreakType::sectionNextPage:
        insertSectionBreak(SectionStart::newPage);
        return;
    case BreakType::sectionContinuous:
        insertSectionBreak(SectionStart::continuous);
        return;
    case BreakType::sectionEvenPage:
        insertSectionBreak(SectionStart::evenPage);
        return;
    case BreakType::sectionOddPage:
        insertSectionBreak(SectionStart::oddPage);
        return;
    }
    throw WordError(WordErrorNumber::valueOutOfRange);
}

std::int32_t LiveRange::remove(std::int32_t count)
{
    if (isCollapsed())
        return removeCharacters(count);
    const bool isWholeStory = start() == 0 && end() == story().length();
    const Position removed = removeContent();
    if (isWholeStory && !story().document().switches().deletedStoryRangeCollapses)
        place(0, story().length());
    return story().document().switches().deleteAnswersOne ? 1 : removed;
}

StylePtr LiveRange::style() const
{
    const Story& owner = story();
    const Position from = std::min(start(), owner.length() - 1);
    const Position past = std::max(from + 1, end());
    const CharacterRun run = owner.runAt(from);
    const Style* found = owner.paragraphAt(from).format->style;
    bool mixed = false;
    if (run.format->style && run.end >= past) {
        found = run.format->style;
    } else {
        eachStretch(owner, from, past,
                    [&](Position, Position, const ParagraphFormat& paragraph, const CharacterFormat&) {
                        mixed = mixed || paragraph.style != found;
                    });
    }
    const Document& document = owner.document();
    if (mixed && !document.switches().mixedStyleReadsFirst)
        return nullptr;
    return document.styles().find(found->name());
}

void LiveRange::setStyle(const Style& style)
{
    if (style.type() == StyleType::character) {
        setCharacterStyle(style);
        return;
    }
    if (style.type() == StyleType::table) {
        setTableStyle(style);
        return;
    }
    Story& owner = story();
    const Switches& switches = owner.document().switches();
    const bool isLinked = style.hasCharacterStyle() && !switches.linkedStyleFormatsParagraph;
    if (isLinked && !isCollapsed() && end() < owner.paragraphAt(start()).end) {
        setCharacterStyle(*owner.document().styles().characterStyleOf(style));
        return;
    }
    const auto [first, past] = paragraphsTouched(owner, start(), end());
    for (std::size_t i = first; i < past; ++i) {
        ParagraphFormat format = *owner.paragraph(i).format;
        format.style = &style;
        if (!switches.paragraphStyleKeepsDirectFormatting)
            format.properties = {};
        owner.setParagraphFormat(i, format);
        if (!switches.paragraphStyleKeepsFontOfMost)
            dropFontOfMost(owner, i);
    }
}

void LiveRange::setStyle(std::u16string_view name)
{
    const StylePtr style = story().document().styles().find(name);
    if (!style)
        throw WordError(WordErrorNumber::noSuchItem);
    setStyle(*style);
}

void LiveRange::setStyle(std::int32_t builtinNumber)
{
    const StylePtr style = story().document().styles().findBuiltin(builtinNumber);
    if (!style)
        throw WordError(WordErrorNumber::noSuchItem);
    setStyle(*style);
}

FontProperties LiveRange::font() const
{
    const Story& owner = story();
    if (isCollapsed())
        return owner.fontForInsertion(std::min(start(), owner.length() - 1));
    FontProperties common = owner.effectiveFont(start());
    eachStretch(owner, start(), end(),
                [&common](Position, Position, const ParagraphFormat& paragraph, const CharacterFormat& run) {
                    common.keepCommon(Story::effectiveFont(paragraph, run));
                });
    return common;
}

void LiveRange::setFont(const FontProperties& properties)
{
    changeCharacters([&properties](CharacterFormat& format) { format.font.overlay(properties); });
}

void LiveRange::resetFont()
{
    changeCharacters([](CharacterFormat& format) { format.font = {}; });
}

ParagraphProperties LiveRange::paragraphFormat() const
{
    const Story& owner = story();
    const auto [first, past] = paragraphsTouched(owner, start(), end());
    const auto effective = [&owner](std::size_t index) {
        const ParagraphFormat& format = *owner.paragraph(index).format;
        ParagraphProperties properties = format.style->resolvedParagraph();
        properties.overlay(format.properties);
        return properties;
    };
    ParagraphProperties common = effective(first);
    for (std::size_t i = first + 1; i < past; ++i)
        common.keepCommon(effective(i));
    return common;
}

void LiveRange::setParagraphFormat(const ParagraphProperties& properties)
{
    Story& owner = story();
    const auto [first, past] = paragraphsTouched(owner, start(), end());
    for (std::size_t i = first; i < past; ++i) {
        ParagraphFormat format = *owner.paragraph(i).format;
        format.properties.overlay(properties);
        owner.setParagraphFormat(i, format);
    }
}

void LiveRange::resetParagraphFormat()
{
    Story& owner = story();
    const auto [first, past] = paragraphsTouched(owner, start(), end());
    for (std::size_t i = first; i < past; ++i) {
        ParagraphFormat format = *owner.paragraph(i).format;
        format.properties = {};
        owner.setParagraphFormat(i, format);
    }
}

void LiveRange::place(Position start, Position end)
{
    story().endpoints().set(start_, start);
    story().endpoints().set(end_, end);
}

Position LiveRange::insertionPointAfter() const
{
    const bool endsCell = !isCollapsed() && isCellMark(story(), end() - 1);
    return endsCell ? end() - 1 : std::min(end(), story().length() - 1);
}

Position LiveRange::insertInto(Position at, std::u16string_view text)
{
    const std::u16string normal = normalizeText(text);
    story().insert(at, normal);
    return static_cast<Position>(normal.size());
}

Position LiveRange::removeContent()
{
    const Erased erased = eraseContent(story(), start(), end());
    place(erased.place, erased.place);
    return erased.count;
}

std::int32_t LiveRange::removeCharacters(std::int32_t count)
{
    Story& owner = story();
    const std::int64_t last = owner.length() - 1;
    const auto from = static_cast<Position>(std::min<std::int64_t>(start(), last));
    const auto to = static_cast<Position>(std::clamp(std::int64_t{from} + count, std::int64_t{0}, last));
    const Erased erased = eraseContent(owner, std::min(from, to), std::max(from, to));
    return erased.count > 0 ? std::abs(to - from) : 0;
}

void LiveRange::insertBreakCharacter(char16_t character)
{
    const Switches& switches = story().document().switches();
    if (character == mark::page && story_->type() != StoryType::mainText && !switches.headerTakesPageBreak)
        throw WordError(WordErrorNumber::notAvailable);
    removeContent();
    const Position at = insertionPointAfter();
    const std::u16string text = textOfBreak(character, at);
    const Position past = at + static_cast<Position>(text.size());
    story().insert(at, text);
    place(switches.pageBreakRangeCoversBreak ? at : past, past);
}

std::u16string LiveRange::textOfBreak(char16_t character, Position at) const
{
    const PageBreakMark reading = story().document().switches().pageBreakParagraphMark;
    if (character != mark::page || reading == PageBreakMark::never)
        return {character};
    const Paragraph paragraph = story().paragraphAt(at);
    const bool startsText = at == paragraph.start && at < paragraph.end - 1;
    if (reading == PageBreakMark::atStartOfText && !startsText)
        return {character};
    return {character, mark::paragraph};
}

/// A start or an end as it was put; beyond the story refused later on, or brought back to it.
Position LiveRange::withinStory(Position position, Position last) const
{
    const bool isRefused = story().document().switches().endBeyondStoryIsRefused;
    return isRefused ? position : std::clamp(position, 0, last);
}

void LiveRange::insertSectionBreak(SectionStart sectionStart)
{
    Document& document = story().document();
    if (story_->type() != StoryType::mainText)
        throw WordError(WordErrorNumber::notAvailable);
    const Position at = std::min(start(), story_->length() - 1);
    document.breakSection(at, sectionStart);
    const bool behind = document.switches().sectionBreakRangeLiesBehind;
    place(behind ? at + 1 : at, std::max(at + 1, end()));
}

void LiveRange::setCharacterStyle(const Style& style)
{
    if (isCollapsed())
        return;
    const Style* put = style.builtinNumber() == Styles::defaultParagraphFont ? nullptr : &style;
    changeCharacters([put](CharacterFormat& format) { format.style = put; });
}

void LiveRange::setTableStyle(const Style& style)
{
    Story& owner = story();
    const std::vector<ParagraphSpan> tables = tablesTouching(owner, start(), end());
    if (tables.empty())
        throw WordError(WordErrorNumber::valueOutOfRange);
    for (const ParagraphSpan& table : tables)
        for (const std::size_t mark : rowMarks(owner, table)) {
            RowFormat format = *owner.paragraph(mark).format->row;
            format.style = &style;
            setRowFormat(owner, mark, format);
        }
}

void LiveRange::changeCharacters(const std::function<void(CharacterFormat&)>& change)
{
    Story& owner = story();
    Position from = start();
    Position past = end();
    if (from == past) {
        const Paragraph paragraph = owner.paragraphAt(from);
        if (paragraph.end - paragraph.start != 1)
            return;
        from = paragraph.start;
        past = paragraph.end;
    }
    for (Position at = from; at < past;) {
        const CharacterRun run = owner.runAt(at);
        const Position stretchEnd = std::min(run.end, past);
        CharacterFormat format = *run.format;
        change(format);
        owner.setCharacterFormat(at, stretchEnd, format);
        at = stretchEnd;
    }
}

} // namespace standin::model
