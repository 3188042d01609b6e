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

bool BookmarkObject::getColumn()
{
    bookmark_->range();
    return false;
}

long BookmarkObject::getStoryType()
{
    return static_cast<long>(bookmark_->range().story().type());
}

void BookmarkObject::doDelete()
{
    bookmarks().remove(bookmark_->name());
}

Word::BookmarkPtr BookmarkObject::doCopy(std::u16string_view name)
{
    return makeObject<BookmarkObject>(sharedServer(), bookmarks().add(name, bookmark_->range()));
}
} // namespace standin
