#pragma once

#include "Document.h"
#include "LiveRange.h"

namespace standin::model {

/// Puts the main text of another document in place of the range, which then is that text, its last paragraph
/// mark included. Paragraphs and characters keep their formatting; a style that the range's document has
/// already means what it means there. The settings of the other document's last section stay behind, and so
/// do its headers and footers. Into a cell or a header tables come as text with tabs and sections as
/// paragraphs.
void insertDocument(LiveRange& range, const Document& other);

} // namespace standin::model
