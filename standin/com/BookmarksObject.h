#pragma once

#include "Document.h"
#include "LiveRange.h"

#include <StandinBases.h>
#include <optional>

namespace standin {
/// The bookmarks of a document, by name; of a range those that touch it, by position.
class BookmarksObject : public BookmarksBase
{
public:
    BookmarksObject(std::shared_ptr<Server> server, model::DocumentPtr document,
                    std::optional<model::LiveRange> scope = {});

    model::DocumentPtr documentModel() const override { return document_; }

protected:
    long getCount() override { return static_cast<long>(shown().size()); }
    Word::BookmarkPtr doItem(const VARIANT& index) override;
    Word::BookmarkPtr doAdd(std::u16string_view name, const VARIANT& range) override;
    bool doExists(std::u16string_view name) override { return bookmarks().find(name) != nullptr; }

private:
    model::Bookmarks& bookmarks() const;
    std::vector<model::BookmarkPtr> shown() const;

    model::DocumentPtr document_;
    std::optional<model::LiveRange> scope_;
};
} // namespace standin
