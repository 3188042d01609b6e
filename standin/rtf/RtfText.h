#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace standin::rtf {

/// Text as RTF in 7-bit characters: escapes, \uN for everything outside ASCII. Line breaks, page and column
/// breaks and tabs become their control words; paragraph marks must not be in it.
std::string escapeText(std::u16string_view text);

/// Points as the whole number of twips that RTF counts in.
std::int32_t twips(float points);
float points(std::int32_t twips);

/// A control word with its number, e.g. "\fs24".
std::string control(std::string_view word, std::int32_t number);

} // namespace standin::rtf
