#include "PictureForm.h"

#include "FileBytes.h"

namespace compose {

namespace {

constexpr std::uint32_t fileHeaderSize = 14;
constexpr std::uint32_t headerSize = 40;

double resolution(std::int32_t perMetre)
{
    return perMetre == 0 ? usualResolution : perMetre * metresPerInch;
}

} // namespace

// With nothing between the headers, the colours and the pixels, and nothing behind them, the file is a
// document's bitmap with a header in front.
std::optional<PictureForm> bitmapForm(std::string_view file)
{
    FileBytes bytes(file);
    if (bytes.take(2) != "BM")
        return {};
    bytes.skip(8); // the file's size, and nothing
    const std::uint32_t pixelsAt = bytes.little32();
    const std::uint32_t size = bytes.little32();
    const std::int64_t width = bytes.signed32();
    const std::int64_t height = bytes.signed32();
    const std::uint32_t planes = bytes.little16();
    const std::uint32_t bits = bytes.little16();
    const std::uint32_t compression = bytes.little32();
    bytes.skip(4); // of the pixels
    const std::int32_t horizontal = bytes.signed32();
    const std::int32_t vertical = bytes.signed32();
    const std::uint32_t colors = bytes.little32();
    bytes.skip(4); // the important colours
    if (bytes.hasFailed() || size != headerSize || planes != 1 || compression != 0 || horizontal < 0 ||
        vertical < 0 || (bits != 1 && bits != 4 && bits != 8 && bits != 24))
        return {};
    const std::optional<PictureForm> form =
        pixelForm(PictureKind::bitmap, width, height, resolution(horizontal), resolution(vertical));
    const std::uint64_t mostColors = bits == 24 ? 0 : std::uint64_t{1} << bits;
    const std::uint64_t palette = 4 * (colors == 0 ? mostColors : std::uint64_t{colors});
    if (!form || colors > mostColors || pixelsAt != fileHeaderSize + headerSize + palette)
        return {};
    const std::uint64_t row = (static_cast<std::uint64_t>(width) * bits + 31) / 32 * 4;
    return file.size() == pixelsAt + row * static_cast<std::uint64_t>(height) ? form : std::nullopt;
}

} // namespace compose
