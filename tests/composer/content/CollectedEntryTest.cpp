#include "CollectedEntry.h"

#include <gtest/gtest.h>

using namespace compose;

namespace {

std::optional<Entry> entryOf(std::u16string_view text, std::u16string_view style = u"Normal")
{
    CollectedEntry collected;
    collected.begin();
    collected.add(text);
    return collected.end(style);
}

TEST(CollectedEntryTest, IsOneLine)
{
    EXPECT_EQ(entryOf(u"one\r\rtwo\r")->text, u"one two ");
    EXPECT_EQ(entryOf(u"\r")->text, u" ");
    EXPECT_FALSE(entryOf(u""));
}

TEST(CollectedEntryTest, HasTheLevelOfItsHeading)
{
    EXPECT_EQ(entryOf(u"a", u"Normal")->level, 1);
    EXPECT_EQ(entryOf(u"a", u"Heading 3")->level, 3);
    EXPECT_EQ(entryOf(u"a", u"Heading 0")->level, 1);
    EXPECT_EQ(entryOf(u"a", u"Heading 12345678901234567890")->level, 9);
    EXPECT_EQ(entryOf(u"a", u"Heading 2 (Alt)")->level, 1);
}

TEST(CollectedEntryTest, HoldsWhatWasWrittenSinceItBegan)
{
    CollectedEntry collected;
    collected.add(u"in front");
    EXPECT_FALSE(collected.isOpen());
    collected.begin();
    collected.add(u"dropped");
    collected.begin();
    EXPECT_TRUE(collected.isOpen());
    collected.add(u"a");
    collected.add(u"b");
    EXPECT_EQ(collected.end(u"Normal")->text, u"ab");
    EXPECT_FALSE(collected.isOpen());
}

} // namespace
