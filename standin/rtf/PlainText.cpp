#include "PlainText.h"

#include <array>
#include <cstdint>

namespace standin::rtf {

namespace {

constexpr char32_t replacement = 0xFFFD;

void append(std::u16string& text, char32_t c)
{
    if (c < 0x10000) {
        text += static_cast<char16_t>(c);
    } else {
        text += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
        text += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    }
}

/// Takes one character off the front.
char32_t takeUtf8(std::string_view& bytes)
{
    const auto first = static_cast<unsigned char>(bytes.front());
    bytes.remove_prefix(1);
    if (first < 0x80)
        return first;
    const int more = first >= 0xF0 ? 3 : (first >= 0xE0 ? 2 : 1);
    if (first < 0xC2 || first > 0xF4)
        return replacement;
    char32_t c = first & (0x3Fu >> more);
    for (int i = 0; i < more; ++i) {
        if (bytes.empty() || (static_cast<unsigned char>(bytes.front()) & 0xC0) != 0x80)
            return replacement;
        c = c << 6 | (static_cast<unsigned char>(bytes.front()) & 0x3Fu);
        bytes.remove_prefix(1);
    }
    static constexpr std::array<char32_t, 4> least = {0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = c >= 0xD800 && c <= 0xDFFF;
    return c < least[static_cast<std::size_t>(more)] || c > 0x10FFFF || isSurrogate ? replacement : c;
}

std::u16string fromUtf8(std::string_view bytes)
{
    std::u16string text;
    while (!bytes.empty())
        append(text, takeUtf8(bytes));
    return text;
}

std::u16string fromUtf16(std::string_view bytes, std::size_t high)
{
    std::u16string text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i + high]) << 8 |
                                      static_cast<unsigned char>(bytes[i + 1 - high]));
    }
    return text;
}

} // namespace

char16_t fromAnsi(unsigned char byte)
{
    static constexpr std::array<char16_t, 32> special = {
        0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};
    return byte >= 0x80 && byte < 0xA0 ? special[byte - 0x80u] : byte;
}

std::u16string readPlainText(std::string_view bytes)
{
    if (bytes.starts_with("\xEF\xBB\xBF"))
        return fromUtf8(bytes.substr(3));
    if (bytes.starts_with("\xFF\xFE"))
        return fromUtf16(bytes.substr(2), 1);
    if (bytes.starts_with("\xFE\xFF"))
        return fromUtf16(bytes.substr(2), 0);
    std::u16string text;
    for (const char c : bytes)
        text += fromAnsi(static_cast<unsigned char>(c));
    return text;
}

} // namespace standin::rtf
