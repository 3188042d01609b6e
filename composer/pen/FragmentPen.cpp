#include "FragmentPen.h"

#include "Fragment.h"
#include "FragmentFile.h"
#include "FragmentFont.h"
#include "StyleBook.h"
#include "TagsInFront.h"
#include "WideText.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace compose {

namespace {

constexpr int triesOfAFragment = 2;
constexpr std::u16string_view pageBreak = u"\f";
constexpr char16_t paragraphEnd = u'\r';

std::u16string textOf(const Word::RangePtr& range)
{
    return portable(range->GetText());
}

void putAlignment(const Word::RangePtr& range, const std::optional<int>& alignment)
{
    const Word::_ParagraphFormatPtr format = range->GetParagraphFormat();
    if (alignment)
        format->PutAlignment(*alignment);
    else
        format->Reset();
}

bool isEndMark(std::u16string_view text, long length)
{
    return static_cast<long>(text.size()) == length && text.front() == endMark &&
           std::ranges::all_of(text.substr(1), [](char16_t unit) { return unit == paragraphEnd; });
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
        forgetRange();
        if (++failures_ == triesOfAFragment)
            giveUp(fragment);
        throw;
    }
}

// What was read in by then stays.
void FragmentPen::giveUp(const Fragment& fragment)
{
    failures_ = 0;
    wasRead_ = stage_ == Stage::read;
    try {
        if (stage_ == Stage::read && findEndMark())
            range_->Delete();
        else if (stage_ == Stage::refused)
            removeText(fragment);
    } catch (const _com_error&) { // NOLINT(bugprone-empty-catch): the failure before it is the one to tell of
    }
    stage_ = Stage::begun;
}

bool FragmentPen::goOn(const Fragment& fragment)
{
    if (stage_ == Stage::begun)
        read(fragment);
    if (stage_ == Stage::read)
        lookAtTheEnd(fragment);
    if (stage_ == Stage::refused)
        removeText(fragment);
    keepTags(collections_, range_, fragment.tagsInFront, start_);
    return std::exchange(stage_, Stage::begun) == Stage::read;
}

// A bookmark that has its place already might keep it.
void FragmentPen::read(const Fragment& fragment)
{
    start_ = end_.ask();
    if (!fragment.movedTags.empty()) {
        const Word::BookmarksPtr& bookmarks = collections_.bookmarks();
        for (const std::u16string& tag : fragment.movedTags)
            if (const _bstr_t name = bstr(tag); bookmarks->Exists(name))
                bookmarks->Item(Word::text(name))->Delete();
    }
    if (std::exchange(rangePlace_, std::nullopt) != start_)
        range_->SetRange(start_, start_);
    end_.forget();
    stage_ = Stage::refused;
    if (fragment.open)
        prepareGround(fragment.ground, *fragment.open);
    const bool confirmConversions = false;
    const bool isLinked = false;
    const bool asAttachment = false;
    try {
        const FragmentFile file(fragment.text);
        range_->InsertFile(file.path().c_str(), L"", confirmConversions, isLinked, asAttachment);
        stage_ = Stage::read;
    } catch (const _com_error&) { // NOLINT(bugprone-empty-catch): the document is written without it
    }
}

// In front of the text, since a style that comes later could take away what is formatted.
void FragmentPen::prepareGround(const Ground& ground, const Fragment::Look& look)
{
    const bool changesStyle = ground.style != look.style;
    if (changesStyle)
        range_->PutStyle(StyleBook::argumentOf(look.style));
    const bool isKnown = ground.isAlignmentKnown && !(changesStyle && ground.alignment);
    if (!isKnown || ground.alignment != look.alignment)
        putAlignment(range_, look.alignment);
}

void FragmentPen::lookAtTheEnd(const Fragment& fragment)
{
    break_ = nullptr;
    if ((fragment.beginsWithBreak && !findBreak()) || !findEndMark() || !keepsLooks()) {
        stage_ = Stage::refused;
        return;
    }
    const long end = end_.ask() - reading_.endLength;
    end_.forget();
    range_->Delete();
    end_.know(end);
}

// As at the end of the fragment before; elsewhere only if it is not there.
bool FragmentPen::findEndMark()
{
    constexpr long longest = 3;
    end_.forget();
    const long end = end_.ask();
    for (const long length : {reading_.endLength, longest}) {
        if (end - length < start_)
            continue;
        range_->SetRange(end - length, end);
        std::u16string found = textOf(range_);
        found.erase(0, std::min(found.rfind(endMark), found.size()));
        const auto seen = static_cast<long>(found.size());
        if (seen == 0 || seen > length || !isEndMark(found, seen))
            continue;
        if (seen != length)
            range_->SetRange(end - seen, end);
        reading_.endLength = seen;
        return true;
    }
    return false;
}

// Word tells no name where the end of its paragraph is in another font.
bool FragmentPen::keepsLooks()
{
    if (reading_.keepsLooks)
        return *reading_.keepsLooks;
    std::u16string font = portable(range_->GetFont()->GetName());
    if (font.empty()) {
        const long mark = end_.ask() - reading_.endLength;
        range_->SetRange(mark, mark + 1);
        font = portable(range_->GetFont()->GetName());
        range_->SetRange(mark, mark + reading_.endLength);
    }
    reading_.keepsLooks = font != fragmentFont;
    return *reading_.keepsLooks;
}

// Where it is not, the text is not what was meant.
bool FragmentPen::findBreak()
{
    const Word::RangePtr found = ranges_(start_, start_ + 1);
    if (textOf(found) != pageBreak)
        return false;
    break_ = found;
    return true;
}

// The paragraph behind it may have taken over what the fragment said.
void FragmentPen::removeText(const Fragment& fragment)
{
    end_.forget();
    const long end = end_.ask();
    if (end <= start_ && !fragment.open)
        return;
    if (end > start_) {
        range_->SetRange(start_, end);
        end_.forget();
        range_->Delete();
    }
    range_->SetRange(start_, start_ + 1);
    if (!fragment.ground.style.empty())
        range_->PutStyle(StyleBook::argumentOf(fragment.ground.style));
    putAlignment(range_, fragment.ground.alignment);
    range_->GetFont()->Reset();
}

} // namespace compose
