#include "CountingWriter.h"

#include "TextConversion.h"
#include "WordConstants.h"
#include "mirovelsection.h"
#include "sysSupport/SysFile.h"

#include <cwchar>
#include <memory>
#include <utility>

namespace {

bool isEmptyText(const wchar_t* text)
{
    return !text || *text == L'\0';
}

} // namespace

CountingWriter::~CountingWriter()
{
    delete headerSection_;
    delete footerSection_;
    delete mainSection_;
}

void CountingWriter::begin(const Word::_ApplicationPtr& application, const Word::_DocumentPtr& document)
{
    application_ = application;
    document_ = document;
    mainSection_ = new MirovelSection(application, document, document->Range());
    mainSection_->setEvents(events_);
    MirovelSection::clearCache();
    currentSection_ = mainSection_;
    // What the template put into the new document goes.
    currentSection_->deleteRange();
}

/// Completes a writer and deletes it. `section` forgets it first, since that may fail.
void CountingWriter::destroySection(MirovelSection*& section)
{
    const std::unique_ptr<MirovelSection> writer(std::exchange(section, nullptr));
    if (!writer)
        return;
    writer->finish();
    tellOfDeadLinks(*writer);
}

void CountingWriter::tellOfDeadLinks(const MirovelSection& section) const noexcept
try {
    if (!events_)
        return;
    for (const QdxString& bookmark : section.unresolvedLinks())
        events_->ignored(Silence::missingTag,
                         static_cast<const wchar_t*>(toWide(bookmarks_.tagOf(bookmark))));
} catch (...) { // NOLINT(bugprone-empty-catch): without memory nobody is told
}

void CountingWriter::finish()
{
    currentSection_ = nullptr;
    destroySection(headerSection_);
    destroySection(footerSection_);
    destroySection(mainSection_);
}

bool CountingWriter::isFinished() const
{
    return !headerSection_ && !footerSection_ && !mainSection_;
}

_variant_t CountingWriter::saveFormat(std::wstring_view /*fileName*/) const
{
    return Word::missing;
}

void CountingWriter::setTrace(const Trace& trace)
{
    if (mainSection_)
        mainSection_->setTrace(trace);
}

std::wstring CountingWriter::understood(const wchar_t* text) const
{
    return static_cast<const wchar_t*>(toWide(toNarrow(text)));
}

MirovelSection& CountingWriter::current() const
{
    if (!currentSection_)
        _com_issue_error(E_POINTER);
    return *currentSection_;
}

// What a client takes for a BSTR may be a mere text, and may go on behind a NUL: then it is copied.
void CountingWriter::insertText(BSTR text)
{
    if (text && SysStringLen(text) == std::wcslen(text))
        current().insertText(Word::BorrowedText(text));
    else
        current().insertText(text ? text : L"");
}

void CountingWriter::insertEndl()
{
    current().insertEndl();
}

void CountingWriter::insertPageBreak()
{
    current().insertPageBreak();
    document_->UndoClear();
}

void CountingWriter::insertField(short number)
{
    current().insertField(number);
}

// Headers and footers keep their own style.
void CountingWriter::setStyle(const wchar_t* name)
{
    if (currentSection_ == mainSection_)
        current().setStyle(toNarrow(name), false);
    else if (events_)
        events_->ignored(Silence::ownStyle, name);
}

void CountingWriter::setFontName(const wchar_t* name)
{
    FontData font;
    font.name = toNarrow(name);
    current().setFont(font);
}

void CountingWriter::setFontSize(short points)
{
    FontData font = current().getFont();
    font.size = points;
    current().setFont(font);
}

void CountingWriter::setFontAttribute(short attribute, bool isOn)
{
    FontData font = current().getFont();
    switch (attribute) {
    case 1:
        font.bold = isOn;
        break;
    case 2:
        font.italic = isOn;
        break;
    case 4:
        font.underline = isOn;
        break;
    case 8:
        font.strikeThrough = isOn;
        break;
    default:
        break;
    }
    current().setFont(font);
}

void CountingWriter::setTextAlign(short number)
{
    if (currentSection_)
        currentSection_->setTextAlign(number);
}

void CountingWriter::startTable()
{
    if (currentSection_)
        currentSection_->startTable();
}

void CountingWriter::addRow()
{
    if (currentSection_)
        currentSection_->addRow();
}

void CountingWriter::addCell()
{
    if (currentSection_)
        currentSection_->addCell();
}

void CountingWriter::endTable()
{
    if (currentSection_)
        currentSection_->endTable();
}

void CountingWriter::setTableRowHeight(long points)
{
    if (currentSection_)
        currentSection_->setTableRowHeight(points);
}

void CountingWriter::insertTOC(short level)
{
    if (currentSection_)
        currentSection_->insertTOC(level);
}

void CountingWriter::startTOCEntry()
{
    if (currentSection_)
        currentSection_->startTOCEntry();
}

void CountingWriter::endTOCEntry()
{
    if (currentSection_)
        currentSection_->endTOCEntry();
}

void CountingWriter::startHeader()
{
    startHeaderFooter(headerSection_, "Header", &Word::Section::GetHeaders);
}

void CountingWriter::endHeader()
{
    endHeaderFooter(headerSection_);
}

void CountingWriter::startFooter()
{
    startHeaderFooter(footerSection_, "Footer", &Word::Section::GetFooters);
}

void CountingWriter::endFooter()
{
    endHeaderFooter(footerSection_);
}

void CountingWriter::startHeaderFooter(MirovelSection*& slot, const char* style,
                                       HeadersFooters headersFooters)
{
    current().changeLastPageBreak();
    const long lastSection = current().getSectionCount();
    const Word::SectionPtr section = document_->GetSections()->Item(lastSection);
    const Word::HeaderFooterPtr primary =
        (section.GetInterfacePtr()->*headersFooters)()->Item(Word::wdHeaderFooterPrimary);
    primary->PutLinkToPrevious(VARIANT_FALSE);
    const Word::RangePtr range = primary->GetRange();
    range->Delete();

    // Only a writer that goes now ceases to be the current one, whatever fails from here on.
    if (currentSection_ == slot)
        currentSection_ = mainSection_;
    destroySection(slot);
    slot = new MirovelSection(application_, document_, range);
    slot->setTrace(trace_);
    slot->setEvents(events_);
    slot->setStyle(style, false);
    currentSection_ = slot;
}

// The body is current again before anything can fail.
void CountingWriter::endHeaderFooter(MirovelSection*& slot)
{
    currentSection_ = mainSection_;
    destroySection(slot);
}

// An address, a file, or else a tag; a new tag is entered.
LinkDestination CountingWriter::resolveLinkTarget(const wchar_t* text)
{
    const QdxString name = toNarrow(text);
    if (name.isEmpty())
        return {};
    if (SysFile::isHyperLink(name) || SysFile::exists(name))
        return toAddress(name);
    QdxString bookmark;
    bool placed = false;
    if (!bookmarks_.lookup(name, bookmark, placed))
        bookmark = bookmarks_.add(name);
    return toBookmark(bookmark, placed);
}

void CountingWriter::insertFile(const wchar_t* fileName, short insertAsType)
{
    if (currentSection_)
        currentSection_->insertFile(toNarrow(fileName), insertAsType);
}

void CountingWriter::insertImage(const wchar_t* imageFileName, const wchar_t* fileOrUrl)
{
    const LinkDestination destination = resolveLinkTarget(fileOrUrl);
    if (currentSection_)
        currentSection_->insertImage(toNarrow(imageFileName), destination, 0, 0);
}

void CountingWriter::insertXref(const wchar_t* text, const wchar_t* tagName)
{
    if (isEmptyText(text))
        return;
    if (isEmptyText(tagName)) {
        if (currentSection_)
            currentSection_->insertText(text);
        return;
    }
    const LinkDestination destination = resolveLinkTarget(tagName);
    if (currentSection_)
        currentSection_->insertHyperLink(toNarrow(text), destination);
}

void CountingWriter::insertTag(const wchar_t* tagName)
{
    if (isEmptyText(tagName))
        return;
    const QdxString tag = toNarrow(tagName);
    QdxString bookmark;
    bool defined = false;
    if (!bookmarks_.lookup(tag, bookmark, defined))
        bookmark = bookmarks_.add(tag);
    if (!currentSection_)
        return;
    currentSection_->insertTag(bookmark);
    currentSection_->resolve(bookmark);
    bookmarks_.markDefined(tag);
}
