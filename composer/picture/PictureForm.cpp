#include "PictureForm.h"

#include <cmath>

namespace compose {

namespace {

constexpr std::int64_t mostPixels = 65535; // in a row or column
constexpr double twipsPerInch = 1440;
constexpr double largestLength = 31680; // twips, of Word's pages

std::optional<std::int32_t> naturalLength(std::int64_t pixels, double resolution)
{
    const double twips = std::round(static_cast<double>(pixels) * twipsPerInch / resolution);
    if (!(twips >= 1 && twips <= largestLength))
        return {};
    return static_cast<std::int32_t>(twips);
}

} // namespace

std::optional<PictureForm> pixelForm(PictureKind kind, std::int64_t width, std::int64_t height,
                                     double horizontal, double vertical)
{
    if (width < 1 || height < 1 || width > mostPixels || height > mostPixels || !(horizontal >= 1) ||
        !(vertical >= 1))
        return {};
    const std::optional<std::int32_t> naturalWidth = naturalLength(width, horizontal);
    const std::optional<std::int32_t> naturalHeight = naturalLength(height, vertical);
    if (!naturalWidth || !naturalHeight)
        return {};
    return PictureForm{kind, static_cast<std::int32_t>(width), static_cast<std::int32_t>(height),
                       *naturalWidth, *naturalHeight};
}

std::optional<PictureForm> pictureForm(std::string_view file)
{
    for (const auto formOf : {pngForm, jpegForm, bitmapForm, emfForm})
        if (const std::optional<PictureForm> form = formOf(file))
            return form;
    return {};
}

} // namespace compose
