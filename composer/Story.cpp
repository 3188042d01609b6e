#include "Story.h"

#include "ClientNumbers.h"
#include "DirectAlignment.h"
#include "Flow.h"
#include "FragmentFitness.h"
#include "OperationOrigin.h"

#include <algorithm>
#include <chrono>
#include <utility>
#include <variant>
#include <vector>

namespace compose {

namespace {

std::size_t countTables(std::span<const Block> blocks)
{
    const auto isTable = [](const Block& block) { return std::holds_alternative<Table>(block); };
    return static_cast<std::size_t>(std::ranges::count_if(blocks, isTable));
}

/// What a fragment's last paragraph end is to become.
std::deque<Operation> behindFragment(const Block& last)
{
    constexpr Position at = -1;
    const auto* const paragraph = std::get_if<Paragraph>(&last);
    if (!paragraph || !endsFragment(last))
        return {};
    std::deque<Operation> operations;
    if (paragraph->end == ParagraphEnd::section) {
        operations.push_back(BreakSection{at});
        if (paragraph->endsInAnyEntry())
            operations.push_back(ClearFont{{at, at + 1}});
    }
    const auto isContents = [](const Item& item) { return std::holds_alternative<Contents>(item.what); };
    if (std::ranges::any_of(paragraph->items, isContents))
        operations.push_back(KeepContents{at});
    return operations;
}

/// It must save more than it costs itself.
bool isWorthAFragment(std::span<const Block> blocks, const Plan& plan)
{
    constexpr std::size_t fewestOperations = 6;
    return plan.operationCount() >= fewestOperations || largestPicture(blocks).width > 0;
}

std::span<const Block> heldBy(const Stretch& stretch, std::span<const Block> blocks)
{
    return blocks.subspan(stretch.first, stretch.past - stretch.first);
}

template <class Visit>
void forEachTag(std::span<const Block> blocks, const Visit& visit)
{
    const auto visitIn = [&](const Paragraph& paragraph) {
        for (const Item& item : paragraph.items)
            if (const auto* const tag = std::get_if<Tag>(&item.what))
                visit(tag->bookmark);
    };
    for (const Block& block : blocks) {
        if (const auto* const paragraph = std::get_if<Paragraph>(&block)) {
            visitIn(*paragraph);
            continue;
        }
        for (const Row& row : std::get<Table>(block).rows)
            for (const Cell& cell : row)
                std::ranges::for_each(cell, visitIn);
    }
}

} // namespace

Story::Story(WrittenDocument& document, Kind kind, const Word::RangePtr& range, std::u16string_view style,
             Ground ground)
    : document_(document), content_(style), ground_(std::move(ground)),
      ranges_(document.document, range, kind == Kind::body), end_(range),
      pen_(document.document, ranges_, range, end_, document.collections),
      fragmentPen_(ranges_, range, end_, document.collections, document.reading), style_(style)
{
}

void Story::empty(bool isCollapsed)
{
    if (!document_.readsFragments)
        return pen_.clear();
    if (pen_.empty() && isCollapsed)
        fragmentPen_.rangeIsAt(0);
    ground_.isAlignmentKnown = false;
    ground_.isPlain = false;
}

void Story::endSectionAtBreak()
{
    isSectionDue_ = true;
    isSectionBehindEntry_ = content_.isBreakBehindEntry();
}

TypedPen::Place Story::place() const
{
    if (!content_.isTableOpen())
        return {};
    const StoryContent::CellPlace cell = content_.currentCell();
    return Passage::Cell{cell.row, cell.column};
}

void Story::finishSteps()
{
    end_.forget();
    carryOut();
    if (!isSectionDue_)
        return;
    pen_.breakSection(isSectionBehindEntry_);
    isSectionDue_ = false;
}

void Story::flush()
{
    tellOfFlush([this] {
        finishSteps();
        if (!content_.isPending())
            return;
        const std::span<const Block> blocks = content_.blocks();
        takeSteps(blocks, blocks.size() - (content_.isTableOpen() ? 2 : 1), [this] { content_.taken(); });
        carryOut();
    });
}

void Story::flushInFrontOfTable()
{
    tellOfFlush([this] {
        finishSteps();
        const std::span<const Block> blocks = content_.blocksInFrontOfTable();
        if (blocks.empty())
            return;
        takeSteps(blocks, blocks.size(), [this] { content_.takenInFrontOfTable(); });
        carryOut();
    });
}

template <class Work>
void Story::tellOfFlush(const Work& work)
{
    using std::chrono::steady_clock;
    flushed_ = {};
    const steady_clock::time_point start = steady_clock::now();
    work();
    fragmentPen_.forgetRange();
    flushed_.time = std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now() - start);
    if (document_.events && flushed_.operations + flushed_.fragments > 0)
        document_.events->flushed(flushed_);
}

Source Story::sourceOf(std::span<const Block> blocks, const Ground& ground) const
{
    Source source{blocks, content_.links(), ground, document_.leadsSomewhere};
    source.tableStyle = document_.tableStyle;
    return source;
}

template <class Taken>
void Story::takeSteps(std::span<const Block> blocks, std::size_t closed, const Taken& taken)
{
    std::vector<Stretch> stretches = {{0, blocks.size(), false}};
    if (document_.readsFragments)
        stretches = divide(blocks, content_.links(), closed, roomFor(largestPicture(blocks), blocks));

    std::deque<Step> steps;
    Ground after = ground_;
    std::set<std::u16string> tags = document_.tags;
    for (Part& part : planParts(blocks, closed, stretches)) {
        const std::span<const Block> held = heldBy(part.stretch, blocks);
        after = part.plan.after;
        Step step{std::move(part.plan)};
        if (part.stretch.isFragment)
            step.fragment = makeFragment(held, part.endsOpen, part.ground, tags);
        forEachTag(held, [&](const std::u16string& bookmark) { tags.insert(bookmark); });
        steps.push_back(std::move(step));
    }
    taken();
    draft_.reset();
    steps_ = std::move(steps);
    ground_ = std::move(after);
    document_.tags = std::move(tags);
}

/// Those that no fragment carries, or that are not worth one, are written together with their neighbours.
std::vector<Story::Part> Story::planParts(std::span<const Block> blocks, std::size_t closed,
                                          std::span<const Stretch> stretches) const
{
    std::vector<Part> parts;
    bool isJoined = false;
    Ground ground = ground_;
    for (const Stretch& stretch : stretches) {
        Part part = planPart(blocks, closed, stretch, ground);
        ground = part.plan.after;
        part.stretch.isFragment = stretch.isFragment &&
                                  isWorthAFragment(heldBy(stretch, blocks), part.plan) &&
                                  fitsFragment(paragraphOf(part.ground), {});
        if (part.stretch.isFragment || parts.empty() || parts.back().stretch.isFragment) {
            parts.push_back(std::move(part));
            continue;
        }
        parts.back().stretch.past = stretch.past;
        isJoined = true;
    }
    if (!isJoined)
        return parts;
    ground = ground_;
    for (Part& part : parts) {
        part = planPart(blocks, closed, part.stretch, ground);
        ground = part.plan.after;
    }
    return parts;
}

Story::Part Story::planPart(std::span<const Block> blocks, std::size_t closed, const Stretch& stretch,
                            const Ground& ground) const
{
    Source source = sourceOf(heldBy(stretch, blocks), ground);
    source.endsOpen = stretch.past == blocks.size() && closed < blocks.size();
    source.keepsGround = stretch.isFragment && !source.endsOpen;
    if (stretch.first == 0 && draft_)
        source.drafted = draft_->length;
    return {stretch, ground, source.endsOpen, planOf(source, document_.styles)};
}

/// Like the one behind which text is written.
Paragraph Story::paragraphOf(const Ground& ground) const
{
    Paragraph paragraph;
    paragraph.style = ground.style.empty() ? style_ : ground.style;
    if (ground.alignment)
        paragraph.alignment = clientNumbers::ofAlignment(*ground.alignment);
    return paragraph;
}

// A section that begins behind another one has that one's pages, and what an inserted file brings leaves the
// last section as it is.
PageArea& Story::page()
{
    if (!document_.page)
        document_.page.emplace(document_.document, document_.collections, document_.sections);
    return *document_.page;
}

// What every page holds needs no question.
Extent Story::roomFor(const Extent& picture, std::span<const Block> blocks)
{
    Extent room{144, 216};
    if (picture.width == 0)
        return room;
    if (picture.width > room.width || countTables(blocks) > 0)
        room.width = page().width();
    if (picture.height > room.height)
        room.height = page().height();
    return room;
}

Fragment Story::makeFragment(std::span<const Block> blocks, bool endsOpen, const Ground& ground,
                             const std::set<std::u16string>& tags)
{
    const auto isLinked = [this](const std::u16string& bookmark) {
        return document_.leadsSomewhere({.bookmark = bookmark});
    };
    const float tableWidth = countTables(blocks) > 0 ? tableWidthOn(page().width()) : 0;
    const Paragraph behind = paragraphOf(ground);
    Fragment fragment;
    fragment.text = fragmentOf(blocks, {document_.styles, content_.links(), isLinked, tableWidth,
                                        endsOpen ? nullptr : &behind, endsOpen});
    std::deque<Operation> tagsBehind;
    if (endsOpen) {
        const auto& last = std::get<Paragraph>(blocks.back());
        fragment.open = Fragment::Look{last.style, directAlignment(last, document_.styles)};
        for (const Item& item : tagsAtEnd(last))
            tagsBehind.push_back(PlaceTag{0, std::get<Tag>(item.what).bookmark});
    }
    if (const auto* const first = std::get_if<Paragraph>(&blocks.front()))
        fragment.tagsInFront = first->tagsAtEnd;
    fragment.beginsWithBreak = beginsWithLastBreak(blocks.front());
    fragment.ground = ground;
    fragment.rest = endsOpen ? std::move(tagsBehind) : behindFragment(blocks.back());
    if (const std::size_t tables = countTables(blocks); tables > 0 && !document_.tableStyle.empty())
        fragment.rest.push_front(StyleTables{.tables = tables, .style = document_.tableStyle});
    forEachTag(blocks, [&](const std::u16string& bookmark) {
        if (tags.contains(bookmark))
            fragment.movedTags.push_back(bookmark);
    });
    return fragment;
}

void Story::carryOut()
{
    while (!steps_.empty()) {
        Step& step = steps_.front();
        try {
            carryOut(step);
        } catch (...) {
            tellOfFailure(step.plan);
            throw;
        }
        steps_.pop_front();
    }
}

void Story::carryOut(Step& step)
{
    if (step.fragment && document_.readsFragments) {
        if (fragmentPen_.add(*step.fragment)) {
            if (step.fragment->beginsWithBreak)
                pen_.keepBreak(fragmentPen_.takeBreak());
            ++flushed_.fragments;
            step.plan.passages.clear();
            for (Operation& operation : step.fragment->rest)
                if (auto* const tables = std::get_if<StyleTables>(&operation))
                    tables->start = fragmentPen_.start();
            if (!step.fragment->rest.empty())
                step.plan.passages.push_back({{}, std::move(step.fragment->rest)});
        } else {
            document_.readsFragments = false;
            if (document_.events)
                document_.events->fragmentRefused(step.fragment->text.size());
        }
        step.fragment.reset();
    }
    if (step.plan.passages.empty())
        return;
    fragmentPen_.forgetRange();
    flushed_.operations += step.plan.operationCount();
    pen_.carryOut(step.plan);
}

void Story::tellOfFailure(const Plan& plan) noexcept
{
    if (pen_.lastFailed())
        tellOfFailure(*pen_.lastFailed());
    else if (!plan.passages.empty() && !plan.passages.front().operations.empty())
        tellOfFailure(plan.passages.front().operations.front());
}

void Story::tellOfFailure(const Operation& operation) noexcept
try {
    if (document_.events)
        document_.events->flushFailed(originOf(operation, document_.tagOf));
} catch (...) { // NOLINT(bugprone-empty-catch): out of memory; the failure itself is being raised
}

void Story::makeContents(int level)
{
    if (!pen_.hasContents())
        return;
    try {
        pen_.makeContents(level);
    } catch (...) {
        tellOfFailure(KeepContents{});
        throw;
    }
}

void Story::addPicture(const std::u16string& file, const LinkTarget* link)
{
    if (const KeptPicturePtr kept = keep(file))
        return content_.addKeptPicture(kept, link);
    if (content_.takesPictureIntoTable())
        return addPictureToDraft(file, link);
    content_.settleParagraph();
    flush();
    pen_.addPicture(place(), file, content_.isBehindEntry());
    content_.objectWritten();
    if (!link)
        return;
    ground_.isPlain = false;
    if (document_.leadsSomewhere(*link))
        pen_.linkPicture(*link);
}

// Not behind what is in Word already: there no fragment carries it.
KeptPicturePtr Story::keep(const std::u16string& file) const
{
    constexpr std::size_t largest = 1U << 18U; // of what may wait
    if (!document_.readsFragments || draft_ || !content_.takesKeptPicture())
        return nullptr;
    return keepPicture(file, largest);
}

// The table need not be made for it, to be continued cell by cell.
void Story::addPictureToDraft(const std::u16string& file, const LinkTarget* link)
{
    flushInFrontOfTable();
    content_.addPicture();
    try {
        goOnWithDraft();
    } catch (...) {
        content_.dropPicture();
        throw;
    }
    pen_.addPictureToDraft(draft_->length, file);
    content_.pictureWritten(link);
    ++draft_->length;
    ++draft_->inCell;
}

void Story::goOnWithDraft()
{
    if (!draft_)
        draft_.emplace();
    const Source source = sourceOf(content_.blocks(), ground_);
    DraftStep next = goOnWith(*draft_, *place(), source, document_.styles);
    pen_.goOnWithDraft(draft_->length, next.text);
    *draft_ = next.draft;
}

void Story::addObject(const EmbeddedObject& object)
{
    content_.settleParagraph();
    flush();
    pen_.addObject(place(), object, content_.isBehindEntry());
    content_.objectWritten();
    ground_.isPlain = false;
}

void Story::addFile(const std::u16string& file)
{
    content_.prepareFile();
    flush();
    const Ground unknown{.style = u"", .isAlignmentKnown = false, .isPlain = false};
    const Ground ground = content_.isTableOpen() ? unknown : ground_;
    const bool endsInTable = pen_.addFile(place(), file, ground, content_.tagsAtEnd());
    content_.fileWritten(endsInTable);
}

std::size_t Story::leftToDo() const
{
    std::size_t left = (content_.isPending() ? 1 : 0) + (pen_.hasContents() ? 1 : 0);
    for (const Step& step : steps_)
        left += step.plan.passages.size() + step.plan.operationCount();
    return left;
}

} // namespace compose
