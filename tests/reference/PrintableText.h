#pragma once

#include <string>
#include <string_view>

namespace reference {

/// ASCII as it stands; what is not, and backslashes, as \\uXXXX, \\n, \\r, \\t or two backslashes.
std::string printable(std::u16string_view text);

} // namespace reference
