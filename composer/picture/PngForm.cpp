#include "PictureForm.h"

#include "FileBytes.h"

namespace compose {

namespace {

constexpr std::string_view signature("\x89PNG\r\n\x1a\n", 8);

std::uint32_t checksum(std::string_view kind, std::string_view data)
{
    constexpr std::uint32_t polynomial = 0xEDB88320;
    std::uint32_t sum = 0xFFFFFFFF;
    for (const std::string_view piece : {kind, data})
        for (const char byte : piece) {
            sum ^= static_cast<unsigned char>(byte);
            for (int bit = 0; bit < 8; ++bit)
                sum = (sum & 1U) != 0 ? sum >> 1U ^ polynomial : sum >> 1U;
        }
    return ~sum;
}

/// Whether there are such colours of so many bits each.
bool isColor(std::uint32_t type, std::uint32_t bits)
{
    switch (type) {
    case 0:
        return bits == 1 || bits == 2 || bits == 4 || bits == 8 || bits == 16;
    case 3:
        return bits == 1 || bits == 2 || bits == 4 || bits == 8;
    case 2:
    case 4:
    case 6:
        return bits == 8 || bits == 16;
    default:
        return false;
    }
}

/// The chunks of one image, in their order.
class Chunks
{
public:
    /// False for what does not belong there, or that we do not know.
    bool add(std::string_view kind, std::string_view data)
    {
        if (isFirst_ != (kind == "IHDR"))
            return false;
        isFirst_ = false;
        const bool goesOn = lastWasImage_ && kind == "IDAT";
        lastWasImage_ = kind == "IDAT";
        if (kind == "IHDR")
            return addHeader(data);
        if (kind == "IDAT") {
            const bool begins = !hasImage_;
            hasImage_ = true;
            return (begins && (hasPalette_ || !needsPalette_)) || goesOn;
        }
        if (kind == "PLTE") {
            hasPalette_ = true;
            return !hasImage_ && data.size() % 3 == 0;
        }
        if (kind == "pHYs")
            return addResolution(data);
        if (kind == "IEND")
            return hasImage_ && data.empty();
        const bool isAncillary = (kind.front() & 0x20) != 0;
        const bool isAnimation = kind == "acTL";
        return isAncillary && !isAnimation;
    }

    [[nodiscard]] std::optional<PictureForm> form() const
    {
        return pixelForm(PictureKind::png, width_, height_, horizontal_, vertical_);
    }

private:
    bool addHeader(std::string_view data)
    {
        FileBytes bytes(data);
        width_ = bytes.big32();
        height_ = bytes.big32();
        const std::uint32_t bits = bytes.byte();
        const std::uint32_t color = bytes.byte();
        needsPalette_ = color == 3;
        const bool isUsual = bytes.byte() == 0 && bytes.byte() == 0 && bytes.byte() <= 1;
        return isUsual && isColor(color, bits) && !bytes.hasFailed() && bytes.left() == 0;
    }

    bool addResolution(std::string_view data)
    {
        constexpr std::uint32_t perMetre = 1;
        FileBytes bytes(data);
        const std::uint32_t x = bytes.big32();
        const std::uint32_t y = bytes.big32();
        const std::uint32_t unit = bytes.byte();
        if (unit == perMetre) {
            horizontal_ = x * metresPerInch;
            vertical_ = y * metresPerInch;
        }
        return (unit == perMetre || x == y) && !bytes.hasFailed() && bytes.left() == 0 && !hasImage_;
    }

    bool isFirst_ = true;
    bool lastWasImage_ = false;
    bool hasImage_ = false;
    bool hasPalette_ = false;
    bool needsPalette_ = false;
    std::uint32_t width_ = 0;
    std::uint32_t height_ = 0;
    double horizontal_ = usualResolution;
    double vertical_ = usualResolution;
};

} // namespace

std::optional<PictureForm> pngForm(std::string_view file)
{
    FileBytes bytes(file);
    if (bytes.take(signature.size()) != signature)
        return {};
    Chunks chunks;
    while (bytes.left() > 0) {
        const std::uint32_t size = bytes.big32();
        const std::string_view kind = bytes.take(4);
        const std::string_view data = bytes.take(size);
        const std::uint32_t sum = bytes.big32();
        if (bytes.hasFailed() || sum != checksum(kind, data) || !chunks.add(kind, data))
            return {};
        if (kind == "IEND")
            return bytes.left() == 0 ? chunks.form() : std::nullopt;
    }
    return {};
}

} // namespace compose
