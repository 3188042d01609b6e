#include "Bookmarks.h"

#include "Document.h"
#include "TableSpans.h"
#include "WordError.h"

#include <algorithm>

namespace standin::model {

namespace {

bool isLetter(char16_t c)
{
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') ||
           (c >= 0xC0 && c != 0xD7 && c != 0xF7 && (c < 0x2000 || c > 0x206F));
}

} // namespace

bool Bookmark::exists() const
{
    return range_ && range_->storyPtr()->isAlive() && !(hadText_ && range_->isCollapsed());
}

const LiveRange& Bookmark::range() const
{
    if (!exists())
        throw WordError(WordErrorNumber::objectDeleted);
    return *range_;
}

void Bookmark::setStart(Position start)
{
    range();
    range_->setStart(start);
    hadText_ = !range_->isCollapsed();
}

void Bookmark::setEnd(Position end)
{
    range();
    range_->setEnd(end);
    hadText_ = !range_->isCollapsed();
}

void Bookmark::moveTo(const LiveRange& range)
{
    range_ = std::make_unique<LiveRange>(range);
    hadText_ = !range.isCollapsed();
}

bool Bookmarks::isName(std::u16string_view name)
{
    static constexpr std::size_t longest = 40;
    const auto fits = [](char16_t c) { return isLetter(c) || (c >= u'0' && c <= u'9') || c == u'_'; };
    return !name.empty() && name.size() <= longest && std::all_of(name.begin(), name.end(), fits) &&
           !(name.front() >= u'0' && name.front() <= u'9');
}

BookmarkPtr Bookmarks::add(std::u16string_view name, const LiveRange& range)
{
    if (!isName(name))
        throw WordError(WordErrorNumber::badBookmarkName);
    BookmarkPtr& place = byFoldedName_[foldCase(name)];
    if (place && place->exists())
        place->moveTo(range);
    else
        place = std::make_shared<Bookmark>(std::u16string(name), range);
    range.story().document().touched();
    return place;
}

BookmarkPtr Bookmarks::find(std::u16string_view name) const
{
    const auto found = byFoldedName_.find(foldCase(name));
    return found != byFoldedName_.end() && found->second->exists() ? found->second : nullptr;
}

void Bookmarks::remove(std::u16string_view name)
{
    const auto found = byFoldedName_.find(foldCase(name));
    if (found != byFoldedName_.end()) {
        found->second->range_.reset();
        byFoldedName_.erase(found);
    }
}

void Bookmarks::removeAt(const LiveRange& place, bool atEdges)
{
    std::erase_if(byFoldedName_, [&](const auto& each) {
        Bookmark& bookmark = *each.second;
        if (!bookmark.exists() || bookmark.range().storyPtr() != place.storyPtr())
            return false;
        const LiveRange& mine = bookmark.range();
        const bool isInside = mine.start() < place.end() && place.start() < mine.end();
        const bool isAround = mine.start() < place.start() && place.end() < mine.end();
        const bool touches = mine.start() <= place.end() && place.start() <= mine.end();
        const bool isLost = isInside || isAround || (atEdges && touches);
        if (isLost)
            bookmark.range_.reset();
        return isLost;
    });
}

std::vector<BookmarkPtr> Bookmarks::all() const
{
    std::vector<BookmarkPtr> found;
    for (const auto& [name, bookmark] : byFoldedName_)
        if (bookmark->exists())
            found.push_back(bookmark);
    return found;
}

std::vector<BookmarkPtr> Bookmarks::touching(const LiveRange& range) const
{
    std::vector<BookmarkPtr> found = all();
    std::erase_if(found, [&range](const BookmarkPtr& each) {
        const LiveRange& mine = each->range();
        return mine.storyPtr() != range.storyPtr() || mine.start() > range.end() ||
               mine.end() < range.start();
    });
    std::stable_sort(found.begin(), found.end(), [](const BookmarkPtr& a, const BookmarkPtr& b) {
        return a->range().start() < b->range().start();
    });
    return found;
}

LiveRange bookmarkPlace(const LiveRange& given)
{
    const Story& story = given.story();
    const BookmarkAtTable reading = story.document().switches().bookmarkInFrontOfTable;
    if (reading == BookmarkAtTable::stays || !given.isCollapsed())
        return given;
    const std::optional<ParagraphSpan> table = tableAt(story, given.start());
    if (!table || startOf(story, *table) != given.start())
        return given;
    if (reading == BookmarkAtTable::behind)
        return {given.storyPtr(), endOf(story, *table), endOf(story, *table)};
    const ParagraphSpan cell = cellsOf(story, rowAt(story, table->first)).front();
    return {given.storyPtr(), given.start(), endOf(story, cell) - 1};
}

} // namespace standin::model
