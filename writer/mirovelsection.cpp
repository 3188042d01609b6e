#include "mirovelsection.h"

#include "MirovelSectionData.h"
#include "PositionCount.h"
#include "TextConversion.h"
#include "WordConstants.h"
#include "registry/SettingsRecord.h"

#include <string_view>
#include <utility>

namespace {

constexpr std::int32_t endlsPerUndoClear = 101;

/// What a text line loses beside the margins, in points.
constexpr float lineReserve = 2.0F;

} // namespace

MirovelSection::MirovelSection(const Word::_ApplicationPtr& application, const Word::_DocumentPtr& document,
                               const Word::RangePtr& range)
    : owned_(std::make_unique<MirovelSectionData>()), data_(owned_.get())
{
    data_->document = document;
    data_->application = application;
    setRange(range);
    passStyles(document->GetStyles());
    setStyle("Normal", false);
    data_->installDir = SettingsRecord::registeredInstallDir();

    const Word::PageSetupPtr page = document->GetPageSetup();
    const float pageWidth = page->GetPageWidth();
    const float rightMargin = page->GetRightMargin();
    const float leftMargin = page->GetLeftMargin();
    data_->textWidth = pageWidth - (rightMargin + leftMargin + lineReserve);
}

MirovelSection::MirovelSection(const MirovelSection& other) : QdxObject(other), data_(other.data_) {}

MirovelSection& MirovelSection::operator=(const MirovelSection& other)
{
    if (data_ == other.data_)
        return *this;
    MirovelSection previous(*this);
    previous.owned_ = std::move(owned_);
    data_ = other.data_;
    previous.finish();
    return *this;
}

MirovelSection::~MirovelSection() = default;

void MirovelSection::finish()
{
    if (!owned_)
        return;
    applyRuns();
    endLastTag();
    drawHyperLinks();
    drawTOC();
}

void MirovelSection::applyRuns()
{
    applyStyle();
    applyFont();
    applyAlign();
}

void MirovelSection::setTrace(const Trace& trace)
{
    data_->trace = trace;
}

void MirovelSection::setEvents(WriterEvents* events)
{
    data_->events = events;
}

void MirovelSection::ignored(Silence why, const QdxString& concerned) const noexcept
try {
    if (data_->events)
        data_->events->ignored(why, static_cast<const wchar_t*>(toWide(concerned)));
} catch (...) { // NOLINT(bugprone-empty-catch): without memory nobody is told
}

std::int32_t MirovelSection::getSectionCount() const
{
    return data_->sectionCount;
}

void MirovelSection::setRange(const Word::RangePtr& range)
{
    data_->range = range;
}

void MirovelSection::deleteRange()
{
    data_->range->Delete();
}

void MirovelSection::insertText(const wchar_t* text)
{
    loInsertText(text);
}

void MirovelSection::insertText(const _bstr_t& text)
{
    loInsertText(text);
}

void MirovelSection::loInsertText(const _bstr_t& text)
{
    if (isTableOpen()) {
        data_->cellRange->InsertAfter(text);
    } else {
        data_->range->InsertAfter(text);
        data_->pos += positionGrowth(std::wstring_view(text, text.length()));
    }
    if (data_->collectingTocEntry)
        data_->tocText.append(toNarrow(text));
}

void MirovelSection::insertPlaceholder()
{
    insertText(L"X");
}

void MirovelSection::insertEndl()
{
    if (isTableOpen()) {
        loInsertText(L"\n");
    } else {
        if (data_->styleName != "Normal" && data_->pos == data_->stylePos)
            ++data_->stylePos;
        loInsertText(L"\n");
        data_->lastEndlPos = data_->pos;
    }
    clearUndoAfterEndl();
}

void MirovelSection::clearUndoAfterEndl()
{
    if (++data_->endlCount < endlsPerUndoClear)
        return;
    data_->document->UndoClear();
    data_->endlCount = 0;
}

// A paragraph end is left out when the style began right behind a paragraph end, even if text was written
// since: clients have always had it so.
void MirovelSection::checkForEndl()
{
    const MirovelSectionData& d = *data_;
    if (d.pos != d.lastEndlPos && d.pos != d.stylePos && d.lastEndlPos != d.stylePos && !isTableOpen())
        insertEndl();
}

void MirovelSection::deleteLastChar()
{
    const Word::RangePtr& range = isTableOpen() ? data_->cellRange : data_->range;
    const std::int32_t last = isTableOpen() ? range->GetEnd() : --data_->pos;
    range->PutStart(last);
    range->Delete(Word::wdCharacter, 1L);
}

void MirovelSection::insertPageBreak()
{
    if (!isTableOpen()) {
        const Word::RangePtr& range = data_->range;
        range->PutStart(data_->pos);
        range->InsertBreak();
        data_->pos = range->GetEnd();
        data_->lastPageBreakPos = data_->pos;
    } else {
        ignored(Silence::insideTable);
    }
    reopenStyle();
}

void MirovelSection::changeLastPageBreak()
{
    if (data_->lastPageBreakPos == 0)
        return;
    const Word::RangePtr& range = data_->range;
    const std::int32_t breakPos = data_->lastPageBreakPos - 1;
    range->PutStart(breakPos);
    range->PutEnd(breakPos + 1);
    range->Delete(Word::wdCharacter, 1L);
    range->PutStart(breakPos);
    range->InsertBreak(Word::wdSectionBreakNextPage);
    ++data_->sectionCount;
    data_->lastPageBreakPos = 0;
    range->PutEnd(data_->pos);
    range->PutStart(data_->pos);
}
