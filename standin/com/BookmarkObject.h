#pragma once

#include "Bookmarks.h"

#include <StandinBases.h>

namespace standin {
class BookmarkObject : public BookmarkBase
{
public:
    BookmarkObject(std::shared_ptr<Server> server, model::BookmarkPtr bookmark);

protected:
    std::u16string getName() override;
    Word::RangePtr getRange() override;
    bool getEmpty() override { return bookmark_->range().isCollapsed(); }
    long getStart() override { return bookmark_->range().start(); }
    void putStart(long start) override { bookmark_->setStart(start); }
    long getEnd() override { return bookmark_->range().end(); }
    void putEnd(long end) override { bookmark_->setEnd(end); }
    void doDelete() override;

private:
    model::Bookmarks& bookmarks() const { return bookmark_->range().story().document().bookmarks(); }

    model::BookmarkPtr bookmark_;
};
} // namespace standin
