#pragma once

#include "Document.h"

#include <string>

namespace standin::rtf {

/// The document as RTF, in 7-bit characters. Valid whatever the text holds: unpaired surrogates become
/// U+FFFD, control characters without meaning spaces.
std::string writeRtf(const model::Document& document);

} // namespace standin::rtf
