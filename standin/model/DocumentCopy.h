#pragma once

#include "Document.h"
#include "LiveRange.h"

#include <optional>

namespace standin::model {

/// What is taken over of a document besides its text.
struct DocumentCopyOptions
{
    LastParagraph lastParagraph = LastParagraph::mark;
    /// Text that looks so gets its name and size as direct formatting.
    std::optional<FontProperties> creepingFont = {};
    InsertedRange range = InsertedRange::coversText; ///< afterwards
    bool movesBookmarks = true;
};

/// Puts the main text of another document in place of the range, which then is that text, its last paragraph
/// mark included. Paragraphs and characters keep their formatting; a style that the range's document has
/// already means what it means there. The settings of the other document's last section stay behind, and so
/// do its headers and footers. Into a cell tables come as text with tabs; there and in a header sections come
/// as paragraphs.
void insertDocument(LiveRange& range, const Document& other, const DocumentCopyOptions& options = {});

} // namespace standin::model
