#include "PositionCount.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace {

std::int32_t growth(std::u16string_view text)
{
    return positionGrowth(text);
}

TEST(PositionCountTest, PlainTextGrowsByItsLength)
{
    EXPECT_EQ(growth(u""), 0);
    EXPECT_EQ(growth(u"a"), 1);
    EXPECT_EQ(growth(u"plain text"), 10);
}

TEST(PositionCountTest, ALineFeedBehindOtherTextIsSubtracted)
{
    EXPECT_EQ(growth(u"ab\r\ncd"), 5);
    EXPECT_EQ(growth(u"ab\ncd"), 4);
    EXPECT_EQ(growth(u"ab\n"), 2);
}

TEST(PositionCountTest, ASingleLineFeedCounts)
{
    EXPECT_EQ(growth(u"\n"), 1);
    EXPECT_EQ(growth(u"\r\n"), 1);
    EXPECT_EQ(growth(u"\r"), 1);
}

TEST(PositionCountTest, ALineFeedAtTheStartEndsTheCounting)
{
    EXPECT_EQ(growth(u"\n\nx"), 3);
    EXPECT_EQ(growth(u"\na\nb"), 4);
    EXPECT_EQ(growth(u"\na\r\nb\r\nc"), 8);
}

TEST(PositionCountTest, ALineFeedRightBehindOneSubtractedEndsTheCounting)
{
    EXPECT_EQ(growth(u"a\n\nb"), 3);
    EXPECT_EQ(growth(u"a\n\nb\nc"), 5);
    EXPECT_EQ(growth(u"a\nb\n\nc\nd"), 6);
}

TEST(PositionCountTest, EveryLineOfATextWithoutEmptyLinesIsSubtracted)
{
    EXPECT_EQ(growth(u"a\r\nb\r\nc\r\n"), 6);
    EXPECT_EQ(growth(u"a\r\n\r\nb"), 4) << "the second line feed has its carriage return before it";
}

TEST(PositionCountTest, CharactersOutsideTheBasicPlaneCountTwice)
{
    EXPECT_EQ(growth(u"\U0001F600"), 2);
    EXPECT_EQ(growth(u"\U0001F600\nx"), 3);
    constexpr std::array<char16_t, 2> unpaired = {0xD83D, u'\n'};
    EXPECT_EQ(growth({unpaired.data(), unpaired.size()}), 1);
}

TEST(PositionCountTest, WideTextCountsAlike)
{
    EXPECT_EQ(positionGrowth(std::wstring_view(L"ab\r\ncd")), 5);
    EXPECT_EQ(positionGrowth(std::wstring_view(L"\n\nx")), 3);
}

TEST(PositionCountTest, CanBeCountedByTheCompiler)
{
    static_assert(positionGrowth(std::u16string_view(u"a\n\nb")) == 3);
    SUCCEED();
}

TEST(PositionCountTest, ALongTextIsCountedInOnePass)
{
    std::u16string text;
    for (int line = 0; line < 100'000; ++line)
        text += u"line\r\n";
    EXPECT_EQ(growth(text), 500'000);
}

/// The rule as it is told: search, cut, subtract, search again in the rest.
std::int32_t growthAsTold(std::u16string rest)
{
    const auto length = static_cast<std::int32_t>(rest.size());
    std::int32_t subtracted = 0;
    for (;;) {
        const std::size_t found = rest.find(u'\n');
        if (found == std::u16string::npos)
            break;
        if (found == 0)
            break;
        rest = rest.substr(found + 1);
        ++subtracted;
    }
    return length - subtracted;
}

TEST(PositionCountTest, AgreesWithTheRuleForEveryShortText)
{
    constexpr std::array letters = {u'a', u'\r', u'\n'};
    constexpr int longest = 9;
    int texts = 0;
    std::u16string text;
    const auto tryAllFrom = [&](const auto& self) -> void {
        ++texts;
        ASSERT_EQ(growth(text), growthAsTold(text)) << "text number " << texts;
        if (text.size() == longest)
            return;
        for (const char16_t letter : letters) {
            text.push_back(letter);
            self(self);
            text.pop_back();
        }
    };
    tryAllFrom(tryAllFrom);
    EXPECT_EQ(texts, 29524);
}

} // namespace
