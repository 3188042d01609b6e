#pragma once

#include "Formats.h"

namespace standin::rtf {

/// What \plain and \pard say: RTF's own defaults. The font's name may be another in a file (\deff).
model::FontProperties plainFont();
model::ParagraphProperties plainParagraph();

/// What `wanted` says beyond `base`: leaves open what both have alike.
model::FontProperties fontBeyond(const model::FontProperties& wanted, const model::FontProperties& base);
model::ParagraphProperties paragraphBeyond(const model::ParagraphProperties& wanted,
                                           const model::ParagraphProperties& base);

} // namespace standin::rtf
