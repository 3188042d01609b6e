#include "PictureForm.h"

#include "SamplePictures.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace compose {
namespace {

using sample::fromHex;
using sample::little;
using Kind = PictureKind;

std::string with(std::string file, std::size_t at, const std::string& bytes)
{
    return file.replace(at, bytes.size(), bytes);
}

std::optional<PictureForm> form(Kind kind, std::int32_t width, std::int32_t height, std::int32_t naturalWidth,
                                std::int32_t naturalHeight)
{
    return PictureForm{kind, width, height, naturalWidth, naturalHeight};
}

/// Of so many bits a pixel, with colours as many as that says, and no pixel but zeros.
std::string bitmap(std::int32_t width, std::int32_t height, int bits, std::uint32_t perMetre = 0)
{
    const std::size_t row = (static_cast<std::size_t>(width) * static_cast<std::size_t>(bits) + 31) / 32 * 4;
    const std::size_t palette = bits <= 8 ? std::size_t{4} << bits : 0;
    const auto start = static_cast<std::int64_t>(54 + palette);
    return "BM" + little(0, 8) + little(start, 4) + little(40, 4) + little(width, 4) + little(height, 4) +
           little(1, 2) + little(bits, 2) + little(0, 8) + little(perMetre, 4) + little(perMetre, 4) +
           little(0, 8) + std::string(palette + row * static_cast<std::size_t>(height), '\0');
}

TEST(PictureForm, TellsKindAndNaturalSizeByContentAndResolution)
{
    EXPECT_EQ(pictureForm(sample::png()), form(Kind::png, 4, 2, 40, 20));
    EXPECT_EQ(pictureForm(sample::jpeg()), form(Kind::jpeg, 8, 8, 160, 160));
    EXPECT_EQ(pictureForm(sample::emf()), form(Kind::emf, 2540, 1270, 1440, 720));
    EXPECT_EQ(pictureForm(sample::bmp()), form(Kind::bitmap, 3, 2, 45, 30));
    EXPECT_EQ(pictureForm(bitmap(64, 32, 24, 9071)), form(Kind::bitmap, 64, 32, 400, 200));
    EXPECT_EQ(pictureForm(with(sample::jpeg(), 13, fromHex("0200200020"))), form(Kind::jpeg, 8, 8, 142, 142))
        << "32 to the centimetre";
    EXPECT_EQ(pictureForm(with(sample::jpeg(), 13, fromHex("0000010001"))), form(Kind::jpeg, 8, 8, 120, 120))
        << "a ratio alone";
}

TEST(PictureForm, KnowsBitmapsOfTheUsualDepths)
{
    for (const int bits : {1, 4, 8, 24})
        EXPECT_TRUE(pictureForm(bitmap(5, 3, bits))) << bits;
    for (const int bits : {0, 2, 16, 32})
        EXPECT_FALSE(pictureForm(bitmap(5, 3, bits))) << bits;
}

TEST(PictureForm, KnowsNoFileThatIsCutOffOrGoesOn)
{
    for (const std::string& file : {sample::png(), sample::jpeg(), sample::emf(), sample::bmp()}) {
        for (std::size_t size = 0; size < file.size(); ++size)
            EXPECT_FALSE(pictureForm(std::string_view(file).substr(0, size))) << size;
        EXPECT_FALSE(pictureForm(file + '\0'));
    }
}

TEST(PictureForm, KnowsNoOtherKind)
{
    for (const std::string& file : {sample::gif(), sample::wmf(), sample::plainWmf(), std::string("text")})
        EXPECT_FALSE(pictureForm(file));
}

TEST(PictureForm, LeavesBitmapsAloneThatAreUnusual)
{
    const std::string usual = bitmap(5, 3, 8);
    ASSERT_TRUE(pictureForm(usual));
    EXPECT_FALSE(pictureForm(with(usual, 22, little(-3, 4)))) << "from the top down";
    EXPECT_FALSE(pictureForm(with(usual, 30, little(1, 4)))) << "compressed";
    EXPECT_FALSE(pictureForm(with(usual, 26, little(2, 2)))) << "two planes";
    EXPECT_FALSE(pictureForm(with(usual, 14, little(124, 4)))) << "a newer header";
    EXPECT_FALSE(pictureForm(with(usual, 46, little(257, 4)))) << "more colours than there are";
    EXPECT_FALSE(pictureForm(with(usual, 46, little(-1, 4)))) << "far more";
    EXPECT_FALSE(pictureForm(with(usual, 38, little(-1, 4)))) << "a negative resolution";
    EXPECT_FALSE(pictureForm(with(usual, 18, little(0x7FFFFFFF, 4)))) << "wider than any";
    EXPECT_FALSE(pictureForm(with(usual, 18, little(0, 4))));
    EXPECT_FALSE(pictureForm(bitmap(5, 3, 24, 39))) << "less than one dot to the inch";
}

TEST(PictureForm, LeavesPicturesAloneThatCamerasWantTurned)
{
    const std::string exif = fromHex("ffe10008") + std::string("Exif\0\0", 6);
    const std::string other = fromHex("ffe10008") + "http:/";
    const std::string file = sample::jpeg();
    EXPECT_TRUE(pictureForm(std::string(file).insert(2, other)));
    EXPECT_FALSE(pictureForm(std::string(file).insert(2, exif)));
}

TEST(PictureForm, LeavesJpegAloneThatIsUnusual)
{
    const std::string usual = sample::jpeg();
    const std::size_t frame = usual.find(fromHex("ffc00011"));
    ASSERT_NE(frame, usual.npos);
    EXPECT_TRUE(pictureForm(with(usual, frame, fromHex("ffc2")))) << "in steps";
    EXPECT_FALSE(pictureForm(with(usual, frame, fromHex("ffc3")))) << "without loss";
    EXPECT_FALSE(pictureForm(with(usual, frame + 4, fromHex("0c")))) << "of twelve bits";
    EXPECT_FALSE(pictureForm(with(usual, frame + 9, fromHex("04")))) << "of four components";
    EXPECT_FALSE(pictureForm(with(usual, frame + 5, fromHex("0000")))) << "of no height as yet";
    EXPECT_FALSE(pictureForm(with(usual, usual.find(fromHex("ffdb")), fromHex("fffe"))
                                 .replace(usual.rfind(fromHex("ffdb")), 2, fromHex("fffe"))))
        << "without its tables";
}

TEST(PictureForm, LeavesPngAloneThatIsUnusual)
{
    const std::string usual = sample::png();
    EXPECT_FALSE(pictureForm(with(usual, 29, fromHex("00")))) << "a checksum that is wrong";
    const std::string animation = fromHex("00000000") + "acTL" + fromHex("cc7be2b0");
    EXPECT_FALSE(pictureForm(std::string(usual).insert(33, animation)));
    const std::size_t palette = usual.find("PLTE") - 4;
    EXPECT_FALSE(pictureForm(std::string(usual).erase(palette, 4 + 4 + 6 + 4))) << "colours that lack";
}

TEST(PictureForm, LeavesMetafilesAloneThatContradictThemselves)
{
    const std::string usual = sample::emf();
    EXPECT_FALSE(pictureForm(with(usual, 40, " EMG")));
    EXPECT_FALSE(pictureForm(with(usual, 48, little(1, 4)))) << "another size";
    EXPECT_FALSE(pictureForm(with(usual, 52, little(2, 4)))) << "fewer records";
    EXPECT_FALSE(pictureForm(with(usual, 32, little(0, 4)))) << "no width";
    EXPECT_FALSE(pictureForm(with(usual, 32, little(0x7FFFFFFF, 4)))) << "wider than a page";
    EXPECT_FALSE(pictureForm(with(usual, 88 + 4, little(4, 4)))) << "a record without end";
}

} // namespace
} // namespace compose
