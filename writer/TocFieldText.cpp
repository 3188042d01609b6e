#include "TocFieldText.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t maxFieldBytes = 1007;

std::string_view wholeCharacters(std::string_view text, std::size_t limit, LeadByteTest isLeadByte)
{
    std::size_t end = 0;
    while (end < text.size()) {
        const std::size_t width = isLeadByte(static_cast<unsigned char>(text[end])) ? 2 : 1;
        if (end + width > limit)
            break;
        end += width;
    }
    return text.substr(0, end);
}

} // namespace

QdxString tocFieldText(const QdxString& entry, int level, LeadByteTest isLeadByte)
{
    const std::string suffix = "\" \\fC \\l \"" + std::to_string(level) + "\"";
    const std::size_t limit = maxFieldBytes - 1 - suffix.size();

    std::string text = "\"";
    text += wholeCharacters({entry.data(), entry.length()}, limit, isLeadByte);
    text += suffix;
    return QdxString(text.c_str());
}
