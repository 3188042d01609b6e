#include "PictureForm.h"

#include "FileBytes.h"

namespace compose {

namespace {

constexpr std::uint32_t markerStart = 0xFF;
constexpr std::uint32_t imageStart = 0xD8;
constexpr std::uint32_t imageEnd = 0xD9;
constexpr std::uint32_t scanStart = 0xDA;
constexpr std::uint32_t quantizationTables = 0xDB;
constexpr std::uint32_t huffmanTables = 0xC4;
constexpr std::uint32_t firstFrame = 0xC0;
constexpr std::uint32_t lastUsualFrame = 0xC2;
constexpr std::uint32_t lastFrame = 0xCF;
constexpr std::uint32_t firstApplication = 0xE0;
constexpr std::uint32_t secondApplication = 0xE1;
constexpr std::uint32_t lastApplication = 0xEF;
constexpr std::uint32_t restartInterval = 0xDD;
constexpr std::uint32_t comment = 0xFE;

/// The segments of one image.
class Segments
{
public:
    /// False for what does not belong there, or that we do not know.
    bool add(std::uint32_t marker, std::string_view data)
    {
        switch (marker) {
        case quantizationTables:
            return hasQuantization_ = true;
        case huffmanTables:
            return hasHuffman_ = true;
        case scanStart:
            hasScan_ = true;
            return hasFrame_ && hasQuantization_ && hasHuffman_;
        case firstApplication:
            return addResolution(data);
        case secondApplication: // cameras say there how the picture is to be turned
            return !data.starts_with("Exif");
        case restartInterval:
        case comment:
            return true;
        default:
            break;
        }
        if (marker >= firstFrame && marker <= lastFrame)
            return marker <= lastUsualFrame && addFrame(data);
        return marker > secondApplication && marker <= lastApplication;
    }

    [[nodiscard]] std::optional<PictureForm> form() const
    {
        if (!hasScan_)
            return {};
        return pixelForm(PictureKind::jpeg, width_, height_, horizontal_, vertical_);
    }

private:
    bool addFrame(std::string_view data)
    {
        constexpr std::uint32_t usualPrecision = 8;
        FileBytes bytes(data);
        const std::uint32_t precision = bytes.byte();
        height_ = bytes.big16();
        width_ = bytes.big16();
        const std::uint32_t components = bytes.byte();
        bytes.skip(3 * std::size_t{components});
        const bool isFirst = !hasFrame_;
        hasFrame_ = true;
        return isFirst && precision == usualPrecision && (components == 1 || components == 3) &&
               !bytes.hasFailed() && bytes.left() == 0;
    }

    bool addResolution(std::string_view data)
    {
        constexpr std::string_view name("JFIF\0", 5);
        if (!data.starts_with(name))
            return true;
        constexpr double centimetresPerInch = 2.54;
        FileBytes bytes(data);
        bytes.skip(name.size() + 2); // the version
        const std::uint32_t unit = bytes.byte();
        const std::uint32_t x = bytes.big16();
        const std::uint32_t y = bytes.big16();
        if (unit == 1 || unit == 2) {
            const double factor = unit == 1 ? 1 : centimetresPerInch;
            horizontal_ = x * factor;
            vertical_ = y * factor;
        }
        return unit <= 2 && (unit != 0 || x == y) && !bytes.hasFailed();
    }

    bool hasQuantization_ = false;
    bool hasHuffman_ = false;
    bool hasFrame_ = false;
    bool hasScan_ = false;
    std::uint32_t width_ = 0;
    std::uint32_t height_ = 0;
    double horizontal_ = usualResolution;
    double vertical_ = usualResolution;
};

/// Skips a scan, up to the marker behind it, which it returns; 0 when there is none.
std::uint32_t skipScan(FileBytes& bytes)
{
    constexpr std::uint32_t firstRestart = 0xD0;
    constexpr std::uint32_t lastRestart = 0xD7;
    while (bytes.left() > 0) {
        if (bytes.byte() != markerStart)
            continue;
        std::uint32_t next = bytes.byte();
        while (next == markerStart)
            next = bytes.byte();
        if (next != 0 && (next < firstRestart || next > lastRestart))
            return next;
    }
    return 0;
}

std::uint32_t nextMarker(FileBytes& bytes)
{
    if (bytes.byte() != markerStart)
        return 0;
    std::uint32_t marker = bytes.byte();
    while (marker == markerStart)
        marker = bytes.byte();
    return marker;
}

} // namespace

std::optional<PictureForm> jpegForm(std::string_view file)
{
    FileBytes bytes(file);
    if (bytes.byte() != markerStart || bytes.byte() != imageStart)
        return {};
    Segments segments;
    for (std::uint32_t marker = nextMarker(bytes); marker != imageEnd;) {
        const std::uint32_t size = bytes.big16();
        if (size < 2)
            return {};
        const std::string_view data = bytes.take(size - 2);
        if (bytes.hasFailed() || !segments.add(marker, data))
            return {};
        marker = marker == scanStart ? skipScan(bytes) : nextMarker(bytes);
    }
    return bytes.left() == 0 ? segments.form() : std::nullopt;
}

} // namespace compose
