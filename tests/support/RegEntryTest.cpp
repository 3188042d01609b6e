#include "RegEntry.h"

#include <climits>
#include <gtest/gtest.h>
#include <string>
#include <type_traits>

namespace {

static_assert(std::is_base_of_v<QdxObject, RegEntry>);

std::string text(const RegEntry& entry)
{
    return static_cast<QdxString>(entry).data();
}

int number(const RegEntry& entry)
{
    return static_cast<int>(entry);
}

bool truth(const RegEntry& entry)
{
    return static_cast<bool>(entry);
}

RegEntry ofKind(const char* value, int kind)
{
    RegEntry entry("Word", "TOCLevel", value);
    entry.setKind(kind);
    return entry;
}

} // namespace

TEST(RegEntryTest, DefaultHasEmptyTexts)
{
    const RegEntry entry;
    EXPECT_TRUE(entry.getGroup().isEmpty());
    EXPECT_TRUE(entry.getName().isEmpty());
    EXPECT_TRUE(entry.getValue().isEmpty());
    EXPECT_EQ(text(entry), "");
}

TEST(RegEntryTest, FreshKinds)
{
    EXPECT_EQ(RegEntry(QdxString("a")).getKind(), 2);
    EXPECT_EQ(RegEntry("a").getKind(), 2);
    EXPECT_EQ(RegEntry("g", "n", "v").getKind(), 2);
    EXPECT_EQ(RegEntry(50).getKind(), 0);
    EXPECT_EQ(RegEntry("g", "n", 5).getKind(), 0);
}

TEST(RegEntryTest, KeepsItsTexts)
{
    RegEntry entry("Word", "TOCLevel", "3");
    EXPECT_STREQ(entry.getGroup().data(), "Word");
    EXPECT_STREQ(entry.getName().data(), "TOCLevel");
    EXPECT_STREQ(entry.getValue().data(), "3");
    entry.setKind(0);
    EXPECT_EQ(entry.getKind(), 0);
    EXPECT_STREQ(entry.getValue().data(), "3");
    EXPECT_STREQ(RegEntry("g", "n", -7).getValue().data(), "-7");
}

// Rule 1
TEST(RegEntryTest, TextReadsAsItsLeadingDecimalNumber)
{
    EXPECT_EQ(number("3"), 3);
    EXPECT_EQ(number("12 points"), 12);
    EXPECT_EQ(number("-4x"), -4);
    EXPECT_EQ(number("+5"), 5);
    EXPECT_EQ(number(" \t7"), 7);
    EXPECT_EQ(number("007"), 7);
    EXPECT_EQ(number("0x10"), 0);
    EXPECT_EQ(number(""), 0);
    EXPECT_EQ(number("abc"), 0);
    EXPECT_EQ(number("-"), 0);
    EXPECT_EQ(number("+-5"), 0);
    EXPECT_EQ(number("true"), 0);
}

TEST(RegEntryTest, ANumberTooLargeIsClamped)
{
    EXPECT_EQ(number("2147483647"), INT_MAX);
    EXPECT_EQ(number("2147483648"), INT_MAX);
    EXPECT_EQ(number("+99999999999999999999"), INT_MAX);
    EXPECT_EQ(number(" -99999999999999999999"), INT_MIN);
    EXPECT_EQ(number("-2147483648"), INT_MIN);
}

TEST(RegEntryTest, TextReadsAsTrueForFourWords)
{
    for (const char* const word : {"1", "true", "TRUE", "True", "yes", "YES", "on", "On"})
        EXPECT_TRUE(truth(word)) << word;
    for (const char* const word : {"", "0", "2", "false", "no", "off", "truex", "tru", "1 ", "11"})
        EXPECT_FALSE(truth(word)) << word;
}

// Rule 2
TEST(RegEntryTest, IntegerReadsAsDecimalTextAndTruth)
{
    EXPECT_EQ(text(50), "50");
    EXPECT_EQ(text(0), "0");
    EXPECT_EQ(text(INT_MIN), "-2147483648");
    EXPECT_EQ(number(50), 50);
    EXPECT_EQ(number(INT_MIN), INT_MIN);
    EXPECT_TRUE(truth(50));
    EXPECT_TRUE(truth(-1));
    EXPECT_FALSE(truth(0));
}

TEST(RegEntryTest, TextOfIntegerKindReadsAsAnInteger)
{
    EXPECT_EQ(number(ofKind("3", 0)), 3);
    EXPECT_EQ(text(ofKind("3 levels", 0)), "3");
    EXPECT_TRUE(truth(ofKind("2", 0)));
    EXPECT_FALSE(truth(ofKind("true", 0)));
}

// Rule 3
TEST(RegEntryTest, BooleanReadsAsOneOrZero)
{
    for (const char* const value : {"1", "true", "Yes", "2", "-1"}) {
        EXPECT_TRUE(truth(ofKind(value, 1))) << value;
        EXPECT_EQ(number(ofKind(value, 1)), 1) << value;
        EXPECT_EQ(text(ofKind(value, 1)), "1") << value;
    }
    for (const char* const value : {"0", "", "false"}) {
        EXPECT_FALSE(truth(ofKind(value, 1))) << value;
        EXPECT_EQ(number(ofKind(value, 1)), 0) << value;
        EXPECT_EQ(text(ofKind(value, 1)), "0") << value;
    }
}

TEST(RegEntryTest, AnUnknownKindReadsAsText)
{
    EXPECT_EQ(text(ofKind("3 levels", 7)), "3 levels");
    EXPECT_EQ(number(ofKind("3 levels", 7)), 3);
    EXPECT_FALSE(truth(ofKind("3", 7)));
}

TEST(RegEntryTest, ConvertsWithoutACast)
{
    const RegEntry entry("3");
    const int level = entry;
    const QdxString value = entry;
    EXPECT_EQ(level, 3);
    EXPECT_STREQ(value.data(), "3");
    if (entry)
        ADD_FAILURE() << "\"3\" is none of the words";
}

TEST(RegEntryTest, EqualityComparesEverything)
{
    const RegEntry entry("g", "n", "v");
    EXPECT_TRUE(entry == RegEntry("g", "n", "v"));
    EXPECT_FALSE(entry == RegEntry("G", "n", "v"));
    EXPECT_FALSE(entry == RegEntry("g", "N", "v"));
    EXPECT_FALSE(entry == RegEntry("g", "n", "V"));
    EXPECT_FALSE(RegEntry("3") == RegEntry(3));
    RegEntry copy(entry);
    EXPECT_TRUE(copy == entry);
    copy.setKind(0);
    EXPECT_FALSE(copy == entry);
}

TEST(RegEntryTest, EveryPairComparesBothLessAndGreater)
{
    const RegEntry a("a");
    const RegEntry b("b");
    EXPECT_TRUE(a < b);
    EXPECT_TRUE(a > b);
    EXPECT_TRUE(b < a);
    EXPECT_TRUE(b > a);
    EXPECT_TRUE(a < a);
    EXPECT_TRUE(a > a);
}
