#include "RtfHex.h"

namespace standin::rtf {

std::string hexText(std::string_view bytes)
{
    static constexpr std::size_t bytesPerLine = 64;
    static constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 2 + bytes.size() / bytesPerLine + 1);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i % bytesPerLine == 0)
            text += '\n';
        const auto byte = static_cast<unsigned char>(bytes[i]);
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

void HexReader::digit(char16_t c)
{
    int value = 0;
    if (c >= u'0' && c <= u'9')
        value = c - u'0';
    else if (c >= u'a' && c <= u'f')
        value = c - u'a' + 10;
    else if (c >= u'A' && c <= u'F')
        value = c - u'A' + 10;
    else
        return;
    if (half_ < 0) {
        half_ = value;
    } else {
        bytes_ += static_cast<char>(half_ << 4 | value);
        half_ = -1;
    }
}

} // namespace standin::rtf
