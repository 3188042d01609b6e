#pragma once

#include <string>
#include <string_view>

namespace compose {

/// The name under which RTF knows a paragraph style: for built-in ones that of Word's files, which differs
/// from the one that is shown, for others their own.
std::u16string rtfStyleName(std::u16string_view style);

} // namespace compose
