#include "FileLookup.h"

#include "ScratchFolder.h"

#include <gtest/gtest.h>

namespace compose {
namespace {

std::wstring wide(const std::string& text)
{
    return {text.begin(), text.end()};
}

TEST(FileLookupTest, FindsExtensionAndName)
{
    EXPECT_EQ(extensionOf(L"c:\\a.b\\c.Doc"), L".Doc");
    EXPECT_EQ(extensionOf(L"c:\\a.b\\c"), L"");
    EXPECT_EQ(extensionOf(L"a.tar.gz"), L".gz");
    EXPECT_EQ(extensionOf(L""), L"");
    EXPECT_EQ(withoutFolder(L"c:\\a/b.doc"), L"b.doc");
    EXPECT_EQ(withoutFolder(L"c:b.doc"), L"b.doc");
    EXPECT_TRUE(isPicture(L"a.jpeg"));
    EXPECT_FALSE(isPicture(L"a.JPG"));
    EXPECT_FALSE(isPicture(L"a.png"));
}

TEST(FileLookupTest, FindsPicturesOfTheInstallation)
{
    const ScratchFolder folder;
    const std::wstring installed = wide(folder.write("pix\\a.bmp", "picture"));
    folder.write("pix\\a.txt", "text");
    const std::wstring installDir = wide(folder.file("pix")).substr(0, wide(folder.file("pix")).size() - 4);
    EXPECT_EQ(findFile(L"a.bmp", installDir), installed);
    EXPECT_EQ(findFile(L"a.bmp", installDir + L"\\"), installed);
    EXPECT_EQ(findFile(installed, L""), installed);
    EXPECT_FALSE(findFile(L"a.txt", installDir)) << "no picture";
    EXPECT_FALSE(findFile(L"x\\a.bmp", installDir)) << "in a folder of its own";
    EXPECT_FALSE(findFile(L"b.bmp", installDir));
    EXPECT_FALSE(findFile(L"", installDir));
    EXPECT_FALSE(findFile(installDir, L"")) << "a folder";
}

} // namespace
} // namespace compose
