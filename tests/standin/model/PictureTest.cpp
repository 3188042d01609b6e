#include "Picture.h"

#include "GifDecoder.h"
#include "PngEncoder.h"
#include "SamplePictures.h"

#include <gtest/gtest.h>

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

TEST(Picture, GifBecomesPngWithTheSamePixels)
{
    const std::optional<IndexedImage> image = decodeGif(sample::gif());
    ASSERT_TRUE(image);
    std::string pixels;
    for (const char pixel : image->pixels) {
        const IndexedImage::Color& color = image->palette[static_cast<unsigned char>(pixel)];
        pixels += color[0] != 0 ? 'r' : (color[1] != 0 ? 'g' : 'b');
    }
    EXPECT_EQ(pixels, "rrrrrrrrrrrrbbbbrrrrrrrrrrrrrrrrrrgr");
    const std::string png = encodePng(*image);
    EXPECT_EQ(readPicture(sample::gif())->bytes, png);
    EXPECT_TRUE(readPicture(png));
}

TEST(Picture, TransparentColorOfAGifStaysSo)
{
    std::string file = sample::gif();
    const std::size_t control = file.find("\x21\xf9");
    file[control + 3] = 1;
    file[control + 6] = 2;
    EXPECT_EQ(decodeGif(file)->transparent, 2);
    EXPECT_NE(readPicture(file)->bytes.find(std::string("tRNS\xff\xff\0", 7)), std::string::npos);
}

TEST(Picture, EncodedImageHasTheRightChecksums)
{
    IndexedImage image{1, 1, {{1, 2, 3}}, {}, std::string(1, '\0')};
    EXPECT_EQ(encodePng(image),
              sample::fromHex(
                  "89504e470d0a1a0a0000000d494844520000000100000001080300000028cb34bb00000003504c54450102030d"
                  "8764d50000000d494441547801010200fdff0000000200017e050dd20000000049454e44ae426082"
                  ""));
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
                                    sample::bmp(), sample::emf(), sample::wmf(), sample::plainWmf()}) {
        for (std::size_t size = 0; size < file.size(); ++size) {
            EXPECT_FALSE(readPicture(file.substr(0, size))) << size << " of " << file.size();
        }
    }
}

TEST(Picture, JpegThatEndsBeforeItsImageIsRefused)
{
    const std::string file = sample::jpeg();
    for (std::size_t size = 0; size < file.find("\xff\xda"); ++size) {
        EXPECT_FALSE(readPicture(file.substr(0, size))) << size;
    }
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
