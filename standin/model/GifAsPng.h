#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace standin::model {

/// A PNG file with its size in pixels.
struct PngImage
{
    std::string bytes;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// The first image of a GIF file, transparent where that is. Nothing for files that are damaged, that end
/// within that image, or whose size would take more memory than pictures are worth.
std::optional<PngImage> gifAsPng(std::string_view file);

} // namespace standin::model
