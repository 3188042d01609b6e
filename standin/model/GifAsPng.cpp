#include "GifAsPng.h"

#include "ByteReader.h"

#include <limits>
#include <memory>

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_GIF
#define STBI_NO_STDIO
#include <stb/stb_image.h>

#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>

namespace standin::model {

namespace {

constexpr int channels = 4;
constexpr std::int64_t mostPixels = 1 << 24;

void skipBlocks(ByteReader& reader)
{
    for (std::size_t size = reader.byte(); size != 0; size = reader.byte())
        reader.skip(size);
}

void skipColors(ByteReader& reader, unsigned flags)
{
    if ((flags & 0x80) != 0)
        reader.skip(std::size_t{3} * (2u << (flags & 7)));
}

/// Whether the first image is all there. The decoder takes what is missing for zeros, and so would show a
/// part of it.
bool hasWholeImage(std::string_view file)
{
    ByteReader reader(file);
    reader.skip(10);
    const unsigned flags = reader.byte();
    reader.skip(2);
    skipColors(reader, flags);
    unsigned block = reader.byte();
    for (; block == '!'; block = reader.byte()) {
        reader.skip(1);
        skipBlocks(reader);
    }
    reader.skip(8);
    skipColors(reader, reader.byte());
    reader.skip(1);
    skipBlocks(reader);
    return block == ',' && !reader.failed();
}

} // namespace

std::optional<PngImage> gifAsPng(std::string_view file)
{
    if (file.size() > std::numeric_limits<int>::max() || !hasWholeImage(file))
        return std::nullopt;
    const auto* const bytes = reinterpret_cast<const stbi_uc*>(file.data());
    const auto size = static_cast<int>(file.size());
    PngImage image;
    int ignored = 0;
    if (stbi_info_from_memory(bytes, size, &image.width, &image.height, &ignored) == 0 ||
        std::int64_t{image.width} * image.height > mostPixels)
        return std::nullopt;
    const std::unique_ptr<stbi_uc, decltype(&stbi_image_free)> pixels(
        stbi_load_from_memory(bytes, size, &image.width, &image.height, &ignored, channels), stbi_image_free);
    if (!pixels)
        return std::nullopt;
    const auto append = [](void* target, void* data, int count) {
        static_cast<std::string*>(target)->append(static_cast<const char*>(data),
                                                  static_cast<std::size_t>(count));
    };
    const int written = stbi_write_png_to_func(append, &image.bytes, image.width, image.height, channels,
                                               pixels.get(), image.width * channels);
    return written != 0 ? std::optional(std::move(image)) : std::nullopt;
}

} // namespace standin::model
