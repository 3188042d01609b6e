#pragma once

#include "Document.h"

#include <StandinBases.h>
#include <optional>

namespace standin {
/// The bookmarks of a document, or those that touch a range.
class BookmarksObject : public BookmarksBase
{
public:
    BookmarksObject(std::shared_ptr<Server> server, model::DocumentPtr document);
    BookmarksObject(std::shared_ptr<Server> server, const model::LiveRange& scope);

    model::DocumentPtr documentModel() const override { return document_; }

protected:
    long getCount() override { return static_cast<long>(shown().size()); }
    long getDefaultSorting() override;
    void putDefaultSorting(long sorting) override;
    bool getShowHidden() override { return bookmarks().showsHidden; }
    void putShowHidden(bool shows) override { bookmarks().showsHidden = shows; }
    Word::IDispatchPtr getParent() override;
    Word::BookmarkPtr doItem(const VARIANT& index) override;
    Word::BookmarkPtr doAdd(std::u16string_view name, const VARIANT& range) override;
    bool doExists(std::u16string_view name) override { return find(name) != nullptr; }

private:
    model::Bookmarks& bookmarks() const;
    std::vector<model::BookmarkPtr> shown() const;
    model::BookmarkPtr find(std::u16string_view name) const;

    model::DocumentPtr document_;
    std::optional<model::LiveRange> scope_;
};
} // namespace standin
