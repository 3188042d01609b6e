#pragma once

#include "LiveRange.h"

#include <string_view>

namespace standin::rtf {

/// Puts the content of a file, RTF or text, in place of the range, which then is that content; it ends with a
/// paragraph mark. Text is formatted as the place where it goes, RTF as it says itself. The switches named
/// insertFile... say where RTF may be read otherwise. Raises WordError 5273 for damaged RTF and NotSupported
/// for Word's own binary format; nothing is changed then.
void insertFileContent(model::LiveRange& range, std::string_view bytes);

} // namespace standin::rtf
