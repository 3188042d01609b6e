#include "FragmentPen.h"

#include "FragmentFile.h"
#include "FragmentFont.h"
#include "StyleBook.h"
#include "WideText.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace compose {

namespace {

constexpr int triesOfAFragment = 2;
constexpr wchar_t markText[] = L"\x00a7";
constexpr std::wstring_view paragraphEnd = L"\r";
constexpr std::wstring_view pageBreak = L"\f";
constexpr std::wstring_view twoParagraphEnds = L"\r\r";

/// Says of its first paragraph what fragments say of text that is to look as its style does. That paragraph
/// ends whatever becomes of the last.
std::string trial()
{
    const std::string font(fragmentFont.begin(), fragmentFont.end());
    return R"({\rtf1\ansi\deff0{\fonttbl{\f0\fnil )" + font +
           R"(;}}{\stylesheet{\s0\f0 Normal;}}\pard\plain\s0\f0 x\par\pard\plain\par})";
}

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
        change();
        if (++failures_ == triesOfAFragment)
            giveUp();
        throw;
    }
}

// What was read in by then stays.
void FragmentPen::giveUp()
{
    failures_ = 0;
    wasRead_ = stage_ == Stage::read || stage_ == Stage::joined || stage_ == Stage::parted ||
               stage_ == Stage::ended || stage_ == Stage::found;
    try {
        if (stage_ == Stage::tried || stage_ == Stage::judged)
            removeText();
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
            if (keepsLooks_ || fragment.tellsOfLooks)
                read(fragment);
            else
                readTrial();
            break;
        case Stage::tried:
            judge();
            stage_ = Stage::judged;
            break;
        case Stage::judged:
            removeText();
            stage_ = *keepsLooks_ ? Stage::marked : Stage::refused;
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
            findBreak(fragment);
            break;
        case Stage::found:
            removeMark();
            return true;
        case Stage::refused:
            removeMark();
            return false;
        }
    }
}

void FragmentPen::mark()
{
    surplus_ = 0;
    start_ = end_.ask();
    range_->SetRange(start_, start_);
    end_.forget();
    change();
    range_->InsertAfter(markText);
    stage_ = Stage::marked;
}

long FragmentPen::markPlace()
{
    if (!markPlace_)
        markPlace_ = range_->GetStoryLength() - 2;
    return *markPlace_;
}

void FragmentPen::removeMark()
{
    const long place = markPlace();
    range_->SetRange(place - surplus_, place + 1);
    change();
    range_->Delete();
    end_.know(place - surplus_);
    stage_ = Stage::begun;
}

void FragmentPen::readTrial()
{
    insert(trial(), Stage::tried);
}

void FragmentPen::judge()
{
    range_->SetRange(start_, start_ + 1);
    keepsLooks_ = portable(range_->GetFont()->GetName()) != fragmentFont;
}

void FragmentPen::removeText()
{
    if (markPlace() <= start_)
        return;
    range_->SetRange(start_, markPlace());
    change();
    range_->Delete();
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
    insert(fragment.text, Stage::read);
}

void FragmentPen::insert(const std::string& text, Stage next)
{
    range_->SetRange(start_, start_);
    stage_ = Stage::refused;
    const bool confirmConversions = false;
    const bool isLinked = false;
    const bool asAttachment = false;
    try {
        const FragmentFile file(text);
        change();
        range_->InsertFile(file.path().c_str(), L"", confirmConversions, isLinked, asAttachment);
        stage_ = next;
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
    if (!keepsLooks_) {
        judge();
        if (!*keepsLooks_) {
            stage_ = Stage::judged;
            return;
        }
    }
    range_->SetRange(std::max(place - 2, start_), place);
    const std::wstring last = textOf(range_); // the end of a cell or a row is two characters
    const bool endsParagraph = last.ends_with(paragraphEnd);
    if (!endsParagraph && !fragment.endsInTable) {
        formatLast(fragment);
        return;
    }
    surplus_ = (fragment.endsInTable ? endsParagraph : last.ends_with(twoParagraphEnds)) ? 1 : 0;
    stage_ = Stage::ended;
}

// Where it is not, the text is not what was meant.
void FragmentPen::findBreak(const Fragment& fragment)
{
    if (fragment.beginsWithBreak) {
        range_->SetRange(start_, start_ + 1);
        if (textOf(range_) != pageBreak) {
            surplus_ = 0;
            removeText();
            stage_ = Stage::refused;
            return;
        }
        break_ = range_->GetDuplicate();
    }
    stage_ = Stage::found;
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
    change();
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

float FragmentPen::tableWidth(int section)
{
    constexpr float padding = 5.4F; // between a cell's edge and its text
    const Word::PageSetupPtr page = document_->GetSections()->Item(section)->GetPageSetup();
    return page->GetPageWidth() - page->GetLeftMargin() - page->GetRightMargin() + 2 * padding;
}

} // namespace compose
