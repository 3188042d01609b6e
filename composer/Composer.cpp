#include "Composer.h"

#include "Division.h"
#include "FileLookup.h"
#include "Flow.h"
#include "Fragment.h"
#include "FragmentPen.h"
#include "OperationOrigin.h"
#include "WideText.h"

#include "TextConversion.h"
#include "WordConstants.h"
#include "general/QdxException.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <deque>
#include <ostream>
#include <utility>

namespace compose {

namespace {

constexpr std::u16string_view contentsTitle = u"Table of Contents";
constexpr short asLink = 2;
constexpr short asHyperLink = 4;

std::u16string heard(const wchar_t* text)
{
    return text ? portable(std::wstring_view(text)) : std::u16string();
}

/// Headings deeper than the ninth are the ninth.
std::u16string meantStyle(const std::u16string& name)
{
    constexpr std::u16string_view prefix = u"Heading ";
    if (!name.starts_with(prefix) || name.size() == prefix.size())
        return name;
    const std::u16string_view number = std::u16string_view(name).substr(prefix.size());
    const bool isNumber = number.find_first_not_of(u"0123456789") == number.npos;
    const bool isDeep = number.size() > 1 && number.front() != u'0';
    return isNumber && isDeep ? std::u16string(prefix) + u"9" : name;
}

/// Whether a table is in the blocks.
bool holdTables(std::span<const Block> blocks)
{
    return std::ranges::any_of(blocks,
                               [](const Block& block) { return std::holds_alternative<Table>(block); });
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

/// A part of the document with text of its own: what is said of it, and the pen that writes it.
struct Composer::Story
{
    Story(const Word::_DocumentPtr& document, const Word::RangePtr& range, StyleBook& styles,
          std::u16string_view style, Ground around)
        : content(style), ground(std::move(around)), pen(document, range),
          fragmentPen(document, range, styles)
    {
    }

    [[nodiscard]] TypedPen::Place place() const
    {
        if (!content.isTableOpen())
            return {};
        const StoryContent::CellPlace cell = content.currentCell();
        return Passage::Cell{cell.row, cell.column};
    }

    /// Something that was taken and is to be brought into Word.
    struct Step
    {
        Plan plan;
        std::optional<Fragment> fragment = {}; ///< that says the same
    };

    StoryContent content;
    Ground ground; ///< behind what was taken
    std::deque<Step> steps;
    TypedPen pen;
    FragmentPen fragmentPen;
};

Composer::Composer(Pen pen, const Trace& trace, std::wstring installDir, WriterEvents* events)
    : pen_(pen), installDir_(std::move(installDir)), trace_(trace), events_(events)
{
}

Composer::~Composer() = default;

void Composer::begin(const Word::_ApplicationPtr& /*application*/, const Word::_DocumentPtr& document)
{
    document_ = document;
    styles_.emplace(document);
    body_ = std::make_unique<Story>(document, document->Range(), *styles_, u"Normal", Ground());
    body_->pen.clear(); // what the template put into the new document
    current_ = body_.get();
}

std::wstring Composer::understood(const wchar_t* text) const
{
    return text ? text : L"";
}

StoryContent& Composer::content()
{
    return current_->content;
}

void Composer::ignored(Silence why, std::wstring_view concerned) noexcept
{
    if (events_)
        events_->ignored(why, concerned);
}

void Composer::heed(bool isTaken, Silence why) noexcept
{
    if (!isTaken)
        ignored(why);
}

// Text

void Composer::insertText(BSTR text)
{
    write(text);
}

void Composer::write(const wchar_t* text)
{
    content().insertText(heard(text));
    flushIfMuchWaits();
}

void Composer::insertEndl()
{
    content().insertEndl();
    flushIfMuchWaits();
}

void Composer::insertPageBreak()
{
    heed(content().insertPageBreak(), Silence::insideTable);
}

void Composer::insertField(short number)
{
    content().insertField(number);
}

// Formatting

// Headers and footers keep their own style.
void Composer::setStyle(const wchar_t* name)
{
    if (current_ != body_.get()) {
        ignored(Silence::ownStyle, name ? name : L"");
        return;
    }
    const std::u16string said = heard(name);
    if (content().isInForce(said))
        return;
    content().prepareStyle();
    const std::u16string style = meantStyle(said);
    if (!styles_->holds(style)) {
        QdxString message("ERR Unknown style: ");
        message.append(toNarrow(name));
        throw QdxException(message);
    }
    content().setStyle(said, style);
}

void Composer::setFontName(const wchar_t* name)
{
    content().setFontName(heard(name));
}

void Composer::setFontSize(short points)
{
    content().setFontSize(points);
}

void Composer::setFontAttribute(short attribute, bool isOn)
{
    content().setFontAttribute(attribute, isOn);
}

void Composer::setTextAlign(short number)
{
    content().setTextAlign(number);
}

// Tables

void Composer::startTable()
{
    heed(content().startTable(), Silence::tableOutOfOrder);
}

void Composer::addRow()
{
    heed(content().addRow(), Silence::tableOutOfOrder);
    flushIfMuchWaits();
}

void Composer::addCell()
{
    heed(content().addCell(), Silence::tableOutOfOrder);
}

void Composer::endTable()
{
    heed(content().endTable(), Silence::tableOutOfOrder);
}

void Composer::setTableRowHeight(long points)
{
    heed(content().setTableRowHeight(static_cast<int>(points)), Silence::tableOutOfOrder);
}

// Table of contents

void Composer::insertTOC(short level)
{
    if (content().isTableOpen()) {
        ignored(Silence::insideTable);
        return;
    }
    tocLevel_ = level;
    if (content().insertTOC(contentsTitle))
        current_->pen.dropContents();
}

void Composer::startTOCEntry()
{
    heed(content().startTOCEntry(), Silence::noContents);
}

void Composer::endTOCEntry()
{
    heed(content().endTOCEntry(), Silence::noContents);
}

// Headers and footers

void Composer::startHeader()
{
    startPart(Part::header);
}

void Composer::endHeader()
{
    endPart(Part::header);
}

void Composer::startFooter()
{
    startPart(Part::footer);
}

void Composer::endFooter()
{
    endPart(Part::footer);
}

// The part belongs to the document's last section, which begins behind the last page break.
void Composer::startPart(Part part)
{
    const StoryContent::LastBreak lastBreak = body_->content.breakSection();
    if (lastBreak != StoryContent::LastBreak::none)
        ++sections_;
    isSectionDue_ = isSectionDue_ || lastBreak == StoryContent::LastBreak::written;
    if (sections_ > sectionsInWord_) {
        flush(*body_);
        sectionsInWord_ = sections_;
    }

    const PartPlace place{sections_, part};
    const auto open = openParts_.find(part);
    if (open == openParts_.end() || open->second != sections_) {
        std::unique_ptr<Story> story = makePart(place);
        std::unique_ptr<Story>& kept = parts_[place];
        if (kept)
            for (const std::u16string& bookmark : tags_.forget(kept.get()))
                story->pen.removeTag(bookmark);
        kept = std::move(story);
        openParts_[part] = sections_;
    }
    current_ = parts_.at(place).get();
}

void Composer::endPart(Part part)
{
    openParts_.erase(part);
    current_ = body_.get();
}

std::unique_ptr<Composer::Story> Composer::makePart(PartPlace place)
{
    const bool isHeader = place.part == Part::header;
    const Word::SectionPtr section = document_->GetSections()->Item(place.section);
    const Word::HeadersFootersPtr all = isHeader ? section->GetHeaders() : section->GetFooters();
    const Word::HeaderFooterPtr primary = all->Item(Word::wdHeaderFooterPrimary);
    primary->PutLinkToPrevious(VARIANT_FALSE);
    auto story = std::make_unique<Story>(document_, primary->GetRange(), *styles_,
                                         isHeader ? u"Header" : u"Footer", Ground{.style = u""});
    story->pen.clear();
    return story;
}

// Files, links and tags

LinkTarget Composer::targetOf(const std::u16string& name)
{
    const std::wstring target = wide(name);
    if (isAddress(target) || isFileThere(target))
        return {.address = name};
    return {.bookmark = tags_.bookmarkOf(name)};
}

void Composer::insertLink(std::u16string_view text, const LinkTarget& target)
{
    content().insertText(text, &target);
    flushIfMuchWaits();
}

void Composer::insertXref(const wchar_t* text, const wchar_t* tagName)
{
    const std::u16string tag = heard(tagName);
    if (tag.empty())
        write(text);
    else if (text && *text)
        insertLink(heard(text), targetOf(tag));
}

void Composer::insertTag(const wchar_t* tagName)
{
    if (!tagName || !*tagName)
        return;
    const std::u16string& bookmark = tags_.bookmarkOf(heard(tagName));
    body_->content.removeTag(bookmark);
    for (const auto& [place, story] : parts_)
        story->content.removeTag(bookmark);
    content().insertTag(bookmark);
    tags_.place(bookmark, current_);
}

void Composer::insertFile(const wchar_t* fileName, short insertAsType)
{
    const std::wstring name = fileName ? fileName : L"";
    if (name.empty())
        return;
    if (isAddress(name)) {
        insertLink(portable(name), {.address = portable(name)});
        return;
    }
    const std::optional<std::wstring> file = findFile(name, installDir_);
    if (!file && insertAsType != asHyperLink) {
        reportMissing(fileName);
        return;
    }
    const std::wstring path = file.value_or(name);
    const std::wstring_view extension = extensionOf(path);
    if (file && extension == L".ppt")
        insertObject(path, u"PowerPoint.Show", u"PowerPnt.exe", insertAsType == asLink);
    else if (file && extension == L".xls")
        insertObject(path, u"Excel.Sheet", u"excel.exe", insertAsType == asLink);
    else if (insertAsType == asLink || insertAsType == asHyperLink)
        insertLink(portable(withoutFolder(path)), {.address = portable(path)});
    else if (isPicture(path))
        insertPicture(path, nullptr);
    else
        insertContentsOf(path);
}

void Composer::insertImage(const wchar_t* imageFileName, const wchar_t* fileOrUrl)
{
    const std::u16string target = heard(fileOrUrl);
    LinkTarget link;
    if (!target.empty())
        link = targetOf(target);
    const std::optional<std::wstring> file = findFile(imageFileName ? imageFileName : L"", installDir_);
    if (file)
        insertPicture(*file, target.empty() ? nullptr : &link);
    else if (imageFileName && *imageFileName)
        reportMissing(imageFileName);
}

void Composer::reportMissing(const wchar_t* fileName)
{
    if (trace_.isTrace(1))
        trace_ << "ERR File not found: " << toNarrow(fileName) << std::endl;
    ignored(Silence::missingFile, fileName);
}

void Composer::insertPicture(const std::wstring& file, const LinkTarget* link)
{
    Story& story = *current_;
    story.content.settleParagraph();
    flush(story);
    story.pen.addPicture(story.place(), portable(fullPathOf(file)));
    story.content.objectWritten();
    if (!link)
        return;
    story.ground.isPlain = false;
    if (leadsSomewhere(*link))
        story.pen.linkPicture(*link);
}

void Composer::insertObject(const std::wstring& file, const char16_t* classType, const char16_t* iconProgram,
                            bool isLinked)
{
    Story& story = *current_;
    story.content.settleParagraph();
    flush(story);
    story.pen.addObject(story.place(), {.file = portable(fullPathOf(file)),
                                        .classType = classType,
                                        .iconProgram = iconProgram,
                                        .label = portable(withoutFolder(file)),
                                        .isLinked = isLinked});
    story.content.objectWritten();
    story.ground.isPlain = false;
}

void Composer::insertContentsOf(const std::wstring& file)
{
    Story& story = *current_;
    story.content.prepareFile();
    flush(story);
    const Ground ground = story.content.isTableOpen() ? Ground{.style = u""} : story.ground;
    const bool endsInTable = story.pen.addFile(story.place(), portable(fullPathOf(file)), ground);
    story.content.fileWritten(endsInTable);
}

// Bringing it into Word

void Composer::flushIfMuchWaits()
{
    const StoryContent& waits = content();
    if (waits.waiting() > (waits.isTableOpen() ? mostWaitingInTable : mostWaiting))
        flush(*current_);
}

void Composer::flush(Story& story)
{
    using std::chrono::steady_clock;
    flush_ = {};
    const steady_clock::time_point start = steady_clock::now();
    bringIn(story);
    flush_.time = std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now() - start);
    if (events_ && flush_.operations + flush_.fragments > 0)
        events_->flushed(flush_);
}

void Composer::bringIn(Story& story)
{
    carryOut(story);
    if (isSectionDue_ && &story == body_.get()) {
        story.pen.breakSection();
        isSectionDue_ = false;
    }
    if (!story.content.isPending())
        return;
    divideIntoSteps(story);
    carryOut(story);
}

// What a fragment saves must be more than it costs itself.
void Composer::divideIntoSteps(Story& story)
{
    constexpr std::size_t fewestOperations = 6;
    const std::span<const Block> all = story.content.blocks();
    const std::vector<LinkTarget>& links = story.content.links();
    const auto leads = [this](const LinkTarget& target) { return leadsSomewhere(target); };
    std::vector<Stretch> stretches = {{0, all.size(), false}};
    if (pen_ == Pen::fragments && readsFragments_)
        stretches = divide(all, links, story.content.isTableOpen());

    std::deque<Story::Step> steps;
    Ground ground = story.ground;
    std::set<std::u16string> written = writtenTags_;
    for (const Stretch& stretch : stretches) {
        const std::span<const Block> blocks = all.subspan(stretch.first, stretch.past - stretch.first);
        const bool isLast = stretch.past == all.size();
        Story::Step step{planOf({blocks, links, ground, leads, isLast, stretch.isFragment}, *styles_)};
        std::size_t operations = 0;
        for (const Passage& passage : step.plan.passages)
            operations += passage.operations.size();
        if (stretch.isFragment && operations >= fewestOperations)
            step.fragment = makeFragment(story, blocks, ground, written);
        forEachTag(blocks, [&](const std::u16string& bookmark) { written.insert(bookmark); });
        ground = step.plan.after;
        steps.push_back(std::move(step));
    }
    story.content.taken();
    story.steps = std::move(steps);
    story.ground = std::move(ground);
    writtenTags_ = std::move(written);
}

Fragment Composer::makeFragment(Story& story, std::span<const Block> blocks, const Ground& ground,
                                const std::set<std::u16string>& written)
{
    const auto isLinked = [this](const std::u16string& bookmark) {
        return leadsSomewhere({.bookmark = bookmark});
    };
    const float width = holdTables(blocks) ? story.fragmentPen.tableWidth(sectionsInWord_) : 0;
    Fragment fragment;
    fragment.text = fragmentOf(blocks, {*styles_, story.content.links(), isLinked, width});
    fragment.ground = ground;
    const auto* const last = std::get_if<Paragraph>(&blocks.back());
    fragment.endsInTable = last == nullptr;
    if (last) {
        fragment.lastStyle = last->style;
        fragment.lastAlignment = directAlignment(*last, *styles_);
    }
    forEachTag(blocks, [&](const std::u16string& bookmark) {
        if (written.contains(bookmark))
            fragment.movedTags.push_back(bookmark);
    });
    return fragment;
}

void Composer::carryOut(Story& story)
{
    while (!story.steps.empty()) {
        Story::Step& step = story.steps.front();
        try {
            if (!addFragment(story)) {
                for (const Passage& passage : step.plan.passages)
                    flush_.operations += passage.operations.size();
                story.pen.carryOut(step.plan);
            }
        } catch (...) {
            tellOfFailure(story, step.plan);
            throw;
        }
        story.steps.pop_front();
    }
}

/// False when the next step is to go call by call.
bool Composer::addFragment(Story& story)
{
    const Story::Step& step = story.steps.front();
    if (!step.fragment || !readsFragments_)
        return false;
    if (story.fragmentPen.add(*step.fragment)) {
        ++flush_.fragments;
        return true;
    }
    readsFragments_ = false;
    if (events_)
        events_->fragmentRefused(step.fragment->text.size());
    return false;
}

// A link to a tag that may still come is made, and taken away again should the tag never come.
bool Composer::leadsSomewhere(const LinkTarget& target)
{
    if (target.bookmark.empty())
        return true;
    if (isFinishing_) {
        const bool isPlaced = tags_.isPlaced(target.bookmark);
        if (!isPlaced)
            deadTags_.insert(target.bookmark);
        return isPlaced;
    }
    linkedBookmarks_.insert(target.bookmark);
    return true;
}

void Composer::flushAll()
{
    flush(*body_);
    for (const auto& [place, story] : parts_)
        flush(*story);
}

void Composer::prepareSave()
{
    flushAll();
}

_variant_t Composer::saveFormat(std::wstring_view fileName) const
{
    struct Format
    {
        std::wstring_view extension;
        Word::WdSaveFormat number;
    };
    static constexpr std::array<Format, 4> formats = {{
        {L".doc", Word::wdFormatDocument},
        {L".docx", Word::wdFormatXMLDocument},
        {L".rtf", Word::wdFormatRTF},
        {L".pdf", Word::wdFormatPDF},
    }};
    const std::wstring_view extension = extensionOf(fileName);
    for (const Format& format : formats)
        if (extension.size() == format.extension.size() &&
            _wcsnicmp(extension.data(), format.extension.data(), extension.size()) == 0)
            return Word::integer(format.number);
    return Word::missing;
}

void Composer::finish()
{
    if (isGivenUp_)
        return;
    isFinishing_ = true;
    try {
        complete();
    } catch (...) {
        isFinishing_ = false;
        giveUpIfStuck();
        throw;
    }
    isFinishing_ = false;
    failuresInVain_ = 0;
}

bool Composer::isFinished() const
{
    return isGivenUp_ || leftToDo() == 0;
}

// The table of contents comes last, when nothing moves any more.
void Composer::complete()
{
    flushAll();
    removeDeadLinks();
    if (body_->pen.hasContents())
        body_->pen.makeContents(tocLevel_);
    for (const auto& [place, story] : parts_)
        if (story->pen.hasContents())
            story->pen.makeContents(tocLevel_);
    document_->UndoClear();
    tellOfDeadLinks();
}

// A document that is gone, or a Word that is, must not keep the client for ever.
void Composer::giveUpIfStuck()
{
    constexpr int mostFailures = 3;
    const std::size_t left = leftToDo();
    failuresInVain_ = left < leftAtFailure_ ? 1 : failuresInVain_ + 1;
    leftAtFailure_ = left;
    isGivenUp_ = failuresInVain_ >= mostFailures;
}

std::size_t Composer::leftToDo() const
{
    std::size_t left = linkedBookmarks_.empty() ? 0 : 1;
    const auto count = [&left](const Story& story) {
        left += story.content.isPending() ? 1 : 0;
        left += story.pen.hasContents() ? 1 : 0;
        for (const Story::Step& step : story.steps)
            for (const Passage& passage : step.plan.passages)
                left += 1 + passage.operations.size();
    };
    count(*body_);
    for (const auto& [place, story] : parts_)
        count(*story);
    return left;
}

void Composer::removeDeadLinks()
{
    std::erase_if(linkedBookmarks_, [this](const auto& bookmark) { return tags_.isPlaced(bookmark); });
    if (linkedBookmarks_.empty())
        return;
    body_->pen.removeLinks(linkedBookmarks_);
    for (const auto& [place, story] : parts_)
        story->pen.removeLinks(linkedBookmarks_);
    deadTags_.merge(linkedBookmarks_);
    linkedBookmarks_.clear();
}

void Composer::tellOfDeadLinks() noexcept
try {
    for (const std::u16string& bookmark : std::exchange(deadTags_, {}))
        ignored(Silence::missingTag, wide(tags_.tagOf(bookmark)));
} catch (...) { // NOLINT(bugprone-empty-catch): without memory nobody is told
}

// What fails about a fragment is told at its beginning.
void Composer::tellOfFailure(const Story& story, const Plan& plan) noexcept
try {
    if (!events_)
        return;
    std::optional<Operation> failed = story.pen.lastFailed();
    if (!failed && !plan.passages.empty() && !plan.passages.front().operations.empty())
        failed = plan.passages.front().operations.front();
    const auto tagOf = [this](const std::u16string& bookmark) { return tags_.tagOf(bookmark); };
    if (failed)
        events_->flushFailed(originOf(*failed, tagOf));
} catch (...) { // NOLINT(bugprone-empty-catch): out of memory; the failure itself is being raised
}

} // namespace compose
