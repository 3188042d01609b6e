#include "PrintableText.h"

#include <array>
#include <cstdio>

namespace reference {

std::string printable(std::u16string_view text)
{
    std::string result;
    for (const char16_t unit : text) {
        switch (unit) {
        case u'\n':
            result += "\\n";
            break;
        case u'\r':
            result += "\\r";
            break;
        case u'\t':
            result += "\\t";
            break;
        case u'\\':
            result += "\\\\";
            break;
        default:
            if (unit >= 0x20 && unit < 0x7F) {
                result += static_cast<char>(unit);
            } else {
                std::array<char, 8> escaped{};
                std::snprintf(escaped.data(), escaped.size(), "\\u%04x", static_cast<unsigned>(unit));
                result += escaped.data();
            }
        }
    }
    return result;
}

} // namespace reference
