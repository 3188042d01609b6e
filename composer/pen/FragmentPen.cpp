#include "FragmentPen.h"

#include "FragmentFile.h"
#include "StyleBook.h"
#include "WideText.h"

#include <string_view>
#include <utility>

namespace compose {

namespace {

constexpr int triesOfAFragment = 2;
constexpr wchar_t markText[] = L"\x00a7";
constexpr std::wstring_view paragraphEnd = L"\r";

std::wstring textOf(const Word::RangePtr& range)
{
    const _bstr_t text = range->GetText();
    return {static_cast<const wchar_t*>(text), text.length()};
}

void putAlignment(const Word::RangePtr& range, const std::optional<int>& alignment)
{
    const Word::_ParagraphFormatPtr format = range->GetParagraphFormat();
    if (alignment)
        format->PutAlignment(*alignment);
    else
        format->Reset();
}

} // namespace

bool FragmentPen::add(const Fragment& fragment)
{
    if (wasRead_)
        return *std::exchange(wasRead_, std::nullopt);
    try {
        const bool isRead = goOn(fragment);
        failures_ = 0;
        return isRead;
    } catch (const _com_error&) {
        if (++failures_ == triesOfAFragment)
            giveUp();
        throw;
    }
}

// What was read in by then stays.
void FragmentPen::giveUp()
{
    failures_ = 0;
    wasRead_ =
        stage_ == Stage::read || stage_ == Stage::joined || stage_ == Stage::parted || stage_ == Stage::ended;
    try {
        if (stage_ != Stage::begun)
            removeMark();
    } catch (const _com_error&) { // The failure before it is the one to tell of.
        stage_ = Stage::begun;
    }
}

bool FragmentPen::goOn(const Fragment& fragment)
{
    while (true) {
        switch (stage_) {
        case Stage::begun:
            mark();
            break;
        case Stage::marked:
            read(fragment);
            break;
        case Stage::read:
            lookAtTheEnd(fragment);
            break;
        case Stage::joined:
            part();
            break;
        case Stage::parted:
            restoreGround(fragment);
            break;
        case Stage::ended:
            if (!hasItsOwnFont(fragment)) {
                stage_ = Stage::misread;
                break;
            }
            removeMark();
            return true;
        case Stage::misread:
            range_->SetRange(start_, markPlace());
            range_->Delete();
            stage_ = Stage::refused;
            break;
        case Stage::refused:
            removeMark();
            return false;
        }
    }
}

void FragmentPen::mark()
{
    start_ = range_->GetStoryLength() - 1;
    range_->SetRange(start_, start_);
    range_->InsertAfter(markText);
    stage_ = Stage::marked;
}

long FragmentPen::markPlace()
{
    return range_->GetStoryLength() - 2;
}

void FragmentPen::removeMark()
{
    const long place = markPlace();
    range_->SetRange(place, place + 1);
    range_->Delete();
    stage_ = Stage::begun;
}

// A bookmark that has its place already might keep it.
void FragmentPen::read(const Fragment& fragment)
{
    if (!fragment.movedTags.empty()) {
        const Word::BookmarksPtr bookmarks = document_->GetBookmarks();
        for (const std::u16string& tag : fragment.movedTags)
            if (const _bstr_t name = bstr(tag); bookmarks->Exists(name))
                bookmarks->Item(Word::text(name))->Delete();
    }
    range_->SetRange(start_, start_);
    stage_ = Stage::refused;
    const bool confirmConversions = false;
    const bool isLinked = false;
    const bool asAttachment = false;
    try {
        const FragmentFile file(fragment.text);
        range_->InsertFile(file.path().c_str(), L"", confirmConversions, isLinked, asAttachment);
        stage_ = Stage::read;
    } catch (const _com_error&) {
        // The document is written without it.
    }
}

void FragmentPen::lookAtTheEnd(const Fragment& fragment)
{
    const long place = markPlace();
    if (place <= start_) {
        stage_ = Stage::refused;
        return;
    }
    range_->SetRange(place - 1, place);
    const std::wstring last = textOf(range_);
    if (fragment.endsInTable) {
        if (last == paragraphEnd)
            range_->Delete();
        stage_ = Stage::ended;
        return;
    }
    if (last != paragraphEnd) {
        formatLast(fragment);
        return;
    }
    range_->SetRange(place - 2, place - 1);
    if (place - 2 >= start_ && textOf(range_) == paragraphEnd) {
        range_->SetRange(place - 1, place);
        range_->Delete();
    }
    stage_ = Stage::ended;
}

void FragmentPen::formatLast(const Fragment& fragment)
{
    const long place = markPlace();
    range_->SetRange(place, place + 2);
    range_->PutStyle(StyleBook::argumentOf(fragment.lastStyle));
    putAlignment(range_, fragment.lastAlignment);
    stage_ = Stage::joined;
}

void FragmentPen::part()
{
    const long place = markPlace();
    range_->SetRange(place, place);
    range_->InsertBefore(L"\r");
    stage_ = Stage::parted;
}

void FragmentPen::restoreGround(const Fragment& fragment)
{
    const long place = markPlace();
    range_->SetRange(place, place + 2);
    if (!fragment.ground.style.empty())
        range_->PutStyle(StyleBook::argumentOf(fragment.ground.style));
    putAlignment(range_, fragment.ground.alignment);
    range_->GetFont()->Reset();
    stage_ = Stage::ended;
}

// Some readers give text the font that the fragment has by default, as if it had been said.
bool FragmentPen::hasItsOwnFont(const Fragment& fragment)
{
    if (isFontSeen_ || !fragment.firstFont)
        return true;
    range_->SetRange(start_, start_ + 1);
    const Word::_FontPtr font = range_->GetFont();
    const bool isOwn =
        portable(font->GetName()) == fragment.firstFont->name && font->GetSize() == fragment.firstFont->size;
    isFontSeen_ = isOwn;
    return isOwn;
}

float FragmentPen::textWidth(int section)
{
    const Word::PageSetupPtr page = document_->GetSections()->Item(section)->GetPageSetup();
    return page->GetPageWidth() - page->GetLeftMargin() - page->GetRightMargin();
}

} // namespace compose
