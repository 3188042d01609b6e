#include "BookmarkObject.h"

#include "RangeObject.h"

namespace standin {
BookmarkObject::BookmarkObject(std::shared_ptr<Server> server, model::BookmarkPtr bookmark)
    : BookmarkBase(std::move(server)), bookmark_(std::move(bookmark))
{
}

std::u16string BookmarkObject::getName()
{
    bookmark_->range();
    return bookmark_->name();
}

Word::RangePtr BookmarkObject::getRange()
{
    return makeObject<RangeObject>(sharedServer(), bookmark_->range());
}

void BookmarkObject::doDelete()
{
    bookmarks().remove(bookmark_->name());
}
} // namespace standin
