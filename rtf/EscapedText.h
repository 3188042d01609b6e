#pragma once

#include <string>
#include <string_view>

namespace rtf {

/// Appends UTF-16 text in 7-bit characters, for readers that skip one character behind each \uN (\uc1).
///
/// Tabs, line, page and column breaks, and the hyphens and spaces with a word of their own become it. What
/// cannot be said becomes a space (control characters) or U+FFFD (halves of surrogate pairs).
void appendEscaped(std::string& rtf, std::u16string_view text);

/// Whether a text comes back from RTF as it is.
bool isEscapable(std::u16string_view text);

} // namespace rtf
