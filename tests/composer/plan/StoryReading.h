#pragma once

#include "Font.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// What a story holds, one line for each thing in it, so that what should be and what is can be compared.
struct StoryReading
{
    std::vector<std::string> tokens;
    std::map<std::u16string, std::size_t> tags; ///< in front of which token

    /// What a last paragraph ends with that may look any way.
    static constexpr std::string_view anyEnd = "end of any look";
};

inline std::string printable(std::u16string_view text)
{
    std::string result;
    for (const char16_t unit : text)
        if (unit == u'\r')
            result += '|';
        else if (unit == u'\f')
            result += '^';
        else if (unit >= 0x20 && unit < 0x7F)
            result += static_cast<char>(unit);
        else
            result += "<" + std::to_string(static_cast<unsigned>(unit)) + ">";
    return result;
}

inline std::string printable(const compose::Font& font)
{
    std::string result = printable(font.name) + " " + std::to_string(font.size);
    for (const auto& [is, word] : {std::pair{font.isBold, " bold"},
                                   {font.isItalic, " italic"},
                                   {font.isUnderlined, " underlined"},
                                   {font.isStruck, " struck"}})
        if (is)
            result += word;
    return result;
}
