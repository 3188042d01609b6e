#include "TocFieldText.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr std::size_t longestText = 1007;

bool noLeadBytes(unsigned char)
{
    return false;
}

// As in the code page of Japanese.
bool japaneseLeadByte(unsigned char byte)
{
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

std::string fieldText(const std::string& entry, int level, LeadByteTest isLeadByte = noLeadBytes)
{
    const QdxString text = tocFieldText(entry.c_str(), level, isLeadByte);
    return {text.data(), text.length()};
}

TEST(TocFieldTextTest, QuotesEntryAndLevel)
{
    EXPECT_EQ(fieldText("Overview", 2), R"("Overview" \fC \l "2")");
    EXPECT_EQ(fieldText("A longer entry, with signs: \\ / %s %d", 0),
              R"("A longer entry, with signs: \ / %s %d" \fC \l "0")");
}

TEST(TocFieldTextTest, WritesAnyLevel)
{
    EXPECT_EQ(fieldText("x", 10), R"("x" \fC \l "10")");
    EXPECT_EQ(fieldText("x", -3), R"("x" \fC \l "-3")");
    EXPECT_EQ(fieldText("x", 2147483647), R"("x" \fC \l "2147483647")");
    EXPECT_EQ(fieldText("x", -2147483647 - 1), R"("x" \fC \l "-2147483648")");
}

TEST(TocFieldTextTest, AnEmptyEntryStaysQuoted)
{
    EXPECT_EQ(fieldText("", 1), R"("" \fC \l "1")");
}

TEST(TocFieldTextTest, AnEntryThatJustFitsIsWhole)
{
    const std::string suffix = R"(" \fC \l "1")";
    const std::string entry(longestText - 1 - suffix.size(), 'e');
    const std::string text = fieldText(entry, 1);
    EXPECT_EQ(text.size(), longestText);
    EXPECT_EQ(text, "\"" + entry + suffix);
}

TEST(TocFieldTextTest, ALongEntryIsCutAndTheSwitchesStay)
{
    const std::string suffix = R"(" \fC \l "1")";
    const std::size_t room = longestText - 1 - suffix.size();
    EXPECT_EQ(fieldText(std::string(room + 1, 'e'), 1), "\"" + std::string(room, 'e') + suffix);
    EXPECT_EQ(fieldText(std::string(1'000'000, 'e'), 1), "\"" + std::string(room, 'e') + suffix);
}

TEST(TocFieldTextTest, ALongLevelLeavesLessRoom)
{
    const std::string text = fieldText(std::string(2000, 'e'), -2147483647 - 1);
    EXPECT_EQ(text.size(), longestText);
    const std::string suffix = R"(" \fC \l "-2147483648")";
    EXPECT_EQ(text.substr(text.size() - suffix.size()), suffix);
}

TEST(TocFieldTextTest, ATwoByteCharacterIsNotCutInHalf)
{
    const std::string suffix = R"(" \fC \l "1")";
    const std::size_t room = longestText - 1 - suffix.size();
    // The trail byte is a letter, as many are.
    const std::string character = "\x82"
                                  "A";
    const std::string filler(room - 1, 'e');

    EXPECT_EQ(fieldText(filler + character, 1, japaneseLeadByte), "\"" + filler + suffix);
    EXPECT_EQ(fieldText(filler + character, 1, noLeadBytes), "\"" + filler + "\x82" + suffix);

    const std::string shorter(room - 2, 'e');
    EXPECT_EQ(fieldText(shorter + character + "z", 1, japaneseLeadByte), "\"" + shorter + character + suffix);
}

TEST(TocFieldTextTest, ATrailByteThatLooksLikeALeadByteStartsNothing)
{
    const std::string suffix = R"(" \fC \l "1")";
    const std::size_t room = longestText - 1 - suffix.size();
    ASSERT_EQ(room % 2, 0U) << "whole characters alone fill the room";
    std::string entry;
    while (entry.size() < room + 2)
        entry += "\x82\x82";
    EXPECT_EQ(fieldText(entry, 1, japaneseLeadByte), "\"" + entry.substr(0, room) + suffix);
    EXPECT_EQ(fieldText("e" + entry, 1, japaneseLeadByte), "\"e" + entry.substr(0, room - 2) + suffix);
}

TEST(TocFieldTextTest, ALeadByteAtTheEndIsNoReasonToReadOn)
{
    EXPECT_EQ(fieldText("e\x82", 1, japaneseLeadByte), "\"e\x82"
                                                       R"(" \fC \l "1")");
}

} // namespace
