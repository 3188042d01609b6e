#pragma once

#include "WordArguments.h"

#include <string_view>

namespace compose {

/// Word's number of the format that the name's extension stands for, in any case; a missing argument, which
/// leaves it to Word, for any other.
[[nodiscard]] _variant_t saveFormatOf(std::wstring_view fileName);

} // namespace compose
