#pragma once

#include "LiveRange.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace standin::model {

/// A named stretch of a document that follows edits. One that held text vanishes when all of it is deleted.
class Bookmark
{
public:
    Bookmark(std::u16string name, const LiveRange& range) : name_(std::move(name)) { moveTo(range); }

    const std::u16string& name() const { return name_; }
    /// A leading underscore hides a bookmark from who does not ask for hidden ones.
    /// Hidden ones are not listed.
    bool isHidden() const { return name_.front() == u'_'; }
    bool exists() const;

    /// The bookmark's place; raises 5825 when it is gone.
    const LiveRange& range() const;
    void setStart(Position start);
    void setEnd(Position end);

private:
    friend class Bookmarks;

    void moveTo(const LiveRange& range);

    std::u16string name_;
    std::unique_ptr<LiveRange> range_; ///< null once it was deleted
    bool hadText_ = false;
};

using BookmarkPtr = std::shared_ptr<Bookmark>;

/// The bookmarks of a document, in all its stories. Names compare without case.
class Bookmarks
{
public:
    /// At most 40 letters, digits and underscores, the first one no digit.
    static bool isName(std::u16string_view name);

    /// Adds a bookmark, or moves the one that has the name already. Raises 5828 for a bad name.
    BookmarkPtr add(std::u16string_view name, const LiveRange& range);
    BookmarkPtr find(std::u16string_view name) const; ///< null when there is none
    void remove(std::u16string_view name);
    /// Those that the place lies within, or cuts; at the edges, those that begin or end there as well.
    void removeAt(const LiveRange& place, bool atEdges);
    /// In the order of their names.
    std::vector<BookmarkPtr> all() const;
    /// Those that touch the range, in the order of their places.
    std::vector<BookmarkPtr> touching(const LiveRange& range) const;

private:
    std::map<std::u16string, BookmarkPtr> byFoldedName_;
};

/// Where a bookmark comes to lie that a client puts to the place: directly in front of a table the document's
/// switches decide.
LiveRange bookmarkPlace(const LiveRange& given);

} // namespace standin::model
