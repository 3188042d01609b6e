#include "RtfBookmarks.h"

#include "RtfText.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace standin::rtf {

using namespace model;

BookmarkWriter::BookmarkWriter(const Story& story)
{
    for (const BookmarkPtr& bookmark : story.document().bookmarks().all()) {
        const LiveRange& range = bookmark->range();
        if (range.storyPtr().get() == &story) {
            const bool isPoint = range.start() == range.end();
            borders_.push_back({range.start(), isPoint ? 1 : 2, true, bookmark->name()});
            borders_.push_back({range.end(), isPoint ? 1 : 0, false, bookmark->name()});
        }
    }
    std::ranges::stable_sort(borders_, {},
                             [](const Border& border) { return std::pair(border.position, border.rank); });
}

std::string BookmarkWriter::bordersUpTo(Position position)
{
    std::string rtf;
    while (next() <= position) {
        const Border& border = borders_[written_++];
        rtf += border.isStart ? "{\\*\\bkmkstart " : "{\\*\\bkmkend ";
        rtf += escapeText(border.name) + "}";
    }
    return rtf;
}

Position BookmarkWriter::next() const
{
    return written_ < borders_.size() ? borders_[written_].position : std::numeric_limits<Position>::max();
}

void BookmarkReader::start(const std::u16string& name, const std::shared_ptr<Story>& story, Position position)
{
    if (Bookmarks::isName(name)) {
        open_.erase(name);
        open_.emplace(name, LiveRange(story, position, position));
    }
}

void BookmarkReader::end(const std::u16string& name, const std::shared_ptr<Story>& story, Position position)
{
    const auto found = open_.find(name);
    if (found == open_.end())
        return;
    if (found->second.storyPtr() == story && story->isAlive())
        story->document().bookmarks().add(name, LiveRange(story, found->second.start(), position));
    open_.erase(found);
}

void BookmarkReader::eraseDoubleMark(const std::shared_ptr<Story>& story)
{
    const Position last = story->length() - 1;
    Bookmarks& bookmarks = story->document().bookmarks();
    std::map<std::u16string, Position> starts;
    for (const BookmarkPtr& each : bookmarks.all()) {
        const LiveRange& range = each->range();
        if (range.storyPtr() == story && range.start() < last && range.end() == last)
            starts[each->name()] = range.start();
    }
    story->erase(last - 1, last);
    for (const auto& [name, start] : starts)
        bookmarks.add(name, LiveRange(story, start, last));
}

} // namespace standin::rtf
