#include "BookmarksObject.h"

#include "Arguments.h"
#include "BookmarkObject.h"
#include "Field.h"
#include "RangeObject.h"

#include <algorithm>

namespace standin {
namespace {
bool touches(const model::LiveRange& range, const model::LiveRange& scope)
{
    return range.storyPtr() == scope.storyPtr() && range.start() <= scope.end() &&
           range.end() >= scope.start();
}

bool liesBefore(const model::BookmarkPtr& a, const model::BookmarkPtr& b)
{
    return a->range().start() < b->range().start();
}
} // namespace

BookmarksObject::BookmarksObject(std::shared_ptr<Server> server, model::DocumentPtr document,
                                 std::optional<model::LiveRange> scope)
    : BookmarksBase(std::move(server)), document_(std::move(document)), scope_(std::move(scope))
{
}

model::Bookmarks& BookmarksObject::bookmarks() const
{
    if (document_->isClosed())
        throw model::WordError(model::WordErrorNumber::objectDeleted);
    return document_->bookmarks();
}

std::vector<model::BookmarkPtr> BookmarksObject::shown() const
{
    std::vector<model::BookmarkPtr> found = bookmarks().all();
    std::erase_if(found, [](const model::BookmarkPtr& each) { return each->isHidden(); });
    if (scope_) {
        std::erase_if(found,
                      [this](const model::BookmarkPtr& each) { return !touches(each->range(), *scope_); });
        std::ranges::stable_sort(found, liesBefore);
    }
    return found;
}

Word::BookmarkPtr BookmarksObject::doItem(const VARIANT& index)
{
    const model::BookmarkPtr bookmark =
        isNumber(index) ? memberAt(shown(), toLong(index)) : bookmarks().find(toText(index));
    if (!bookmark || (scope_ && !touches(bookmark->range(), *scope_)))
        throw model::WordError(model::WordErrorNumber::noSuchMember);
    return makeObject<BookmarkObject>(sharedServer(), bookmark);
}

Word::BookmarkPtr BookmarksObject::doAdd(std::u16string_view name, const VARIANT& range)
{
    // Without a range the bookmark marks the selection, which stands at the start of the text: nothing here
    // moves it.
    const bool givesRange = !isOmitted(range);
    const model::LiveRange place = givesRange ? model::LiveRange(RangeObject::of(toObject(range)))
                                              : model::LiveRange(document_->mainStory(), 0, 0);
    const model::BookmarkPtr bookmark = bookmarks().add(name, model::bookmarkPlace(place));
    if (model::crossesField(place))
        server().note(crossesFieldNote);
    return makeObject<BookmarkObject>(sharedServer(), bookmark);
}
} // namespace standin
