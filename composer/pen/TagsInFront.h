#pragma once

#include "Collections.h"
#include "WideText.h"

#include "Word.h"

#include <string>
#include <vector>

/// Bookmarks in front of what is there already.
///
/// Errors: a failed Word call raises `_com_error`.
namespace compose {

/// `range` lies collapsed at the place. Directly in front of a table Word may put the bookmark behind that;
/// it stays where it covers what follows.
inline void putTagInFront(const Word::BookmarksPtr& bookmarks, const Word::RangePtr& range,
                          const _bstr_t& name, long place)
{
    const Word::BookmarkPtr added = bookmarks->Add(name, Word::object(range));
    if (added->GetStart() == place)
        return;
    range->SetRange(place, place + 1);
    bookmarks->Add(name, Word::object(range));
}

/// Those that a file has destroyed which Word read in at the place come back. A call for each shows that none
/// has to. Moves the range.
inline void keepTags(Collections& collections, const Word::RangePtr& range,
                     const std::vector<std::u16string>& tags, long place)
{
    for (const std::u16string& tag : tags) {
        const _bstr_t name = bstr(tag);
        if (collections.bookmarks()->Exists(name))
            continue;
        range->SetRange(place, place);
        putTagInFront(collections.bookmarks(), range, name, place);
    }
}

} // namespace compose
