#pragma once

#include "Document.h"

#include <string_view>

namespace standin::rtf {

/// Reads RTF (styles, page setup, sections, headers and footers, text and its formatting) into a new, empty
/// document. Unknown control words and destinations are skipped, as RTF asks of a reader. Raises WordError
/// 5273 for bytes that are no RTF or not complete; the document may then hold a part of the text.
void readRtf(std::string_view bytes, model::Document& document);

} // namespace standin::rtf
