#pragma once

#include "Document.h"

#include <StandinBases.h>

namespace standin {
/// The bookmarks of a document.
class BookmarksObject : public BookmarksBase
{
public:
    BookmarksObject(std::shared_ptr<Server> server, model::DocumentPtr document);

    model::DocumentPtr documentModel() const override { return document_; }

protected:
    long getCount() override { return static_cast<long>(shown().size()); }
    bool getShowHidden() override { return bookmarks().showsHidden; }
    void putShowHidden(bool shows) override { bookmarks().showsHidden = shows; }
    Word::BookmarkPtr doItem(const VARIANT& index) override;
    Word::BookmarkPtr doAdd(std::u16string_view name, const VARIANT& range) override;
    bool doExists(std::u16string_view name) override { return bookmarks().find(name) != nullptr; }

private:
    model::Bookmarks& bookmarks() const;
    std::vector<model::BookmarkPtr> shown() const;

    model::DocumentPtr document_;
};
} // namespace standin
