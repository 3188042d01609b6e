#pragma once

#include <string>
#include <string_view>

namespace standin::rtf {

/// What a byte means in the Windows code page 1252.
char16_t fromAnsi(unsigned char byte);

/// The text of a text file: UTF-16 or UTF-8 when it starts with a byte order mark, else code page 1252.
/// Malformed UTF-8 becomes U+FFFD.
std::u16string readPlainText(std::string_view bytes);

} // namespace standin::rtf
