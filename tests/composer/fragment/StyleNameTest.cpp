#include "StyleName.h"

#include <gtest/gtest.h>

namespace compose {
namespace {

TEST(StyleName, OfBuiltInStylesIsThatOfWordsFiles)
{
    EXPECT_EQ(rtfStyleName(u"Heading 1"), u"heading 1");
    EXPECT_EQ(rtfStyleName(u"HEADING 9"), u"heading 9");
    EXPECT_EQ(rtfStyleName(u"TOC 3"), u"toc 3");
    EXPECT_EQ(rtfStyleName(u"Header"), u"header");
    EXPECT_EQ(rtfStyleName(u"Footer"), u"footer");
    EXPECT_EQ(rtfStyleName(u"Comment Text"), u"annotation text");
    EXPECT_EQ(rtfStyleName(u"normal"), u"Normal");
}

TEST(StyleName, IsKeptWhereWordKeepsIt)
{
    EXPECT_EQ(rtfStyleName(u"Title"), u"Title");
    EXPECT_EQ(rtfStyleName(u"Body Text"), u"Body Text");
    EXPECT_EQ(rtfStyleName(u"\u00DCberschrift 1"), u"\u00DCberschrift 1");
}

TEST(StyleName, IsNotTakenForABuiltInOneThatIsOnlyAlike)
{
    EXPECT_EQ(rtfStyleName(u"Heading 0"), u"Heading 0");
    EXPECT_EQ(rtfStyleName(u"Heading 10"), u"Heading 10");
    EXPECT_EQ(rtfStyleName(u"Heading"), u"Heading");
    EXPECT_EQ(rtfStyleName(u"My Heading 1"), u"My Heading 1");
    EXPECT_EQ(rtfStyleName(u""), u"");
}

} // namespace
} // namespace compose
