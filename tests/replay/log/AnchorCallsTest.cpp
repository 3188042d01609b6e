#include "AnchorCalls.h"

#include <gtest/gtest.h>

namespace replay {
namespace {

std::string linesFor(std::string_view text)
{
    AnchorCalls calls(text);
    std::string lines;
    for (std::string next = calls.next(); !next.empty(); next = calls.next())
        lines += next;
    return lines;
}

TEST(AnchorCallsTest, AreNoneWithoutAnAnchor)
{
    EXPECT_EQ(linesFor(""), "");
    EXPECT_EQ(linesFor("a <b>c</b>"), "");
}

TEST(AnchorCallsTest, AreThreeForAnAnchor)
{
    EXPECT_EQ(linesFor("abc<a href=\"t1\">Label</a>def"), "mirovel->insertText(\"abc\");\r\n"
                                                          "mirovel->insertXref(\"Label\",\"t1\");\r\n"
                                                          "mirovel->insertText(\"def\");\r\n");
}

TEST(AnchorCallsTest, GoOnInTheTail)
{
    EXPECT_EQ(linesFor("<a href=\"#GUID 1\">a</a><a href=\"x\">b</a>"),
              "mirovel->insertText(\"\");\r\n"
              "mirovel->insertXref(\"a\",\"GUID 1\");\r\n"
              "mirovel->insertText(\"<a href=\"x\">b</a>\");\r\n"
              "mirovel->insertText(\"\");\r\n"
              "mirovel->insertXref(\"b\",\"x\");\r\n"
              "mirovel->insertText(\"\");\r\n");
}

TEST(AnchorCallsTest, BreakOffAtAMalformedAnchor)
{
    EXPECT_EQ(linesFor("x<a href=\"t\" no end"), "mirovel->insertText(\"x\");\r\n");
    EXPECT_EQ(linesFor("<a href=\"t\">l</a>y<a href=t>"), "mirovel->insertText(\"\");\r\n"
                                                          "mirovel->insertXref(\"l\",\"t\");\r\n"
                                                          "mirovel->insertText(\"y<a href=t>\");\r\n"
                                                          "mirovel->insertText(\"y\");\r\n");
}

TEST(AnchorCallsTest, KeepBytesBeyondAscii)
{
    EXPECT_EQ(linesFor("\xe4<a href=\"\xf6\">\xfc\x80</a>\xff"),
              "mirovel->insertText(\"\xe4\");\r\n"
              "mirovel->insertXref(\"\xfc\x80\",\"\xf6\");\r\n"
              "mirovel->insertText(\"\xff\");\r\n");
}

} // namespace
} // namespace replay
