#include "RtfText.h"

#include "Constants.h"

#include <cmath>

namespace standin::rtf {

namespace {

bool isHighSurrogate(char16_t c)
{
    return c >= 0xD800 && c <= 0xDBFF;
}

bool isLowSurrogate(char16_t c)
{
    return c >= 0xDC00 && c <= 0xDFFF;
}

void appendUnicode(std::string& rtf, char16_t c)
{
    rtf += control("\\u", static_cast<std::int16_t>(c));
    rtf += '?';
}

void appendCharacter(std::string& rtf, char16_t c)
{
    namespace mark = model::mark;
    switch (c) {
    case u'\\':
    case u'{':
    case u'}':
        rtf += '\\';
        rtf += static_cast<char>(c);
        return;
    case mark::tab:
        rtf += "\\tab ";
        return;
    case mark::line:
        rtf += "\\line ";
        return;
    case mark::page:
        rtf += "\\page ";
        return;
    case mark::column:
        rtf += "\\column ";
        return;
    case 30:
        rtf += "\\_";
        return;
    case 31:
        rtf += "\\-";
        return;
    case 0xA0:
        rtf += "\\~";
        return;
    default:
        break;
    }
    if (c < 0x20 || c == 0x7F)
        rtf += ' ';
    else if (c < 0x7F)
        rtf += static_cast<char>(c);
    else
        appendUnicode(rtf, c);
}

} // namespace

std::string escapeText(std::u16string_view text)
{
    constexpr char16_t replacement = 0xFFFD;
    std::string rtf;
    rtf.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (isHighSurrogate(c) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            appendUnicode(rtf, c);
            appendUnicode(rtf, text[++i]);
        } else {
            appendCharacter(rtf, isHighSurrogate(c) || isLowSurrogate(c) ? replacement : c);
        }
    }
    return rtf;
}

std::int32_t twips(float points)
{
    // Beyond 22 inches Word refuses a length; the bound also keeps odd values within RTF's numbers.
    constexpr float limit = 1584;
    if (!(points > -limit))
        return static_cast<std::int32_t>(-limit * 20);
    return points < limit ? static_cast<std::int32_t>(std::lround(points * 20))
                          : static_cast<std::int32_t>(limit * 20);
}

std::string control(std::string_view word, std::int32_t number)
{
    std::string text(word);
    text += std::to_string(number);
    return text;
}

float points(std::int32_t twips)
{
    return static_cast<float>(twips) / 20;
}

} // namespace standin::rtf
