#pragma once

#include "Formats.h"

#include <string>

namespace standin::rtf {

/// What RTF says of a paragraph that looks like that.
std::string paragraphWords(const model::ParagraphProperties& properties);

} // namespace standin::rtf
