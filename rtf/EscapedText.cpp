#include "EscapedText.h"

#include <cstdint>

namespace rtf {

namespace {

constexpr bool isHighSurrogate(char16_t c)
{
    return c >= 0xD800 && c <= 0xDBFF;
}

constexpr bool isLowSurrogate(char16_t c)
{
    return c >= 0xDC00 && c <= 0xDFFF;
}

bool isPair(std::u16string_view text, std::size_t at)
{
    return isHighSurrogate(text[at]) && at + 1 < text.size() && isLowSurrogate(text[at + 1]);
}

/// What is said by a word or a symbol.
constexpr std::string_view wordOf(char16_t c)
{
    switch (c) {
    case u'\\':
        return "\\\\";
    case u'{':
        return "\\{";
    case u'}':
        return "\\}";
    case u'\t':
        return "\\tab ";
    case u'\v':
        return "\\line ";
    case u'\f':
        return "\\page ";
    case 14:
        return "\\column ";
    case 30:
        return "\\_";
    case 31:
        return "\\-";
    case 0xA0:
        return "\\~";
    default:
        return "";
    }
}

constexpr bool isControl(char16_t c)
{
    return c < 0x20 || c == 0x7F;
}

void appendUnicode(std::string& rtf, char16_t c)
{
    rtf += "\\u";
    rtf += std::to_string(static_cast<std::int16_t>(c));
    rtf += '?';
}

} // namespace

void appendEscaped(std::string& rtf, std::u16string_view text)
{
    constexpr char16_t replacement = 0xFFFD;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t c = text[at];
        if (isPair(text, at)) {
            appendUnicode(rtf, c);
            appendUnicode(rtf, text[++at]);
        } else if (const std::string_view word = wordOf(c); !word.empty()) {
            rtf += word;
        } else if (isControl(c)) {
            rtf += ' ';
        } else if (c < 0x7F) {
            rtf += static_cast<char>(c);
        } else {
            appendUnicode(rtf, isHighSurrogate(c) || isLowSurrogate(c) ? replacement : c);
        }
    }
}

bool isEscapable(std::u16string_view text)
{
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t c = text[at];
        if (isPair(text, at))
            ++at;
        else if (isHighSurrogate(c) || isLowSurrogate(c) || (isControl(c) && wordOf(c).empty()))
            return false;
    }
    return true;
}

} // namespace rtf
