#include "AnchorMarkup.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::optional<AnchorMarkup> parseFirst(std::string_view text)
{
    return parseAnchor(text, text.find(AnchorMarkup::opening));
}

struct Parts
{
    std::string label;
    std::string target;
    std::string tail;

    bool operator==(const Parts&) const = default;
};

void PrintTo(const Parts& parts, std::ostream* out)
{
    *out << "label '" << parts.label << "' target '" << parts.target << "' tail '" << parts.tail << "'";
}

Parts partsOf(std::string_view text)
{
    const std::optional<AnchorMarkup> anchor = parseFirst(text);
    if (!anchor)
        return {"(malformed)", "(malformed)", "(malformed)"};
    return {std::string(anchor->label), std::string(anchor->target), std::string(anchor->tail)};
}

bool isMalformed(std::string_view text)
{
    return !parseFirst(text);
}

TEST(AnchorMarkupTest, TakesLabelTargetAndTail)
{
    EXPECT_EQ(partsOf(R"(abc<a href="t1">Label</a>def)"), (Parts{"Label", "t1", "def"}));
}

TEST(AnchorMarkupTest, LeavesTheTailEmptyAtTheEndOfTheText)
{
    EXPECT_EQ(partsOf(R"(<a href="t">l</a>)"), (Parts{"l", "t", ""}));
}

TEST(AnchorMarkupTest, KeepsFurtherAnchorsInTheTail)
{
    EXPECT_EQ(partsOf(R"(<a href="a">A</a> and <a href="b">B</a>.)"),
              (Parts{"A", "a", R"( and <a href="b">B</a>.)"}));
}

TEST(AnchorMarkupTest, AllowsAnEmptyLabel)
{
    EXPECT_EQ(partsOf(R"(<a href="t"></a>x)"), (Parts{"", "t", "x"}));
}

TEST(AnchorMarkupTest, AllowsAnEmptyTarget)
{
    EXPECT_EQ(partsOf(R"(<a href="">l</a>x)"), (Parts{"l", "", "x"}));
}

TEST(AnchorMarkupTest, GivesAnEmptyTargetWhenTheBracketFollowsTheOpeningQuote)
{
    EXPECT_EQ(partsOf(R"(<a href=">l</a>x)"), (Parts{"l", "", "x"}));
}

TEST(AnchorMarkupTest, TakesTheLastCharacterOffTheTargetWhateverItIs)
{
    EXPECT_EQ(partsOf(R"(<a href="target>l</a>)"), (Parts{"l", "targe", ""}));
    EXPECT_EQ(partsOf(R"(<a href="t" class="c">l</a>)"), (Parts{"l", R"(t" class="c)", ""}));
    EXPECT_EQ(partsOf(R"(<a href="t" >l</a>)"), (Parts{"l", "t\"", ""}));
}

TEST(AnchorMarkupTest, EndsTheTargetAtTheFirstBracket)
{
    EXPECT_EQ(partsOf(R"(<a href="a>b">l</a>)"), (Parts{"b\">l", "", ""}));
    EXPECT_EQ(partsOf(R"(<a href="t">a>b</a>)"), (Parts{"a>b", "t", ""}));
}

TEST(AnchorMarkupTest, EndsTheLabelAtTheFirstClosing)
{
    EXPECT_EQ(partsOf(R"(<a href="t">l</a></a>)"), (Parts{"l", "t", "</a>"}));
    EXPECT_EQ(partsOf(R"(<a href="t"><b>l</b></a>)"), (Parts{"<b>l</b>", "t", ""}));
}

TEST(AnchorMarkupTest, KeepsLineEndsAndBytesOfEveryValue)
{
    EXPECT_EQ(partsOf("<a href=\"t\n\xe4\">l\r\n\xff</a>\n"), (Parts{"l\r\n\xff", "t\n\xe4", "\n"}));
}

TEST(AnchorMarkupTest, KeepsTheTargetsPrefixForItsCaller)
{
    EXPECT_EQ(partsOf(R"(<a href="#GUID 123">l</a>)"), (Parts{"l", "#GUID 123", ""}));
}

TEST(AnchorMarkupTest, StartsAtThePositionItIsGiven)
{
    const std::string_view text = R"(<a href="a" <a href="b">B</a>)";
    const std::size_t second = text.rfind(AnchorMarkup::opening);
    const std::optional<AnchorMarkup> anchor = parseAnchor(text, second);
    ASSERT_TRUE(anchor);
    EXPECT_EQ(anchor->target, "b");
    EXPECT_EQ(anchor->label, "B");
}

TEST(AnchorMarkupTest, GivesViewsOfTheText)
{
    const std::string text = R"(<a href="t">l</a>rest)";
    const std::optional<AnchorMarkup> anchor = parseFirst(text);
    ASSERT_TRUE(anchor);
    EXPECT_EQ(anchor->target.data(), text.data() + 9);
    EXPECT_EQ(anchor->label.data(), text.data() + 12);
    EXPECT_EQ(anchor->tail.data(), text.data() + 17);
}

TEST(AnchorMarkupTest, RefusesATextWithoutBracket)
{
    EXPECT_TRUE(isMalformed(R"(x<a href="t" no end)"));
    EXPECT_TRUE(isMalformed("<a href="));
    EXPECT_TRUE(isMalformed("<a href=\""));
}

TEST(AnchorMarkupTest, RefusesAnAnchorThatIsNotClosed)
{
    EXPECT_TRUE(isMalformed(R"(<a href="t">label)"));
    EXPECT_TRUE(isMalformed(R"(<a href="t">label</a)"));
    EXPECT_TRUE(isMalformed(R"(<a href="t">label</A>)"));
}

TEST(AnchorMarkupTest, RefusesABracketThatStandsOnlyBehindTheClosing)
{
    EXPECT_TRUE(isMalformed(R"(<a href="t"</a>>)"));
    EXPECT_TRUE(isMalformed(R"(<a href="</a>)"));
}

TEST(AnchorMarkupTest, RefusesABracketThatStandsOnlyInFrontOfTheAnchor)
{
    EXPECT_TRUE(isMalformed(R"(a>b<a href="t"</a>)"));
}

TEST(AnchorMarkupTest, RefusesAClosingInFrontOfTheAnchor)
{
    EXPECT_TRUE(isMalformed(R"(</a><a href="t">l</a>)"));
}

TEST(AnchorMarkupTest, RefusesAClosingThatStandsWhereTheQuoteBelongs)
{
    EXPECT_TRUE(isMalformed("<a href=</a>"));
    EXPECT_TRUE(isMalformed("<a href=</a>l</a>"));
}

TEST(AnchorMarkupTest, RefusesATargetWithoutOpeningQuote)
{
    EXPECT_TRUE(isMalformed("<a href=t>l</a>"));
    EXPECT_TRUE(isMalformed("<a href='t'>l</a>"));
    EXPECT_TRUE(isMalformed("<a href= \"t\">l</a>"));
}

TEST(AnchorMarkupTest, RefusesEveryBeginningOfAnAnchor)
{
    const std::string whole = R"(<a href="t">l</a>)";
    for (std::size_t length = AnchorMarkup::opening.size(); length < whole.size(); ++length)
        EXPECT_TRUE(isMalformed(std::string_view(whole).substr(0, length))) << length;
}

} // namespace
