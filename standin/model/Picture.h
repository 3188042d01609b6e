#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace standin::model {

/// What a picture's bytes are.
enum class PictureFormat
{
    png,
    jpeg,
    emf,
    wmf, ///< without the header that makes it placeable
    dib  ///< a bitmap file without its file header
};

/// A picture as a document holds it.
struct Picture
{
    PictureFormat format = PictureFormat::png;
    std::string bytes;
    float width = 0; ///< natural size, points
    float height = 0;
    std::int32_t pixelWidth = 0; ///< of a bitmap; of a metafile hundredths of a millimetre
    std::int32_t pixelHeight = 0;
};

/// The picture in a file: PNG, JPEG, GIF (its first image, as PNG), BMP, EMF or WMF, told by its content.
/// Nothing for other and for damaged files. A bitmap that does not tell its resolution has 96 dots per inch.
std::optional<Picture> readPicture(std::string_view file);

} // namespace standin::model
