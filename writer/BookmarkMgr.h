#pragma once

#include "QdxObject.h"
#include "QdxString.h"

#include <map>

/// What is known of one tag: the bookmark that stands for it in Word, and whether the tag has been placed.
class markNode : public QdxObject
{
public:
    QdxString name;       ///< Bookmark name in the document.
    bool defined = false; ///< The tag has been placed.
};

/// Translates a client's tag names, which may be anything, into bookmark names that Word accepts.
///
/// Tag names are case-sensitive. Entries are never removed one by one: a tag keeps its bookmark name for the
/// whole document.
class BookmarkMgr : public QdxObject
{
public:
    /// Fills both outputs and returns true when `tag` is known; otherwise returns false and leaves them as
    /// they are.
    bool lookup(const QdxString& tag, QdxString& name, bool& defined) const;

    /// The tag that a bookmark name stands for; empty for a name of nobody's.
    [[nodiscard]] QdxString tagOf(const QdxString& name) const;

    /// Enters `tag`, not yet defined, and returns its bookmark name: "b1" for the first tag, "b2" for the
    /// second... The tag must not be known already.
    QdxString add(const QdxString& tag);

    /// Notes that `tag` has been placed; an unknown tag is ignored.
    void markDefined(const QdxString& tag);

    /// Forgets every tag; the next one is "b1" again.
    void clear();

private:
    std::map<QdxString, markNode> nodes_;
};
