#include "sysSupport/FileNames.h"

#include <gtest/gtest.h>
#include <string>

namespace {

using fileNames::joined;
using fileNames::Parts;
using fileNames::partsOf;

/// As in a code page with characters of two bytes.
bool isHigh(char c)
{
    return static_cast<unsigned char>(c) >= 0x80;
}

std::wstring widened(const std::string& ascii)
{
    return {ascii.begin(), ascii.end()};
}

struct PartsOfName
{
    const char* name;
    std::size_t bareName;
    std::size_t extension;
    bool endsInSeparator;
};

void expectParts(const Parts& parts, const PartsOfName& row)
{
    EXPECT_EQ(parts.bareName, row.bareName) << row.name;
    EXPECT_EQ(parts.extension, row.extension) << row.name;
    EXPECT_EQ(parts.endsInSeparator, row.endsInSeparator) << row.name;
}

} // namespace

TEST(FileNamesTest, FindsThePartsOfNamesInBothEncodings)
{
    const PartsOfName rows[] = {
        {"", 0, 0, false},        {"a", 0, 1, false},          {"a.b.doc", 0, 3, false},
        {"a.", 0, 1, false},      {"c:\\a.d\\b", 7, 8, false}, {"c:/a/b.doc", 5, 6, false},
        {"c:b.doc", 2, 3, false}, {"a.b\\", 4, 4, true},       {"a/", 2, 2, true}};
    for (const PartsOfName& row : rows) {
        expectParts(partsOf(row.name, isHigh), row);
        expectParts(partsOf(widened(row.name)), row);
    }
}

TEST(FileNamesTest, TakesNoSecondByteForASeparatorOrADot)
{
    EXPECT_EQ(partsOf("a\x81\\b.c", isHigh).bareName, 0U);
    EXPECT_EQ(partsOf("a\x81.b", isHigh).extension, 4U);
    EXPECT_FALSE(partsOf("a\x81\\", isHigh).endsInSeparator);
    EXPECT_FALSE(partsOf("a\x81", isHigh).endsInSeparator) << "half a character";
    EXPECT_EQ(joined("a\x81\\", "b", isHigh), "a\x81\\\\b");
}

TEST(FileNamesTest, JoinsWithOneSeparator)
{
    const struct
    {
        const char* folder;
        const char* name;
        const char* path;
    } rows[] = {{"c:\\a", "b", "c:\\a\\b"}, {"c:\\a\\", "b", "c:\\a\\b"}, {"c:\\a\\/", "\\/b", "c:\\a\\b"},
                {"\\", "b", "\\b"},         {"", "\\b", "\\b"},           {"a", "", "a\\"}};
    for (const auto& row : rows) {
        EXPECT_EQ(joined(row.folder, row.name, isHigh), row.path);
        EXPECT_EQ(joined(widened(row.folder), widened(row.name)), widened(row.path));
    }
}

TEST(FileNamesTest, TellsAddressesFromFiles)
{
    for (const char* const address : {"http://a.b", "HTTPS:x", "ab:", "Zz:", "www.a", "WwW.a", "www."}) {
        EXPECT_TRUE(fileNames::isAddress(address)) << address;
        EXPECT_TRUE(fileNames::isAddress(widened(address))) << address;
    }
    for (const char* const file :
         {"", "a", "c:\\a", ":", "a1b:c", "@@:", "[[:", "www", "wwwx", "xwww.a", "ab"}) {
        EXPECT_FALSE(fileNames::isAddress(file)) << file;
        EXPECT_FALSE(fileNames::isAddress(widened(file))) << file;
    }
}

TEST(FileNamesTest, KnowsPicturesByTheirExtensions)
{
    for (const char* const picture : {".bmp", ".jpg", ".jpeg", ".gif", ".emf"}) {
        EXPECT_TRUE(fileNames::isPictureExtension(picture)) << picture;
        EXPECT_TRUE(fileNames::isPictureExtension(widened(picture))) << picture;
    }
    for (const char* const other : {"", ".", "bmp", ".JPG", ".jpe", ".jpegs", ".png"}) {
        EXPECT_FALSE(fileNames::isPictureExtension(other)) << other;
        EXPECT_FALSE(fileNames::isPictureExtension(widened(other))) << other;
    }
}

TEST(FileNamesTest, PicturesAreInstalledUnderTheirBareName)
{
    using fileNames::installedPicture;
    const std::pair<const char*, const char*> rows[] = {{"logo.gif", "c:\\inst\\pix\\logo.gif"},
                                                        {"logo.GIF", ""},
                                                        {"logo.doc", ""},
                                                        {"x\\logo.gif", ""},
                                                        {"c:logo.gif", ""},
                                                        {"", ""}};
    for (const auto& [name, installed] : rows)
        for (const char* const folder : {"c:\\inst", "c:\\inst\\"}) {
            EXPECT_EQ(installedPicture(folder, name, isHigh), installed) << name;
            EXPECT_EQ(installedPicture(widened(folder), widened(name)), widened(installed)) << name;
        }
    EXPECT_EQ(installedPicture("", "logo.gif", isHigh), "pix\\logo.gif");
}
