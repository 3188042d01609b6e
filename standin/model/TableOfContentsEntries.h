#pragma once

#include "Document.h"
#include "TableOfContents.h"

#include <string>
#include <vector>

namespace standin::model {

/// One line of a table of contents.
struct TableOfContentsEntry
{
    std::int32_t level = 1; ///< 1..9
    std::u16string text;
    Position start = 0; ///< of what the line leads to
    Position end = 0;
    std::int32_t page = 1;
    std::u16string bookmark = {}; ///< over [start,end), where lines are linked
};

/// What a table of contents with these options lists of the document's main text, in its order. Headings
/// without text are left out; levels of TC fields beyond 1 to 9 count as the nearest of these.
std::vector<TableOfContentsEntry> tableOfContentsEntries(const Document& document,
                                                         const TableOfContentsOptions& options);

} // namespace standin::model
