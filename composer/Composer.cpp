#include "Composer.h"

#include "FileLookup.h"
#include "WideText.h"

#include "TextConversion.h"
#include "WordConstants.h"
#include "general/QdxException.h"
#include "sysSupport/FileNames.h"
#include "sysSupport/SysFile.h"
#include "win32/FullPath.h"

#include <ostream>
#include <utility>

namespace compose {

namespace {

/// Word's own name for it.
constexpr std::u16string_view contentsTitleStyle = u"TOC Heading";
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

} // namespace

Composer::Composer(Pen pen, const Trace& trace, std::wstring installDir, WriterEvents* events, Look look)
    : pen_(pen), installDir_(std::move(installDir)), trace_(trace), events_(events), look_(std::move(look))
{
}

Composer::~Composer() = default;

void Composer::begin(const Word::_ApplicationPtr& /*application*/, const Word::_DocumentPtr& document)
{
    document_ = document;
    written_ = std::make_unique<WrittenDocument>(
        WrittenDocument{.document = document,
                        .styles = StyleBook(document),
                        .collections = Collections(document),
                        .readsFragments = pen_ == Pen::fragments,
                        .leadsSomewhere = [this](const LinkTarget& target) { return leadsSomewhere(target); },
                        .events = events_,
                        .tagOf = [this](const std::u16string& bookmark) { return tags_.tagOf(bookmark); }});
    const bool isCollapsed = written_->readsFragments;
    const Word::RangePtr range =
        isCollapsed ? document->Range(Word::integer(0), Word::integer(0)) : document->Range();
    body_ = std::make_unique<Story>(*written_, Story::Kind::body, range, u"Normal", Ground());
    body_->empty(isCollapsed); // of what the template put into the new document
    current_ = body_.get();
}

std::wstring Composer::understood(const wchar_t* text) const
{
    return text ? text : L"";
}

StoryContent& Composer::content()
{
    return current_->content();
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
    if (!written_->styles.holds(style)) {
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
    const bool isStarted = content().startTable();
    heed(isStarted, Silence::tableOutOfOrder);
    if (isStarted)
        findTableStyle();
}

// A failure ends a call whose table is there, without the style; the next table asks again.
void Composer::findTableStyle()
{
    if (look_.tableStyle.empty())
        return;
    const bool isThere = written_->styles.holdsTableStyle(look_.tableStyle);
    const std::u16string style = std::exchange(look_.tableStyle, {});
    if (isThere)
        written_->tableStyle = style;
    else
        ignored(Silence::unknownTableStyle, wide(style));
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
    const std::u16string_view style = titleStyle();
    tocLevel_ = level;
    if (content().insertTOC(look_.contentsTitle, style))
        current_->pen().dropContents();
}

/// That of the heading of the table of contents; empty: none.
std::u16string_view Composer::titleStyle()
{
    if (look_.contentsTitle.empty())
        return {};
    if (written_->styles.holds(std::u16string(contentsTitleStyle)))
        return contentsTitleStyle;
    ignored(Silence::noTitleStyle, wide(contentsTitleStyle));
    return {};
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
    const StoryContent::LastBreak lastBreak = body_->content().breakSection();
    if (lastBreak != StoryContent::LastBreak::none)
        ++sections_;
    if (lastBreak == StoryContent::LastBreak::written)
        body_->endSectionAtBreak();
    if (sections_ > written_->sections) {
        body_->flush();
        written_->sections = sections_;
    }

    const PartPlace place{sections_, part};
    const auto open = openParts_.find(part);
    if (open == openParts_.end() || open->second != sections_) {
        std::unique_ptr<Story> story = makePart(place);
        std::unique_ptr<Story>& kept = parts_[place];
        if (kept)
            for (const std::u16string& bookmark : tags_.forget(kept.get()))
                story->pen().removeTag(bookmark);
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

std::unique_ptr<Story> Composer::makePart(PartPlace place)
{
    const bool isHeader = place.part == Part::header;
    const Word::SectionPtr& section = written_->collections.section(place.section);
    const Word::HeadersFootersPtr all = isHeader ? section->GetHeaders() : section->GetFooters();
    const Word::HeaderFooterPtr primary = all->Item(Word::wdHeaderFooterPrimary);
    primary->PutLinkToPrevious(VARIANT_FALSE);
    auto story = std::make_unique<Story>(*written_, Story::Kind::part, primary->GetRange(),
                                         isHeader ? u"Header" : u"Footer", Ground{.style = u""});
    story->empty(false);
    return story;
}

// Files, links and tags

LinkTarget Composer::targetOf(const std::u16string& name)
{
    const std::wstring target = wide(name);
    if (fileNames::isAddress(target) || SysFile::exists(target.c_str()))
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
    body_->content().removeTag(bookmark);
    for (const auto& [place, story] : parts_)
        story->content().removeTag(bookmark);
    content().insertTag(bookmark);
    tags_.place(bookmark, current_);
}

void Composer::insertFile(const wchar_t* fileName, short insertAsType)
{
    const std::wstring name = fileName ? fileName : L"";
    if (name.empty())
        return;
    if (fileNames::isAddress(name)) {
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
        addPicture(path, nullptr);
    else
        current_->addFile(portable(fullPath(path)));
}

void Composer::insertImage(const wchar_t* imageFileName, const wchar_t* fileOrUrl)
{
    const std::u16string target = heard(fileOrUrl);
    LinkTarget link;
    if (!target.empty())
        link = targetOf(target);
    const std::optional<std::wstring> file = findFile(imageFileName ? imageFileName : L"", installDir_);
    if (file)
        addPicture(*file, target.empty() ? nullptr : &link);
    else if (imageFileName && *imageFileName)
        reportMissing(imageFileName);
}

void Composer::addPicture(const std::wstring& file, const LinkTarget* link)
{
    current_->addPicture(portable(fullPath(file)), link);
    flushIfMuchWaits();
}

void Composer::reportMissing(const wchar_t* fileName)
{
    if (trace_.isTrace(1))
        trace_ << "ERR File not found: " << toNarrow(fileName) << std::endl;
    ignored(Silence::missingFile, fileName);
}

void Composer::insertObject(const std::wstring& file, const char16_t* classType, const char16_t* iconProgram,
                            bool isLinked)
{
    current_->addObject({.file = portable(fullPath(file)),
                         .classType = classType,
                         .iconProgram = iconProgram,
                         .label = portable(withoutFolder(file)),
                         .isLinked = isLinked});
}

// Bringing it into Word

void Composer::flushIfMoreWaits(std::size_t most)
{
    const StoryContent& waits = content();
    if (waits.waiting() > (waits.isTableOpen() ? mostWaitingInTable : most))
        current_->flush();
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
    body_->flush();
    for (const auto& [place, story] : parts_)
        story->flush();
}

void Composer::pageChanged()
{
    written_->page.reset();
}

// A little is not worth being written in a piece of its own.
void Composer::prepareSave()
{
    flushIfMoreWaits(mostWaitingAtSave);
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
    body_->makeContents(tocLevel_);
    for (const auto& [place, story] : parts_)
        story->makeContents(tocLevel_);
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
    left += body_->leftToDo();
    for (const auto& [place, story] : parts_)
        left += story->leftToDo();
    return left;
}

void Composer::removeDeadLinks()
{
    std::erase_if(linkedBookmarks_, [this](const auto& bookmark) { return tags_.isPlaced(bookmark); });
    if (linkedBookmarks_.empty())
        return;
    body_->pen().removeLinks(linkedBookmarks_);
    for (const auto& [place, story] : parts_)
        story->pen().removeLinks(linkedBookmarks_);
    deadTags_.merge(linkedBookmarks_);
    linkedBookmarks_.clear();
}

void Composer::tellOfDeadLinks() noexcept
try {
    for (const std::u16string& bookmark : std::exchange(deadTags_, {}))
        ignored(Silence::missingTag, wide(tags_.tagOf(bookmark)));
} catch (...) { // NOLINT(bugprone-empty-catch): without memory nobody is told
}

} // namespace compose
