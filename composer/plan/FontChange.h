#pragma once

#include "Font.h"

#include <optional>
#include <string>

namespace compose {

class StyleSheet;

/// The properties in which a text's font differs from that of its paragraph's style: what is to be direct
/// formatting, and nothing else.
struct FontChange
{
    std::optional<std::u16string> name = {};
    std::optional<float> size = {}; ///< points
    std::optional<bool> isBold = {};
    std::optional<bool> isItalic = {};
    std::optional<bool> isUnderlined = {};
    std::optional<bool> isStruck = {};

    [[nodiscard]] bool isEmpty() const { return *this == FontChange{}; }
    bool operator==(const FontChange&) const = default;
};

/// Of a text in a paragraph of the style `paragraphStyle`; no wish is the style's own font.
FontChange changeOf(const FontWish* wish, const std::u16string& paragraphStyle, StyleSheet& styles);

} // namespace compose
