#include "AnchorMarkup.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::optional<AnchorMarkup> parseFirst(std::wstring_view text)
{
    return parseAnchor(text, text.find(AnchorMarkup::opening));
}

struct Parts
{
    std::wstring label;
    std::wstring target;
    std::wstring tail;

    bool operator==(const Parts&) const = default;
};

void PrintTo(const Parts& parts, std::ostream* out)
{
    *out << "label " << testing::PrintToString(parts.label) << " target "
         << testing::PrintToString(parts.target) << " tail " << testing::PrintToString(parts.tail);
}

Parts partsOf(std::wstring_view text)
{
    const std::optional<AnchorMarkup> anchor = parseFirst(text);
    if (!anchor)
        return {L"(malformed)", L"(malformed)", L"(malformed)"};
    return {std::wstring(anchor->label), std::wstring(anchor->target), std::wstring(anchor->tail)};
}

bool isMalformed(std::wstring_view text)
{
    return !parseFirst(text);
}

TEST(AnchorMarkupTest, TakesLabelTargetAndTail)
{
    EXPECT_EQ(partsOf(LR"(abc<a href="t1">Label</a>def)"), (Parts{L"Label", L"t1", L"def"}));
}

TEST(AnchorMarkupTest, LeavesTheTailEmptyAtTheEndOfTheText)
{
    EXPECT_EQ(partsOf(LR"(<a href="t">l</a>)"), (Parts{L"l", L"t", L""}));
}

TEST(AnchorMarkupTest, KeepsFurtherAnchorsInTheTail)
{
    EXPECT_EQ(partsOf(LR"(<a href="a">A</a> and <a href="b">B</a>.)"),
              (Parts{L"A", L"a", LR"( and <a href="b">B</a>.)"}));
}

TEST(AnchorMarkupTest, AllowsAnEmptyLabel)
{
    EXPECT_EQ(partsOf(LR"(<a href="t"></a>x)"), (Parts{L"", L"t", L"x"}));
}

TEST(AnchorMarkupTest, AllowsAnEmptyTarget)
{
    EXPECT_EQ(partsOf(LR"(<a href="">l</a>x)"), (Parts{L"l", L"", L"x"}));
}

TEST(AnchorMarkupTest, GivesAnEmptyTargetWhenTheBracketFollowsTheOpeningQuote)
{
    EXPECT_EQ(partsOf(LR"(<a href=">l</a>x)"), (Parts{L"l", L"", L"x"}));
}

TEST(AnchorMarkupTest, TakesTheLastCharacterOffTheTargetWhateverItIs)
{
    EXPECT_EQ(partsOf(LR"(<a href="target>l</a>)"), (Parts{L"l", L"targe", L""}));
    EXPECT_EQ(partsOf(LR"(<a href="t" class="c">l</a>)"), (Parts{L"l", LR"(t" class="c)", L""}));
    EXPECT_EQ(partsOf(LR"(<a href="t" >l</a>)"), (Parts{L"l", L"t\"", L""}));
}

TEST(AnchorMarkupTest, EndsTheTargetAtTheFirstBracket)
{
    EXPECT_EQ(partsOf(LR"(<a href="a>b">l</a>)"), (Parts{L"b\">l", L"", L""}));
    EXPECT_EQ(partsOf(LR"(<a href="t">a>b</a>)"), (Parts{L"a>b", L"t", L""}));
}

TEST(AnchorMarkupTest, EndsTheLabelAtTheFirstClosing)
{
    EXPECT_EQ(partsOf(LR"(<a href="t">l</a></a>)"), (Parts{L"l", L"t", L"</a>"}));
    EXPECT_EQ(partsOf(LR"(<a href="t"><b>l</b></a>)"), (Parts{L"<b>l</b>", L"t", L""}));
}

TEST(AnchorMarkupTest, KeepsLineEndsAndCharactersOfEveryValue)
{
    EXPECT_EQ(partsOf(L"<a href=\"t\n\xe4\x3b1\">l\r\n\xffff</a>\n"),
              (Parts{L"l\r\n\xffff", L"t\n\xe4\x3b1", L"\n"}));
}

TEST(AnchorMarkupTest, KeepsTheTargetsPrefixForItsCaller)
{
    EXPECT_EQ(partsOf(LR"(<a href="#GUID 123">l</a>)"), (Parts{L"l", L"#GUID 123", L""}));
}

TEST(AnchorMarkupTest, StartsAtThePositionItIsGiven)
{
    const std::wstring_view text = LR"(<a href="a" <a href="b">B</a>)";
    const std::size_t second = text.rfind(AnchorMarkup::opening);
    const std::optional<AnchorMarkup> anchor = parseAnchor(text, second);
    ASSERT_TRUE(anchor);
    EXPECT_EQ(anchor->target, L"b");
    EXPECT_EQ(anchor->label, L"B");
}

TEST(AnchorMarkupTest, GivesViewsOfTheText)
{
    const std::wstring text = LR"(<a href="t">l</a>rest)";
    const std::optional<AnchorMarkup> anchor = parseFirst(text);
    ASSERT_TRUE(anchor);
    EXPECT_EQ(anchor->target.data(), text.data() + 9);
    EXPECT_EQ(anchor->label.data(), text.data() + 12);
    EXPECT_EQ(anchor->tail.data(), text.data() + 17);
}

TEST(AnchorMarkupTest, RefusesATextWithoutBracket)
{
    EXPECT_TRUE(isMalformed(LR"(x<a href="t" no end)"));
    EXPECT_TRUE(isMalformed(L"<a href="));
    EXPECT_TRUE(isMalformed(L"<a href=\""));
}

TEST(AnchorMarkupTest, RefusesAnAnchorThatIsNotClosed)
{
    EXPECT_TRUE(isMalformed(LR"(<a href="t">label)"));
    EXPECT_TRUE(isMalformed(LR"(<a href="t">label</a)"));
    EXPECT_TRUE(isMalformed(LR"(<a href="t">label</A>)"));
}

TEST(AnchorMarkupTest, RefusesABracketThatStandsOnlyBehindTheClosing)
{
    EXPECT_TRUE(isMalformed(LR"(<a href="t"</a>>)"));
    EXPECT_TRUE(isMalformed(LR"(<a href="</a>)"));
}

TEST(AnchorMarkupTest, RefusesABracketThatStandsOnlyInFrontOfTheAnchor)
{
    EXPECT_TRUE(isMalformed(LR"(a>b<a href="t"</a>)"));
}

TEST(AnchorMarkupTest, RefusesAClosingInFrontOfTheAnchor)
{
    EXPECT_TRUE(isMalformed(LR"(</a><a href="t">l</a>)"));
}

TEST(AnchorMarkupTest, RefusesAClosingThatStandsWhereTheQuoteBelongs)
{
    EXPECT_TRUE(isMalformed(L"<a href=</a>"));
    EXPECT_TRUE(isMalformed(L"<a href=</a>l</a>"));
}

TEST(AnchorMarkupTest, RefusesATargetWithoutOpeningQuote)
{
    EXPECT_TRUE(isMalformed(L"<a href=t>l</a>"));
    EXPECT_TRUE(isMalformed(L"<a href='t'>l</a>"));
    EXPECT_TRUE(isMalformed(L"<a href= \"t\">l</a>"));
}

TEST(AnchorMarkupTest, RefusesEveryBeginningOfAnAnchor)
{
    const std::wstring whole = LR"(<a href="t">l</a>)";
    for (std::size_t length = AnchorMarkup::opening.size(); length < whole.size(); ++length)
        EXPECT_TRUE(isMalformed(std::wstring_view(whole).substr(0, length))) << length;
}

} // namespace
