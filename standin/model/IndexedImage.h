#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace standin::model {

/// A bitmap of at most 256 colours.
struct IndexedImage
{
    using Color = std::array<std::uint8_t, 3>; ///< red, green, blue

    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::vector<Color> palette;
    std::optional<std::uint8_t> transparent; ///< the colour that shows what lies behind
    std::string pixels;                      ///< row by row from the top, each a number of a colour
};

} // namespace standin::model
