#pragma once

#include "Story.h"

#include <string>

namespace reference {

/// The direct properties of the character at the position, and the direct alignment of the paragraph that
/// ends with it, that say what the style says already: "size, bold". Where there is a character style, what
/// the paragraph's style and that one say together. Empty when there are none.
///
/// Such a property does no harm until someone changes the style, and then the text does not follow.
std::string redundantFormat(const standin::model::Story& story, standin::model::Position position);

} // namespace reference
