#include "Picture.h"

#include "SamplePictures.h"

#include <gtest/gtest.h>
#include <memory>

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#include <stb/stb_image.h>

namespace standin::model {
namespace {

void expectPicture(const std::string& file, PictureFormat format, float width, float height)
{
    const std::optional<Picture> picture = readPicture(file);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->format, format);
    EXPECT_NEAR(picture->width, width, 0.01f);
    EXPECT_NEAR(picture->height, height, 0.01f);
}

TEST(Picture, SizeOfABitmapFollowsItsResolution)
{
    expectPicture(sample::png(), PictureFormat::png, 2, 1);
    expectPicture(sample::jpeg(), PictureFormat::jpeg, 8, 8);
}

TEST(Picture, BitmapWithoutResolutionHas96DotsPerInch)
{
    expectPicture(sample::bmp(), PictureFormat::dib, 2.25f, 1.5f);
    expectPicture(sample::gif(), PictureFormat::png, 3, 6.75f);
}

TEST(Picture, SizeOfAMetafileIsItsFrame)
{
    expectPicture(sample::emf(), PictureFormat::emf, 72, 36);
    expectPicture(sample::wmf(), PictureFormat::wmf, 72, 36);
}

TEST(Picture, MetafileThatIsNotPlaceableHasTheSizeOfItsWindowOnAScreen)
{
    expectPicture(sample::plainWmf(), PictureFormat::wmf, 74.976f, 37.474f);
}

TEST(Picture, PlaceableHeaderIsNotKept)
{
    EXPECT_EQ(readPicture(sample::wmf())->bytes, sample::plainWmf());
}

TEST(Picture, BitmapIsKeptWithoutItsFileHeader)
{
    const std::string file = sample::bmp();
    EXPECT_EQ(readPicture(file)->bytes, file.substr(14));
    std::string withGap = file.substr(0, 54) + "gap!" + file.substr(54);
    withGap[10] = 58;
    EXPECT_EQ(readPicture(withGap)->bytes, file.substr(14));
}

/// A letter for each pixel of a PNG file: red, green, blue, or a dot where it is transparent.
std::string colorsOf(const std::string& png)
{
    int width = 0;
    int height = 0;
    int channels = 0;
    const std::unique_ptr<stbi_uc, decltype(&stbi_image_free)> pixels(
        stbi_load_from_memory(reinterpret_cast<const stbi_uc*>(png.data()), static_cast<int>(png.size()),
                              &width, &height, &channels, 4),
        stbi_image_free);
    std::string colors;
    for (int i = 0; pixels && i < width * height; ++i) {
        const stbi_uc* const pixel = pixels.get() + i * 4;
        colors += pixel[3] == 0 ? '.' : (pixel[0] != 0 ? 'r' : (pixel[1] != 0 ? 'g' : 'b'));
    }
    return colors;
}

TEST(Picture, GifBecomesPngWithTheSamePixels)
{
    const std::optional<Picture> picture = readPicture(sample::gif());
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->pixelWidth, 4);
    EXPECT_EQ(picture->pixelHeight, 9);
    EXPECT_EQ(colorsOf(picture->bytes), "rrrrrrrrrrrrbbbbrrrrrrrrrrrrrrrrrrgr");
    EXPECT_TRUE(readPicture(picture->bytes));
}

TEST(Picture, TransparentColorOfAGifStaysSo)
{
    std::string file = sample::gif();
    const std::size_t control = file.find("\x21\xf9");
    file[control + 3] = 1;
    file[control + 6] = 2;
    EXPECT_EQ(colorsOf(readPicture(file)->bytes), "rrrrrrrrrrrr....rrrrrrrrrrrrrrrrrrgr");
}

TEST(Picture, SizeThatWouldTakeTooMuchMemoryIsRefused)
{
    std::string file = sample::gif();
    file.replace(6, 4, sample::little(4096, 2) + sample::little(4097, 2));
    EXPECT_FALSE(readPicture(file));
    file.replace(6, 4, sample::little(65535, 2) + sample::little(65535, 2));
    EXPECT_FALSE(readPicture(file));
    file.replace(6, 4, sample::little(65535, 2) + sample::little(9, 2));
    EXPECT_TRUE(readPicture(file));
}

TEST(Picture, UnknownAndEmptyFilesAreNoPictures)
{
    EXPECT_FALSE(readPicture(""));
    EXPECT_FALSE(readPicture("BM"));
    EXPECT_FALSE(readPicture("just some text that goes on for a while and is no picture at all"));
}

TEST(Picture, EveryFileThatEndsEarlyIsRefused)
{
    for (const std::string& file : {sample::png(), sample::gif().substr(0, sample::gif().size() - 3),
                                    sample::bmp(), sample::emf(), sample::wmf(), sample::plainWmf()})
        for (std::size_t size = 0; size < file.size(); ++size)
            EXPECT_FALSE(readPicture(file.substr(0, size))) << size << " of " << file.size();
}

TEST(Picture, JpegThatEndsBeforeItsImageIsRefused)
{
    const std::string file = sample::jpeg();
    for (std::size_t size = 0; size < file.find("\xff\xda"); ++size)
        EXPECT_FALSE(readPicture(file.substr(0, size))) << size;
}

TEST(Picture, DamagedBytesNeverHarm)
{
    for (const std::string& whole : {sample::png(), sample::jpeg(), sample::gif(), sample::bmp(),
                                     sample::emf(), sample::wmf(), sample::plainWmf()}) {
        for (std::size_t i = 0; i < whole.size(); ++i) {
            for (const char value : {'\0', '\x7f', '\xff'}) {
                std::string file = whole;
                file[i] = value;
                const std::optional<Picture> picture = readPicture(file);
                EXPECT_TRUE(!picture || (picture->width > 0 && picture->height > 0));
            }
        }
    }
}

} // namespace
} // namespace standin::model
