#include "FileLookup.h"

#include "ScratchFolder.h"

#include <gtest/gtest.h>

namespace compose {
namespace {

std::wstring wide(const std::string& text)
{
    return {text.begin(), text.end()};
}

TEST(FileLookupTest, TellsAddressesFromFiles)
{
    for (const wchar_t* address :
         {L"http://a.example/", L"mailto:a@b.example", L"ab:", L"www.a.example", L"WWW.", L"file:x"})
        EXPECT_TRUE(isAddress(address)) << address;
    for (const wchar_t* name :
         {L"", L"c:\\a.doc", L"c:", L"a.doc", L"www", L":a", L"h3:x", L"\\\\a\\b", L"a/b:c"})
        EXPECT_FALSE(isAddress(name)) << name;
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
    EXPECT_FALSE(isFileThere(installDir)) << "a folder";
}

} // namespace
} // namespace compose
