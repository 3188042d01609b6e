#include "EscapedText.h"

#include <gtest/gtest.h>

namespace rtf {
namespace {

std::string escaped(std::u16string_view text)
{
    std::string rtf;
    appendEscaped(rtf, text);
    return rtf;
}

TEST(EscapedText, LeavesAsciiAlone)
{
    EXPECT_EQ(escaped(u"a 1 ~ ' \""), "a 1 ~ ' \"");
}

TEST(EscapedText, EscapesWhatIsSyntax)
{
    EXPECT_EQ(escaped(u"\\{}"), "\\\\\\{\\}");
}

TEST(EscapedText, SaysBreaksTabsAndSpecialHyphensByWord)
{
    EXPECT_EQ(escaped(u"a\tb\vc\fd\x0E"
                      u"e\x1E\x1F\xA0"),
              "a\\tab b\\line c\\page d\\column e\\_\\-\\~");
}

TEST(EscapedText, NumbersWhatIsNotAsciiWithASign)
{
    EXPECT_EQ(escaped(u"\u00E4\u20AC\uFFFD"), "\\u228?\\u8364?\\u-3?");
}

TEST(EscapedText, WritesAPairAsTwoUnits)
{
    EXPECT_EQ(escaped(u"\U0001F600"), "\\u-10179?\\u-8704?");
}

TEST(EscapedText, ReplacesWhatCannotBeSaid)
{
    EXPECT_EQ(escaped(u"\x01\x7F"), "  ");
    EXPECT_EQ(escaped({u"\xD800x\xDC00", 3}), "\\u-3?x\\u-3?");
}

TEST(EscapedText, TellsWhatComesBackAsItIs)
{
    EXPECT_TRUE(isEscapable(u"a{\\}\t\v\f\x0E\x1E\x1F\xA0\u20AC\U0001F600"));
    EXPECT_FALSE(isEscapable(u"a\x07"));
    EXPECT_FALSE(isEscapable(u"a\x7F"));
    EXPECT_FALSE(isEscapable(u"a\r"));
    EXPECT_FALSE(isEscapable({u"a\xD83D", 2}));
    EXPECT_FALSE(isEscapable({u"\xDE00\xD83D", 2}));
}

} // namespace
} // namespace rtf
