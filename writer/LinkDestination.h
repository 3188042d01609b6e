#pragma once

#include "QdxString.h"

/// What a link leads to. Decided once, where the link is asked for, because the same text may be a file now
/// and none when the link is drawn, and the name of a bookmark may be that of a file.
///
/// At most one of `address` and `bookmark` is filled; with none of them there is no link.
struct LinkDestination
{
    QdxString address;     ///< Web address or file path.
    QdxString bookmark;    ///< A bookmark of the document.
    bool resolved = false; ///< Only resolved links are drawn.

    [[nodiscard]] bool isEmpty() const { return address.isEmpty() && bookmark.isEmpty(); }
};

inline LinkDestination toAddress(const QdxString& address)
{
    return {address, {}, true};
}

inline LinkDestination toBookmark(const QdxString& bookmark, bool placed)
{
    return {{}, bookmark, placed};
}
