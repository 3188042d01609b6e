#include "BookmarksObject.h"

#include "Arguments.h"
#include "BookmarkObject.h"
#include "Field.h"
#include "RangeObject.h"

#include <algorithm>

namespace standin {
namespace {
constexpr long sortByName = 0;
constexpr long sortByLocation = 1;
} // namespace

BookmarksObject::BookmarksObject(std::shared_ptr<Server> server, model::DocumentPtr document)
    : BookmarksBase(std::move(server)), document_(std::move(document))
{
}

BookmarksObject::BookmarksObject(std::shared_ptr<Server> server, const model::LiveRange& scope)
    : BookmarksBase(std::move(server)), document_(scope.story().document().shared_from_this()), scope_(scope)
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
    const model::Bookmarks& all = bookmarks();
    std::vector<model::BookmarkPtr> found = scope_ ? all.touching(*scope_) : all.all();
    if (!all.showsHidden)
        std::erase_if(found, [](const model::BookmarkPtr& each) { return each->isHidden(); });
    if (!scope_ && all.sortsByPlace) {
        std::stable_sort(found.begin(), found.end(),
                         [](const model::BookmarkPtr& a, const model::BookmarkPtr& b) {
                             const model::LiveRange& first = a->range();
                             const model::LiveRange& second = b->range();
                             return std::pair(first.story().type(), first.start()) <
                                    std::pair(second.story().type(), second.start());
                         });
    }
    return found;
}

model::BookmarkPtr BookmarksObject::find(std::u16string_view name) const
{
    const model::BookmarkPtr bookmark = bookmarks().find(name);
    if (!bookmark || !scope_)
        return bookmark;
    const std::vector<model::BookmarkPtr> mine = bookmarks().touching(*scope_);
    return std::find(mine.begin(), mine.end(), bookmark) == mine.end() ? nullptr : bookmark;
}

long BookmarksObject::getDefaultSorting()
{
    return bookmarks().sortsByPlace ? sortByLocation : sortByName;
}

void BookmarksObject::putDefaultSorting(long sorting)
{
    if (sorting != sortByName && sorting != sortByLocation)
        throw model::WordError(model::WordErrorNumber::valueOutOfRange);
    bookmarks().sortsByPlace = sorting == sortByLocation;
}

Word::IDispatchPtr BookmarksObject::getParent()
{
    bookmarks();
    return Word::IDispatchPtr(server().document(document_).GetInterfacePtr());
}

Word::BookmarkPtr BookmarksObject::doItem(const VARIANT& index)
{
    const model::BookmarkPtr bookmark =
        isNumber(index) ? memberAt(shown(), toLong(index)) : find(toText(index));
    if (!bookmark)
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
    const model::BookmarkPtr bookmark = bookmarks().add(name, place);
    if (model::crossesField(place))
        server().note(crossesFieldNote);
    return makeObject<BookmarkObject>(sharedServer(), bookmark);
}
} // namespace standin
