#include "KeptPicture.h"

#include "SamplePictures.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace compose {
namespace {

namespace fs = std::filesystem;

class KeptPictureTest : public testing::Test
{
protected:
    KeptPictureTest() { fs::create_directories(folder); }
    ~KeptPictureTest() override { fs::remove_all(folder); }

    std::u16string write(const std::string& bytes) const
    {
        std::ofstream(path, std::ios::binary) << bytes;
        return path.u16string();
    }

    const fs::path folder = fs::temp_directory_path() / "kept-picture-test";
    const fs::path path = folder / "picture";
};

TEST_F(KeptPictureTest, HoldsWhatTheFileHeldWhateverBecomesOfIt)
{
    const KeptPicturePtr picture = keepPicture(write(sample::png()), 1000);
    fs::remove(path);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->file, sample::png());
    EXPECT_EQ(picture->data(), sample::png());
    EXPECT_EQ(picture->form, pictureForm(sample::png()));
    EXPECT_EQ(picture->name, path.u16string());
    EXPECT_EQ(picture->extension(), u".png");
}

TEST_F(KeptPictureTest, OfABitmapADocumentHoldsWhatFollowsTheFilesHeader)
{
    const KeptPicturePtr picture = keepPicture(write(sample::bmp()), 1000);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->file, sample::bmp());
    EXPECT_EQ(picture->data(), sample::bmp().substr(14));
    EXPECT_EQ(picture->extension(), u".bmp");
}

TEST_F(KeptPictureTest, IsNoneWhereTheFileCannotBeReadOrKnown)
{
    EXPECT_FALSE(keepPicture((folder / "missing").u16string(), 1000));
    EXPECT_FALSE(keepPicture(folder.u16string(), 1000)) << "a folder";
    EXPECT_FALSE(keepPicture(write(sample::gif()), 1000));
    EXPECT_FALSE(keepPicture(write(""), 1000));
    EXPECT_FALSE(keepPicture(u"", 1000));
    EXPECT_FALSE(keepPicture(u"CON", 1000)) << "a console, where there is one by that name";
    EXPECT_FALSE(keepPicture({u"\xD83D", 1}, 1000)) << "half a name";
}

TEST_F(KeptPictureTest, IsNoneWhereTheFileIsTooLarge)
{
    const std::size_t size = sample::jpeg().size();
    EXPECT_TRUE(keepPicture(write(sample::jpeg()), size));
    EXPECT_FALSE(keepPicture(path.u16string(), size - 1));
}

} // namespace
} // namespace compose
