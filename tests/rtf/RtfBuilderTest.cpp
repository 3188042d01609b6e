#include "RtfBuilder.h"

#include <gtest/gtest.h>

namespace rtf {
namespace {

TEST(RtfBuilder, DelimitsAWordFromText)
{
    RtfBuilder rtf;
    rtf.open();
    rtf.word("fs", 24);
    rtf.text(u"7 days");
    rtf.close();
    EXPECT_EQ(rtf.take(), "{\\fs24 7 days}");
}

TEST(RtfBuilder, DelimitsNothingElse)
{
    RtfBuilder rtf;
    rtf.text(u"a");
    rtf.word("par");
    rtf.endLine();
    rtf.openIgnorable();
    rtf.word("x");
    rtf.word("li", -3);
    rtf.close();
    rtf.text(u"b");
    EXPECT_EQ(rtf.take(), "a\\par\n{\\*\\x\\li-3}b");
}

TEST(RtfBuilder, KeepsASpaceThatTextBeginsWith)
{
    RtfBuilder rtf;
    rtf.word("b");
    rtf.text(u"");
    rtf.text(u" a");
    EXPECT_EQ(rtf.take(), "\\b  a");
}

TEST(RtfBuilder, IsEmptyAfterItsTextWasTaken)
{
    RtfBuilder rtf;
    rtf.text(u"a");
    EXPECT_EQ(rtf.take(), "a");
    EXPECT_EQ(rtf.take(), "");
}

} // namespace
} // namespace rtf
