#pragma once

#include "Document.h"

#include <string_view>

namespace standin::rtf {

/// Reads RTF (styles, page setup, sections, headers and footers, text and its formatting) into a new, empty
/// document. Unknown control words and destinations are skipped, as RTF asks of a reader. Raises WordError
/// 5273 for bytes that are no RTF or not complete; the document may then hold a part of the text.
void readRtf(std::string_view bytes, model::Document& document);

/// What a fragment says besides its content.
struct RtfFragment
{
    bool endsParagraph = false; ///< with a word for it, not only with the file
    model::FontProperties defaultFont;
};

/// Reads RTF that is to become part of another document into an empty one. In its styles, Normal included, is
/// only what the fragment says of them; so direct formatting is what the text says beyond its style's entry.
RtfFragment readRtfFragment(std::string_view bytes, model::Document& document);

} // namespace standin::rtf
