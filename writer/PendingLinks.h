#pragma once

#include "HyperLink.h"

#include <cstddef>
#include <list>
#include <unordered_map>

/// Links whose text is written and which are not drawn yet, in the order of writing.
///
/// Resolving a bookmark takes time for the links to that bookmark alone: a large document resolves as many
/// tags as it has links.
class PendingLinks
{
public:
    using iterator = std::list<HyperLink>::iterator;
    using const_iterator = std::list<HyperLink>::const_iterator;

    PendingLinks() = default;
    PendingLinks(const PendingLinks&) = delete; // the index points into the list
    PendingLinks& operator=(const PendingLinks&) = delete;

    void add(const HyperLink& link);
    /// Marks every link to the bookmark as resolved; the name is compared byte for byte.
    void resolve(const QdxString& bookmark);
    /// Returns the link behind the erased one.
    iterator erase(iterator link);

    iterator begin() { return links_.begin(); }
    iterator end() { return links_.end(); }
    const_iterator begin() const { return links_.begin(); }
    const_iterator end() const { return links_.end(); }
    std::size_t size() const { return links_.size(); }
    bool empty() const { return links_.empty(); }

private:
    struct Hash
    {
        std::size_t operator()(const QdxString& text) const noexcept { return text.hash(); }
    };

    std::list<HyperLink> links_;
    std::unordered_multimap<QdxString, HyperLink*, Hash> unresolved_; ///< By bookmark.
};
