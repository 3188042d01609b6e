#include "PngEncoder.h"

#include <algorithm>
#include <string_view>

namespace standin::model {

namespace {

std::string bigNumber(std::uint32_t value)
{
    return {static_cast<char>(value >> 24), static_cast<char>(value >> 16), static_cast<char>(value >> 8),
            static_cast<char>(value)};
}

std::uint32_t crc(std::string_view bytes)
{
    std::uint32_t value = 0xFFFFFFFF;
    for (const char c : bytes) {
        value ^= static_cast<unsigned char>(c);
        for (int bit = 0; bit < 8; ++bit) {
            value = value >> 1 ^ ((value & 1) != 0 ? 0xEDB88320 : 0);
        }
    }
    return ~value;
}

std::uint32_t adler(std::string_view bytes)
{
    std::uint32_t low = 1;
    std::uint32_t high = 0;
    for (const char c : bytes) {
        low = (low + static_cast<unsigned char>(c)) % 65521;
        high = (high + low) % 65521;
    }
    return high << 16 | low;
}

std::string chunk(std::string_view kind, std::string_view data)
{
    std::string body(kind);
    body += data;
    return bigNumber(static_cast<std::uint32_t>(data.size())) + body + bigNumber(crc(body));
}

/// The form of compressed data that holds the bytes as they are.
std::string stored(std::string_view bytes)
{
    constexpr std::size_t longest = 65535;
    std::string data("\x78\x01", 2);
    do {
        const std::string_view part = bytes.substr(0, longest);
        bytes.remove_prefix(part.size());
        const auto size = static_cast<std::uint16_t>(part.size());
        const auto inverse = static_cast<std::uint16_t>(~size);
        data += {static_cast<char>(bytes.empty()), static_cast<char>(size), static_cast<char>(size >> 8),
                 static_cast<char>(inverse), static_cast<char>(inverse >> 8)};
        data += part;
    } while (!bytes.empty());
    return data;
}

std::string palette(const IndexedImage& image)
{
    std::string data;
    for (const IndexedImage::Color& color : image.palette) {
        data.append(color.begin(), color.end());
    }
    return data;
}

} // namespace

std::string encodePng(const IndexedImage& image)
{
    std::string header = bigNumber(image.width) + bigNumber(image.height);
    header += {8, 3, 0, 0, 0}; // 8 bits, numbers of colours
    std::string rows;
    for (std::uint32_t row = 0; row < image.height; ++row) {
        rows += '\0'; // not filtered
        rows.append(image.pixels, std::size_t{row} * image.width, image.width);
    }
    std::string file = "\x89PNG\r\n\x1a\n" + chunk("IHDR", header) + chunk("PLTE", palette(image));
    if (image.transparent) {
        std::string opacity(*image.transparent, '\xff');
        opacity += '\0';
        file += chunk("tRNS", opacity);
    }
    return file + chunk("IDAT", stored(rows) + bigNumber(adler(rows))) + chunk("IEND", "");
}

} // namespace standin::model
