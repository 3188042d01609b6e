#include "EventLine.h"

#include "CodeMeaning.h"

#include <gmock/gmock.h>

namespace {

using diagnostics::eventLine;
using diagnostics::inOneLine;
using diagnostics::shortened;

TEST(EventLineTest, HasAFieldForEverything)
{
    EXPECT_EQ(eventLine({7, "c:\\a.doc", "close"}, {.what = "Document saved", .remedy = "Nothing."}),
              "#7\tc:\\a.doc\tclose\tDocument saved\t-\t-\t-\tNothing.");
    EXPECT_EQ(eventLine({1, "", "start"}, {.what = "Documents.Add failed",
                                           .code = 0x800A1234,
                                           .description = "No.",
                                           .source = "Microsoft Word"}),
              "#1\t-\tstart\tDocuments.Add failed\t0x800a1234\tNo.\tMicrosoft Word\t-");
}

TEST(EventLineTest, SaysWhatIsKnownAboutACode)
{
    const diagnostics::CodeMeaning& known = *diagnostics::meaningOf(0x800A1499);
    const std::string explained = std::string(known.meaning) + " " + std::string(known.remedy);
    EXPECT_THAT(eventLine({}, {.what = "x", .code = 0x800A1499}), testing::EndsWith("\t" + explained));
    EXPECT_THAT(eventLine({}, {.what = "x", .code = 0x800A1499, .remedy = "Wait."}),
                testing::EndsWith("\tWait."))
        << "who tells of it knows better";
}

TEST(EventLineTest, StaysOneLineOfEightFields)
{
    const std::string line = eventLine(
        {1, "a\tb", "c\nd"}, {.what = "e\r\nf", .description = "g\r\n", .source = std::string(5000, 'x')});
    EXPECT_THAT(line, testing::StartsWith("#1\ta b\tc d\te  f\t-\tg\txxx"));
    EXPECT_EQ(std::ranges::count(line, '\t'), 7);
    EXPECT_EQ(line.find_first_of("\r\n"), line.npos);
    EXPECT_LT(line.size(), 1100U) << "a field has a longest length";
}

TEST(InOneLineTest, LeavesCharactersBeyondAsciiAlone)
{
    EXPECT_EQ(inOneLine("\xC3\xA9\n\xE2\x82\xAC\x7F"
                        "z"),
              "\xC3\xA9 \xE2\x82\xAC z");
    EXPECT_EQ(inOneLine("\n\n"), "");
}

TEST(ShortenedTest, CutsBetweenCharacters)
{
    EXPECT_EQ(shortened("abc", 3), "abc");
    EXPECT_EQ(shortened("abcd", 3), "abc...");
    EXPECT_EQ(shortened("a\xE2\x82\xAC"
                        "b",
                        3),
              "a...");
    EXPECT_EQ(shortened("\x80\x80\x80", 1), "...") << "not UTF-8 at all";
    EXPECT_EQ(shortened("", 0), "");
}

} // namespace
