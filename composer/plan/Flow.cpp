#include "Flow.h"

#include "DirectAlignment.h"
#include "StyleSheet.h"

#include <algorithm>
#include <utility>

namespace compose {

namespace {

constexpr char16_t paragraphMark = u'\r';
constexpr char16_t pageBreakMark = u'\f';
constexpr char16_t placeholderMark = u'X';
constexpr char16_t pictureMark = u'\x01';

template <class What>
const What* as(const Item& item)
{
    return std::get_if<What>(&item.what);
}

template <class Value>
struct Stretch
{
    Span span;
    Value value;
};

/// Adds a stretch, or lengthens the last one where that has the same value and ends there.
template <class Value>
void extend(std::vector<Stretch<Value>>& stretches, Span span, const Value& value)
{
    if (!stretches.empty() && stretches.back().span.end == span.start && stretches.back().value == value)
        stretches.back().span.end = span.end;
    else
        stretches.push_back({span, value});
}

} // namespace

Flow::Flow(const Source& source, StyleSheet& styles, const Ground& ground, Within within, Position origin)
    : source_(source), styles_(styles), ground_(ground), within_(within), origin_(origin)
{
}

Flow::Line& Flow::layOut(const Paragraph& paragraph, Position shift)
{
    const auto place = [this] { return origin_ + static_cast<Position>(text_.size()); };
    Line line{&paragraph, place(), 0, shift};
    const bool areFieldsPlain = hasOnlyPlainFields(paragraph);
    const Item* before = nullptr; // whose character is in front
    for (std::size_t i = 0; i < paragraph.items.size(); ++i) {
        const Item& item = paragraph.items[i];
        if (const Text* const text = as<Text>(item)) {
            text_ += text->characters;
            before = &item;
        } else if (as<PageBreak>(item)) {
            text_ += pageBreakMark;
            before = nullptr;
        } else if (const Picture* const picture = as<Picture>(item)) {
            if (picture->isThere)
                text_ += picture->kept ? placeholderMark : pictureMark;
            before = nullptr;
        } else if (as<Field>(item) && !areFieldsPlain) {
            if (!before || changeOfItem(*before, paragraph) != changeOfItem(item, paragraph)) {
                line.placeholders.resize(paragraph.items.size());
                line.placeholders[i] = true;
                text_ += placeholderMark;
            }
            before = &item;
        }
    }
    line.end = place();
    line.isFilledLater = std::ranges::any_of(paragraph.items, as<Field>);
    lines_.push_back(std::move(line));
    return lines_.back();
}

void Flow::add(const Paragraph& paragraph)
{
    endParagraph();
    layOut(paragraph).isLast = true;
    isParagraphOpen_ = true;
}

void Flow::endParagraph()
{
    if (!isParagraphOpen_)
        return;
    lines_.back().isLast = false;
    text_ += paragraphMark;
    isParagraphOpen_ = false;
}

// Of each cell the first paragraph; what else is in it comes when the table is made.
void Flow::add(const Table& table)
{
    endParagraph();
    MadeTable made{&table, lines_.size(), 0};
    Position row = 0;
    for (const Row& cells : table.rows) {
        for (const Cell& cell : cells) {
            Line& line = layOut(cell.front(), row);
            line.isFilledLater = line.isFilledLater || cell.size() > 1;
            text_ += paragraphMark;
        }
        ++row;
    }
    made.pastLine = lines_.size();
    tables_.push_back(made);
}

// A field takes over the font of the character in front of it, and at a paragraph's beginning that of the one
// behind: of the paragraph's end, or of an entry, which is hidden and goes in before.
bool Flow::hasOnlyPlainFields(const Paragraph& paragraph)
{
    const auto field = std::ranges::find_if(paragraph.items, as<Field>);
    if (std::any_of(field, paragraph.items.end(), as<Entry>))
        return false;
    return !paragraph.holdsWritten && std::ranges::none_of(paragraph.items, [&](const Item& item) {
        return as<Text>(item) || as<PageBreak>(item) || as<Picture>(item) ||
               (as<Field>(item) && !changeOfItem(item, paragraph).isEmpty());
    });
}

FontChange Flow::changeOfItem(const Item& item, const Paragraph& paragraph)
{
    if (!item.font)
        return {};
    if (item.font != lastWish_ || paragraph.style != lastStyle_) {
        lastChange_ = changeOf(item.font.get(), paragraph.style, styles_);
        lastWish_ = item.font;
        lastStyle_ = paragraph.style;
    }
    return lastChange_;
}

/// Whether its style and alignment are to be put. The story's last paragraph keeps its own until something
/// stands in it.
bool Flow::isFormatted(const Line& line) const
{
    return !line.isLast || within_ == Within::cell || line.paragraph->holdsAnything() ||
           line.paragraph->isSettled;
}

void Flow::plan(std::deque<Operation>& operations, Position drafted)
{
    if (const auto there = static_cast<std::size_t>(drafted); there < text_.size())
        operations.push_back(WriteText{origin_ + drafted, text_.substr(there)});
    if (!text_.empty() && !ground_.isPlain)
        operations.push_back(ClearFont{{origin_, origin_ + static_cast<Position>(text_.size())}});
    format(operations);
    findLinkEnds();
    lengthen(operations);
}

void Flow::format(std::deque<Operation>& operations)
{
    putStyles(operations);
    putAlignments(operations);
    putFonts(operations);
}

void Flow::putStyles(std::deque<Operation>& operations)
{
    std::vector<Stretch<std::u16string>> stretches;
    for (const Line& line : lines_)
        if (isFormatted(line))
            extend(stretches, {line.start, line.past()}, line.paragraph->style);
    for (const auto& [span, style] : stretches)
        if (style != ground_.style)
            operations.push_back(PutStyle{span, style});
}

/// Whether the paragraphs behind the first one are freed of the alignment that they take over, all at once:
/// where the last one would keep it, or less is to be put then.
bool Flow::freesOfAlignment()
{
    constexpr std::size_t fewestLines = 4;
    if (within_ != Within::story || source_.keepsGround || lines_.size() < fewestLines ||
        (!ground_.alignment && ground_.isAlignmentKnown))
        return false;
    const Line& last = lines_.back();
    if (!last.isLast || !isFormatted(last))
        return true;
    return alignmentsBeside(true).size() < alignmentsBeside(false).size();
}

/// What is to be put, be they freed or not.
std::vector<PutAlignment> Flow::alignmentsBeside(bool frees)
{
    std::vector<Stretch<std::optional<int>>> stretches;
    for (const Line& line : lines_) {
        if (!isFormatted(line))
            continue;
        const std::optional<int> wanted = directAlignment(*line.paragraph, styles_);
        const bool isFreed = frees && &line != &lines_.front();
        const bool changesStyle = line.paragraph->style != ground_.style;
        const bool isKnown = ground_.isAlignmentKnown && !(changesStyle && ground_.alignment);
        const bool isRight = isFreed ? !wanted : isKnown && wanted == ground_.alignment;
        if (!isRight)
            extend(stretches, {line.start, line.past()}, wanted);
    }
    std::vector<PutAlignment> alignments;
    for (const auto& [span, alignment] : stretches)
        alignments.push_back({span, alignment});
    return alignments;
}

void Flow::putAlignments(std::deque<Operation>& operations)
{
    const bool frees = freesOfAlignment();
    if (frees) {
        const Position past = origin_ + static_cast<Position>(text_.size()) + 1;
        operations.push_back(PutAlignment{{lines_[1].start, past}, {}});
    }
    for (const PutAlignment& alignment : alignmentsBeside(frees))
        operations.emplace_back(alignment);
}

// A run may go on over paragraph ends, as long as they are in the same style, and over page breaks.
void Flow::putFonts(std::deque<Operation>& operations)
{
    std::vector<Stretch<FontChange>> runs;
    const Paragraph* before = nullptr;
    bool goesOn = false;
    for (const Line& line : lines_) {
        const Paragraph& paragraph = *line.paragraph;
        const bool isEndTakenOver = line.start == line.end && line.isFilledLater;
        goesOn = goesOn && before->style == paragraph.style && !isEndTakenOver;
        before = &paragraph;
        Position at = line.start;
        for (std::size_t i = 0; i < paragraph.items.size(); ++i) {
            const Position start = at;
            at += lengthOf(line, i);
            if (at == start || as<PageBreak>(paragraph.items[i]))
                continue;
            const FontChange change = changeOfItem(paragraph.items[i], paragraph);
            if (goesOn && runs.back().value == change)
                runs.back().span.end = at;
            else if (!change.isEmpty())
                runs.push_back({{start, at}, change});
            goesOn = !change.isEmpty();
        }
    }
    for (const auto& [span, change] : runs)
        operations.push_back(PutFont{span, change});
}

/// Of an item as text.
Position Flow::lengthOf(const Line& line, std::size_t item)
{
    const Item& what = line.paragraph->items[item];
    if (const Text* const text = as<Text>(what))
        return static_cast<Position>(text->characters.size());
    if (as<PageBreak>(what))
        return 1;
    if (const Picture* const picture = as<Picture>(what))
        return picture->isThere ? 1 : 0;
    return !line.placeholders.empty() && line.placeholders[item] ? 1 : 0;
}

void Flow::findLinkEnds()
{
    for (const Line& line : lines_) {
        Position at = line.start + line.shift;
        for (std::size_t i = 0; i < line.paragraph->items.size(); ++i) {
            at += lengthOf(line, i);
            if (const LinkNumber link = line.paragraph->items[i].link; link != noLink)
                linkEnds_[link] = at;
        }
        if (const LinkNumber link = line.paragraph->endLink; link != noLink)
            linkEnds_[link] = at + 1;
    }
}

void Flow::lengthen(std::deque<Operation>& operations)
{
    std::size_t line = lines_.size();
    for (auto made = tables_.rbegin(); made != tables_.rend(); ++made) {
        while (line > made->pastLine) {
            --line;
            lengthenLine(line, operations, line == made->pastLine);
        }
        makeTable(*made, operations);
        line = made->firstLine;
    }
    while (line > 0)
        lengthenLine(--line, operations);
}

// A bookmark that is placed directly in front of a table may come to stand behind it; so the tags at its
// beginning come first.
void Flow::makeTable(const MadeTable& made, std::deque<Operation>& operations)
{
    const Table& table = *made.table;
    const Span span{lines_[made.firstLine].start, lines_[made.pastLine - 1].past()};
    const std::vector<Item>& first = lines_[made.firstLine].paragraph->items;
    if (!lines_[made.firstLine].paragraph->holdsWritten)
        for (auto item = first.begin(); item != first.end() && as<Tag>(*item); ++item)
            operations.push_back(PlaceTag{span.start, as<Tag>(*item)->bookmark});
    operations.push_back(MakeTable{span, table.rows.size(), table.columns(), table.heights,
                                   &made == &tables_.back(), source_.tableStyle});
    for (PlaceTag& tag : tagsBehindTable_) {
        tag.at += static_cast<Position>(table.rows.size());
        operations.push_back(std::move(tag));
    }
    tagsBehindTable_.clear();
    std::size_t line = made.pastLine;
    for (auto row = table.rows.rbegin(); row != table.rows.rend(); ++row) {
        for (auto cell = row->rbegin(); cell != row->rend(); ++cell) {
            --line;
            if (cell->size() > 1)
                fillCell(*cell, lines_[line], operations);
            lengthenLine(line, operations);
        }
    }
}

// The first paragraph's end moves to the last one.
void Flow::fillCell(const Cell& cell, const Line& firstLine, std::deque<Operation>& operations)
{
    const Paragraph& first = cell.front();
    const Position end = firstLine.end + firstLine.shift;
    const Ground ground{first.style, directAlignment(first, styles_), true, isPlainAtEnd(first, true)};
    Flow rest(source_, styles_, ground, Within::cell, end + 1);
    rest.linkBefore_ = first.endLink;
    for (std::size_t i = 1; i < cell.size(); ++i)
        rest.add(cell[i]);

    operations.push_back(WriteText{end, paragraphMark + rest.text_});
    if (!ground.isPlain)
        operations.push_back(ClearFont{{end, end + 1 + static_cast<Position>(rest.text_.size())}});
    rest.format(operations);
    rest.findLinkEnds();
    for (const auto& [link, past] : rest.linkEnds_)
        linkEnds_[link] = past;
    rest.lengthen(operations);
}

// Word leaves a bookmark in front of what is inserted at its place, so a tag behind a field, an entry or a
// picture waits until that is there; and one right behind a table, whose last row is yet to get its end.
void Flow::lengthenLine(std::size_t index, std::deque<Operation>& operations, bool isBehindTable)
{
    const Line& line = lines_[index];
    const Paragraph& paragraph = *line.paragraph;
    const std::vector<Item>& items = paragraph.items;
    Position at = line.end + line.shift;
    if (!line.isLast && paragraph.end == ParagraphEnd::section) {
        operations.push_back(BreakSection{at});
        if (paragraph.endsInEntry && std::ranges::none_of(items, isAnything))
            operations.push_back(ClearFont{{at, at + 1}});
    }
    const LinkNumber lastLink = items.empty() ? linkBefore(index) : items.back().link;
    if (paragraph.endLink != noLink && paragraph.endLink != lastLink)
        addLink(paragraph.endLink, at, operations);

    const bool beginsTable =
        std::ranges::any_of(tables_, [&](const MadeTable& made) { return made.firstLine == index; });
    const auto isPlacedInFront = [&](std::size_t item) {
        return beginsTable && !paragraph.holdsWritten &&
               std::all_of(items.begin(), items.begin() + static_cast<std::ptrdiff_t>(item),
                           [](const Item& each) { return as<Tag>(each) != nullptr; });
    };
    std::vector<const Tag*> waiting;
    const auto placeWaiting = [&](Position place, bool isBehindField) {
        for (const Tag* const tag : waiting)
            operations.push_back(PlaceTag{place, tag->bookmark, isBehindField});
        waiting.clear();
    };
    for (std::size_t i = items.size(); i > 0; --i) {
        const Item& item = items[i - 1];
        const Position length = lengthOf(line, i - 1);
        const Picture* const picture = as<Picture>(item);
        const bool isInserted = as<Field>(item) || as<Entry>(item) || (picture && picture->kept);
        if (!waiting.empty() && !isInserted && isAnything(item))
            placeWaiting(at, false);
        at -= length;
        if (const Tag* const tag = as<Tag>(item)) {
            if (!isPlacedInFront(i - 1))
                waiting.push_back(tag);
        } else if (const Field* const field = as<Field>(item)) {
            operations.push_back(AddField{at, field->number, length != 0});
            placeWaiting(at, true);
        } else if (const Entry* const entry = as<Entry>(item)) {
            operations.push_back(AddEntry{at, entry->text, entry->level});
            placeWaiting(at, true);
        } else if (picture && picture->kept) {
            operations.push_back(AddPicture{at + length, picture->kept});
            operations.push_back(RemoveText{{at, at + length}});
            placeWaiting(at + length, false);
        } else if (as<Contents>(item)) {
            operations.push_back(KeepContents{at});
        } else if (const PageBreak* const pageBreak = as<PageBreak>(item); pageBreak && pageBreak->isLast) {
            operations.push_back(KeepBreak{at});
        }
        const LinkNumber linkInFront = i == 1 ? linkBefore(index) : items[i - 2].link;
        if (item.link != noLink && item.link != linkInFront)
            addLink(item.link, at, operations);
    }
    if (!isBehindTable)
        return placeWaiting(at, false);
    for (const Tag* const tag : waiting)
        tagsBehindTable_.push_back({at, tag->bookmark});
}

LinkNumber Flow::linkBefore(std::size_t line) const
{
    return line == 0 ? linkBefore_ : lines_[line - 1].paragraph->endLink;
}

void Flow::addLink(LinkNumber link, Position start, std::deque<Operation>& operations)
{
    const LinkTarget& target = source_.links[static_cast<std::size_t>(link)];
    if (source_.leadsSomewhere(target))
        operations.push_back(AddLink{{start, linkEnds_.at(link)}, target});
}

bool Flow::isPlainAtEnd(const Paragraph& paragraph, bool isPlainBefore)
{
    for (auto item = paragraph.items.rbegin(); item != paragraph.items.rend(); ++item) {
        if (!isAnything(*item))
            continue;
        if (as<PageBreak>(*item) || as<Picture>(*item))
            return item->link == noLink;
        return as<Text>(*item) && item->link == noLink && changeOfItem(*item, paragraph).isEmpty();
    }
    return isPlainBefore;
}

Ground Flow::groundBehind()
{
    if (lines_.empty())
        return ground_;
    Ground behind = ground_;
    if (freesOfAlignment()) {
        behind.alignment.reset();
        behind.isAlignmentKnown = true;
    }
    const Line& last = lines_.back();
    if (!last.isLast) {
        behind.isPlain = ground_.isPlain || !source_.keepsGround;
        return behind;
    }
    // A link that covers the paragraph end in front ends in the last paragraph.
    const bool isPlainBefore = lines_.size() > 1 ? linkBefore(lines_.size() - 1) == noLink : ground_.isPlain;
    if (isFormatted(last))
        return {last.paragraph->style, directAlignment(*last.paragraph, styles_), true,
                isPlainAtEnd(*last.paragraph, isPlainBefore)};
    behind.isPlain = isPlainBefore;
    return behind;
}

} // namespace compose
