#pragma once

#include "RandomContent.h"

#include <string>
#include <vector>

namespace compose {

/// What a document shows of the content, a line for each character, mark, field, entry, bookmark and row,
/// with the looks that it has there.
std::vector<std::string> tokensOf(const RandomContent& content, float textWidth);

/// \name The lines
/// @{
struct Look
{
    Font font;
    std::string link; ///< where it leads; empty: nowhere
};
std::string printable(std::u16string_view text);
std::string characterToken(char16_t c, const Look& look);
std::string fieldToken(std::string_view keyword, const Look& look);
std::string entryToken(std::u16string_view text, int level);
std::string tagToken(std::u16string_view bookmark);
std::string pageBreakToken();
/// Lengths as the form has them; `data`: the picture itself.
std::string pictureToken(const PictureForm& form, std::string_view data, const std::string& link);
/// "par" or "cell".
std::string markToken(std::string_view kind, const std::u16string& rtfStyle, int wordAlignment,
                      const std::string& link);
/// Edges and height in twips.
std::string rowToken(const std::vector<int>& edges, int height);
/// @}

} // namespace compose
