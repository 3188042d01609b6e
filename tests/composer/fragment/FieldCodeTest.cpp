#include "FieldCode.h"

#include <gtest/gtest.h>

namespace compose {
namespace {

TEST(FieldCode, OfAnEntryHasItsTextItsTableAndItsLevel)
{
    EXPECT_EQ(entryArguments({u"Results", 2}), uR"("Results" \fC \l "2")");
    EXPECT_EQ(entryCode({u"Results", 9}), uR"( TC "Results" \fC \l "9" )");
}

TEST(FieldCode, OfAnEntryEscapesWhatIsSyntax)
{
    EXPECT_EQ(entryArguments({u"a \"b\" c:\\d", 1}), uR"("a \"b\" c:\\d" \fC \l "1")");
}

TEST(FieldCode, OfAnEntryIsOneLine)
{
    EXPECT_EQ(entryArguments({u"a\r\nb\r\rc", 1}), uR"("a b c" \fC \l "1")");
}

TEST(FieldCode, OfAnEntryIsNeverCut)
{
    const std::u16string text(5000, u'x');
    EXPECT_EQ(entryArguments({text, 1}), u"\"" + text + uR"(" \fC \l "1")");
}

TEST(FieldCode, OfALinkLeadsToAnAddressOrABookmark)
{
    EXPECT_EQ(linkCode({u"http://example.com/", u""}), uR"( HYPERLINK "http://example.com/" )");
    EXPECT_EQ(linkCode({u"", u"b1"}), uR"( HYPERLINK  \l "b1" )");
}

TEST(FieldCode, OfALinkEscapesWhatIsSyntax)
{
    EXPECT_EQ(linkCode({u"\\\\server\\a \"b\"", u""}), uR"( HYPERLINK "\\\\server\\a \"b\"" )");
}

TEST(FieldCode, IsThatOfTheClientsNumber)
{
    EXPECT_EQ(fieldCode(1), u" DATE ");
    EXPECT_EQ(fieldCode(2), u" TIME ");
    EXPECT_EQ(fieldCode(3), u" FILENAME ");
    EXPECT_EQ(fieldCode(4), u" PAGE ");
    EXPECT_EQ(fieldCode(0), u"");
    EXPECT_EQ(fieldCode(5), u"");
}

} // namespace
} // namespace compose
