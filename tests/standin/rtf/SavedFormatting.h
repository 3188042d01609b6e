#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace standin::rtf {

/// A character of a file and the formatting that the file says it has.
struct SavedCharacter
{
    char16_t unit = 0; ///< as in a story: field characters, cell and row marks included
    std::string fontName = {};
    std::int32_t halfPoints = 24;
    bool bold = false;
    bool italic = false;
    bool strikeThrough = false;
    bool hidden = false;
    std::string underline = {}; ///< RTF's word, empty without a line
    std::string color = {};     ///< "red,green,blue", empty for the automatic one
    std::string characterStyle = {};
    std::string paragraphStyle = {}; ///< of the paragraph, as its mark has it
    std::string alignment = {};      ///< likewise: RTF's word

    bool operator==(const SavedCharacter&) const = default;
};

struct SavedStory
{
    std::string part; ///< empty for the main text, else the word that begins the header or footer
    std::vector<SavedCharacter> characters;
};

/// What an RTF file in 7-bit characters says of every character, read without any of the stand-in's code: the
/// two must not share a mistake. Formatting comes from the text's own words alone, as in readers for which a
/// style is only a name. The main text comes first.
std::vector<SavedStory> readSavedFormatting(std::string_view rtf);

} // namespace standin::rtf
