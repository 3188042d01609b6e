#include "Picture.h"

#include "ByteReader.h"
#include "GifAsPng.h"

#include <cstdlib>

namespace standin::model {

namespace {

constexpr float pointsPerInch = 72;
constexpr float usualResolution = 96;
constexpr float inchesPerMeter = 39.3700787f;
constexpr std::int32_t mostPixels = 65535; ///< in a row or column

/// Nothing for a size that no picture has. Resolutions in dots per inch; 0 when the file does not tell.
std::optional<Picture> bitmap(PictureFormat format, std::string_view bytes, std::int64_t width,
                              std::int64_t height, float horizontal = 0, float vertical = 0)
{
    if (width < 1 || height < 1 || width > mostPixels || height > mostPixels)
        return std::nullopt;
    const auto points = [](std::int64_t pixels, float resolution) {
        return static_cast<float>(pixels) * pointsPerInch / (resolution >= 1 ? resolution : usualResolution);
    };
    return Picture{format,
                   std::string(bytes),
                   points(width, horizontal),
                   points(height, vertical),
                   static_cast<std::int32_t>(width),
                   static_cast<std::int32_t>(height)};
}

std::optional<Picture> readPng(std::string_view file)
{
    ByteReader reader(file);
    reader.skip(8);
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    float horizontal = 0;
    float vertical = 0;
    bool hasData = false;
    while (!reader.failed()) {
        const std::uint32_t size = reader.bigNumber();
        const std::string_view kind = reader.take(4);
        ByteReader data(reader.take(size));
        reader.skip(4); // a checksum
        if (kind == "IHDR") {
            width = data.bigNumber();
            height = data.bigNumber();
        } else if (kind == "pHYs") {
            const std::uint32_t x = data.bigNumber();
            const std::uint32_t y = data.bigNumber();
            const bool perMeter = data.byte() == 1;
            horizontal = perMeter ? static_cast<float>(x) / inchesPerMeter : 0;
            vertical = perMeter ? static_cast<float>(y) / inchesPerMeter : 0;
        } else if (kind == "IDAT") {
            hasData = true;
        } else if (kind == "IEND") {
            return hasData && !reader.failed() ? bitmap(PictureFormat::png, file.substr(0, reader.position()),
                                                        width, height, horizontal, vertical)
                                               : std::nullopt;
        }
    }
    return std::nullopt;
}

/// Whether a JPEG segment tells the image's size.
bool isFrame(unsigned marker)
{
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

std::optional<Picture> readJpeg(std::string_view file)
{
    ByteReader reader(file);
    reader.skip(2);
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    float horizontal = 0;
    float vertical = 0;
    while (!reader.failed()) {
        if (reader.byte() != 0xFF)
            return std::nullopt;
        unsigned marker = reader.byte();
        while (marker == 0xFF)
            marker = reader.byte();
        const std::size_t size = reader.bigWord();
        if (size < 2)
            return std::nullopt;
        ByteReader segment(reader.take(size - 2));
        if (marker == 0xDA) { // the image itself
            return reader.left() > 0 ? bitmap(PictureFormat::jpeg, file, width, height, horizontal, vertical)
                                     : std::nullopt;
        }
        if (isFrame(marker)) {
            segment.skip(1);
            height = segment.bigWord();
            width = segment.bigWord();
        } else if (marker == 0xE0 && segment.take(5) == std::string_view("JFIF\0", 5)) {
            constexpr float centimetersPerInch = 2.54f;
            segment.skip(2);
            const unsigned unit = segment.byte();
            const float factor = unit == 1 ? 1.0f : (unit == 2 ? centimetersPerInch : 0.0f);
            horizontal = static_cast<float>(segment.bigWord()) * factor;
            vertical = static_cast<float>(segment.bigWord()) * factor;
        }
    }
    return std::nullopt;
}

std::optional<Picture> readGif(std::string_view file)
{
    const std::optional<PngImage> image = gifAsPng(file);
    return image ? bitmap(PictureFormat::png, image->bytes, image->width, image->height) : std::nullopt;
}

/// Where the header of a bitmap ends and its colours begin, and how many bytes those have.
struct BitmapHead
{
    std::uint32_t size = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::uint32_t bits = 0;
    std::uint32_t compression = 0;
    std::uint32_t horizontal = 0; ///< dots per metre
    std::uint32_t vertical = 0;
    std::uint32_t colors = 0;

    std::uint64_t colorBytes() const
    {
        const bool isOld = size == 12;
        const std::uint64_t masks = size == 40 && compression == 3 ? 12 : 0;
        const std::uint64_t count = colors != 0 ? colors : (bits <= 8 ? 1u << bits : 0u);
        return masks + count * (isOld ? 3 : 4);
    }
    /// The pixels' bytes when they are not compressed.
    std::uint64_t pixelBytes() const
    {
        return (static_cast<std::uint64_t>(width) * bits + 31) / 32 * 4 * static_cast<std::uint64_t>(height);
    }
};

BitmapHead readBitmapHead(ByteReader reader)
{
    BitmapHead head;
    head.size = reader.number();
    if (head.size == 12) {
        head.width = reader.word();
        head.height = reader.word();
        reader.skip(2);
        head.bits = reader.word();
        return head;
    }
    head.width = reader.signedNumber();
    head.height = std::abs(std::int64_t{reader.signedNumber()}); // negative: the top row comes first
    reader.skip(2);
    head.bits = reader.word();
    head.compression = reader.number();
    reader.skip(4);
    head.horizontal = reader.number();
    head.vertical = reader.number();
    head.colors = reader.number();
    return head;
}

std::optional<Picture> readBmp(std::string_view file)
{
    ByteReader reader(file);
    reader.skip(10);
    const std::uint64_t pixels = reader.number();
    constexpr std::size_t fileHeader = 14;
    const BitmapHead head = readBitmapHead(reader);
    const std::uint64_t headEnd = fileHeader + head.size + head.colorBytes();
    const bool knowsBits = head.bits >= 1 && head.bits <= 32;
    if ((head.size != 12 && head.size < 40) || head.size > file.size() || !knowsBits || headEnd > pixels ||
        pixels >= file.size() || head.width < 1 || head.width > mostPixels || head.height > mostPixels)
        return std::nullopt;
    const bool isPlain = head.compression == 0 || head.compression == 3;
    if (isPlain && head.pixelBytes() > file.size() - pixels)
        return std::nullopt;
    // In a document nothing lies between the colours and the pixels.
    std::string bytes(file.substr(fileHeader, headEnd - fileHeader));
    bytes += file.substr(pixels);
    const auto resolution = [](std::uint32_t perMeter) {
        return static_cast<float>(perMeter) / inchesPerMeter;
    };
    return bitmap(PictureFormat::dib, bytes, head.width, head.height, resolution(head.horizontal),
                  resolution(head.vertical));
}

/// `width` and `height` in hundredths of a millimetre.
std::optional<Picture> metafile(PictureFormat format, std::string_view bytes, std::int64_t width,
                                std::int64_t height)
{
    constexpr float perInch = 2540;
    constexpr std::int64_t largest = 1000000;
    if (width < 1 || height < 1 || width > largest || height > largest)
        return std::nullopt;
    return Picture{format,
                   std::string(bytes),
                   static_cast<float>(width) * pointsPerInch / perInch,
                   static_cast<float>(height) * pointsPerInch / perInch,
                   static_cast<std::int32_t>(width),
                   static_cast<std::int32_t>(height)};
}

std::optional<Picture> readEmf(std::string_view file)
{
    constexpr std::uint32_t lastRecord = 14;
    ByteReader header(file);
    header.skip(24);
    const std::int64_t left = header.signedNumber();
    const std::int64_t top = header.signedNumber();
    const std::int64_t right = header.signedNumber();
    const std::int64_t bottom = header.signedNumber();
    ByteReader records(file);
    while (!records.failed()) {
        const std::uint32_t kind = records.number();
        const std::uint32_t size = records.number();
        if (size < 8)
            return std::nullopt;
        records.skip(size - 8);
        if (kind == lastRecord && !records.failed()) {
            return metafile(PictureFormat::emf, file.substr(0, records.position()), right - left,
                            bottom - top);
        }
    }
    return std::nullopt;
}

bool isMetafileHeader(std::string_view bytes)
{
    ByteReader reader(bytes);
    const unsigned kind = reader.word();
    const unsigned headerWords = reader.word();
    const unsigned version = reader.word();
    return (kind == 1 || kind == 2) && headerWords == 9 && (version == 0x100 || version == 0x300);
}

bool endsProperly(std::string_view metafile)
{
    ByteReader reader(metafile);
    reader.skip(18);
    while (!reader.failed()) {
        const std::uint32_t words = reader.number();
        const unsigned function = reader.word();
        if (words < 3 || reader.failed())
            return false;
        if (function == 0)
            return true;
        reader.skip(std::size_t{words} * 2 - 6);
    }
    return false;
}

std::optional<Picture> readPlaceableWmf(std::string_view file)
{
    constexpr std::size_t placeableHeader = 22;
    ByteReader reader(file);
    reader.skip(6);
    const std::int64_t left = reader.signedWord();
    const std::int64_t top = reader.signedWord();
    const std::int64_t right = reader.signedWord();
    const std::int64_t bottom = reader.signedWord();
    const std::int64_t unitsPerInch = reader.word();
    if (file.size() < placeableHeader || unitsPerInch == 0)
        return std::nullopt;
    const std::string_view metafileBytes = file.substr(placeableHeader);
    if (!isMetafileHeader(metafileBytes) || !endsProperly(metafileBytes))
        return std::nullopt;
    const auto hundredths = [unitsPerInch](std::int64_t units) {
        return std::abs(units) * 2540 / unitsPerInch;
    };
    return metafile(PictureFormat::wmf, metafileBytes, hundredths(right - left), hundredths(bottom - top));
}

/// Without the placeable header the picture's size is that of the window it draws into, taken as screen
/// pixels.
std::optional<Picture> readPlainWmf(std::string_view file)
{
    constexpr unsigned setWindowExtent = 0x020C;
    if (!endsProperly(file))
        return std::nullopt;
    ByteReader reader(file);
    reader.skip(18);
    while (!reader.failed()) {
        const std::uint32_t words = reader.number();
        const unsigned function = reader.word();
        ByteReader data(reader.take(std::size_t{words} * 2 - 6));
        if (function == setWindowExtent) {
            const std::int64_t height = std::abs(data.signedWord());
            const std::int64_t width = std::abs(data.signedWord());
            return metafile(PictureFormat::wmf, file, width * 2540 / 96, height * 2540 / 96);
        }
        if (function == 0)
            break;
    }
    return std::nullopt;
}

} // namespace

std::optional<Picture> readPicture(std::string_view file)
{
    if (file.starts_with("\x89PNG\r\n\x1a\n"))
        return readPng(file);
    if (file.starts_with("\xFF\xD8\xFF"))
        return readJpeg(file);
    if (file.starts_with("GIF8"))
        return readGif(file);
    if (file.starts_with("BM"))
        return readBmp(file);
    if (file.starts_with(std::string_view("\x01\0\0\0", 4)) && file.size() > 44 &&
        file.substr(40, 4) == " EMF")
        return readEmf(file);
    if (file.starts_with("\xD7\xCD\xC6\x9A"))
        return readPlaceableWmf(file);
    return isMetafileHeader(file) ? readPlainWmf(file) : std::nullopt;
}

} // namespace standin::model
