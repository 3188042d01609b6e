#include "sysSupport/SysFile.h"

#include "TestFolder.h"

#include <gtest/gtest.h>
#include <string>
#include <windows.h>

namespace {

struct PathRow
{
    const char* name;
    const char* dir;
    const char* bare;
    const char* extension;
};

} // namespace

TEST(SysFileTest, ExistsForFilesOnly)
{
    const TestFolder folder;
    const QdxString file = folder.write("a.dot", "x");
    EXPECT_TRUE(SysFile::exists(file));
    EXPECT_FALSE(SysFile::exists(folder.path())) << "a directory is no file";
    EXPECT_FALSE(SysFile::exists(folder.file("b.dot")));
    for (const char* const odd : {"", "*", "a*b?", "\\\\?\\", "c:", "http://a/b"})
        EXPECT_FALSE(SysFile::exists(odd)) << odd;
}

TEST(SysFileTest, ARelativeNameCountsFromTheCurrentDirectory)
{
    const TestFolder folder;
    (void)folder.write("relative.dot", "x");
    char before[MAX_PATH];
    GetCurrentDirectoryA(MAX_PATH, before);
    EXPECT_FALSE(SysFile::exists("relative.dot"));
    ASSERT_TRUE(SetCurrentDirectoryA(folder.path().data()));
    EXPECT_TRUE(SysFile::exists("relative.dot"));
    SetCurrentDirectoryA(before);
}

TEST(SysFileTest, DeletesFiles)
{
    const TestFolder folder;
    const QdxString file = folder.write("a\xe4.doc", "x");
    EXPECT_TRUE(SysFile::exists(file));
    EXPECT_TRUE(SysFile::deleteFile(file));
    EXPECT_FALSE(SysFile::exists(file));
    EXPECT_FALSE(SysFile::deleteFile(file));
    EXPECT_FALSE(SysFile::deleteFile(""));
    EXPECT_FALSE(SysFile::deleteFile(folder.path()));
}

TEST(SysFileTest, TakesPathsApart)
{
    const PathRow rows[] = {
        {"", "", "", ""},
        {"a", "", "a", ""},
        {"a.doc", "", "a.doc", ".doc"},
        {"a.b.doc", "", "a.b.doc", ".doc"},
        {"a.", "", "a.", "."},
        {".doc", "", ".doc", ".doc"},
        {"c:\\out\\a.doc", "c:\\out", "a.doc", ".doc"},
        {"c:\\out.old\\a", "c:\\out.old", "a", ""},
        {"c:/out/a.doc", "c:/out", "a.doc", ".doc"},
        {"c:\\a.doc", "c:\\", "a.doc", ".doc"},
        {"\\a.doc", "\\", "a.doc", ".doc"},
        {"c:a.doc", "c:", "a.doc", ".doc"},
        {"out\\", "out", "", ""},
        {"out\\\\a", "out", "a", ""},
        {"..\\a.doc", "..", "a.doc", ".doc"},
        {"\\\\server\\share\\a.doc", "\\\\server\\share", "a.doc", ".doc"},
    };
    for (const PathRow& row : rows) {
        EXPECT_STREQ(SysFile::getDir(row.name).data(), row.dir) << row.name;
        EXPECT_STREQ(SysFile::stripDir(row.name).data(), row.bare) << row.name;
        EXPECT_STREQ(SysFile::getExtension(row.name).data(), row.extension) << row.name;
    }
}

TEST(SysFileTest, JoinsWithOneSeparator)
{
    EXPECT_STREQ(SysFile::appendToDir("c:\\inst", "pix\\a.bmp").data(), "c:\\inst\\pix\\a.bmp");
    EXPECT_STREQ(SysFile::appendToDir("c:\\inst\\", "a.bmp").data(), "c:\\inst\\a.bmp");
    EXPECT_STREQ(SysFile::appendToDir("c:\\inst", "\\a.bmp").data(), "c:\\inst\\a.bmp");
    EXPECT_STREQ(SysFile::appendToDir("c:\\inst\\", "\\a.bmp").data(), "c:\\inst\\a.bmp");
    EXPECT_STREQ(SysFile::appendToDir("c:/inst/", "a.bmp").data(), "c:/inst\\a.bmp");
    EXPECT_STREQ(SysFile::appendToDir("c:\\", "a.bmp").data(), "c:\\a.bmp");
    EXPECT_STREQ(SysFile::appendToDir("\\", "a.bmp").data(), "\\a.bmp");
    EXPECT_STREQ(SysFile::appendToDir("", "templates\\a.dot").data(), "templates\\a.dot");
    EXPECT_STREQ(SysFile::appendToDir("c:\\inst", "").data(), "c:\\inst\\");
}

TEST(SysFileTest, TellsAddressesFromPaths)
{
    for (const char* const address :
         {"http://a.b", "HTTPS:x", "mailto:a@b", "file:///c:/a", "ab:", "www.a.b", "WWW.a", "www."})
        EXPECT_TRUE(SysFile::isHyperLink(address)) << address;
    for (const char* const path : {"", "a", "c:\\a", "C:", ":", "a1b:c", "www", "wwwx.a", "xwww.a", "a.b:c",
                                   "\\\\server\\a", "GUID 1", "#x", "ab", "\xe4\xf6:x"})
        EXPECT_FALSE(SysFile::isHyperLink(path)) << path;
}
