#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace compose {

enum class PictureKind
{
    png,
    jpeg,
    emf,
    bitmap
};

/// What a picture file says of itself.
struct PictureForm
{
    PictureKind kind = PictureKind::png;
    /// Pixels; of a metafile hundredths of a millimetre.
    /// @{
    std::int32_t width = 0;
    std::int32_t height = 0;
    /// @}
    /// The natural size in twips: that of a metafile's frame, or pixels by the file's resolution, which is 96
    /// to the inch where it says none.
    /// @{
    std::int32_t naturalWidth = 0;
    std::int32_t naturalHeight = 0;
    /// @}

    bool operator==(const PictureForm&) const = default;
};

/// Of a file that is whole and of a form that every reader of rich text knows: PNG; JPEG of one or three
/// components; EMF; BMP, uncompressed, of 1, 4, 8 or 24 bits a pixel. Nothing for any other file, for one
/// that is damaged, and for one that is unusual: what it comes to is then not for us to say.
std::optional<PictureForm> pictureForm(std::string_view file);

/// \name The same of a file that is of that kind, or of none
/// @{
std::optional<PictureForm> pngForm(std::string_view file);
std::optional<PictureForm> jpegForm(std::string_view file);
std::optional<PictureForm> emfForm(std::string_view file);
std::optional<PictureForm> bitmapForm(std::string_view file);
/// @}

/// Of so many pixels, at so many to the inch. Nothing for a size that no page holds.
std::optional<PictureForm> pixelForm(PictureKind kind, std::int64_t width, std::int64_t height,
                                     double horizontal, double vertical);
inline constexpr double usualResolution = 96;
inline constexpr double metresPerInch = 0.0254;

} // namespace compose
