#pragma once

#include <memory>
#include <optional>
#include <string>

namespace compose {

enum class FontProperty : unsigned
{
    name,
    size,
    bold,
    italic,
    underline,
    strike
};

/// A font in full, as a style gives it.
struct Font
{
    std::u16string name;
    float size = 0; ///< points
    bool isBold = false;
    bool isItalic = false;
    bool isUnderlined = false;
    bool isStruck = false;

    bool operator==(const Font&) const = default;
};

/// What the client said about the font of a text: a style's font, changed here and there.
struct FontWish
{
    std::u16string style; ///< whose font it starts from
    std::optional<std::u16string> name = {};
    std::optional<int> size = {}; ///< points; 0: that of the paragraph's style
    std::optional<bool> isBold = {};
    std::optional<bool> isItalic = {};
    std::optional<bool> isUnderlined = {};
    std::optional<bool> isStruck = {};

    bool operator==(const FontWish&) const = default;
};

/// Runs share what they have in common.
using FontWishPtr = std::shared_ptr<const FontWish>;

} // namespace compose
