#include "StyleNumber.h"

#include <gtest/gtest.h>

namespace {

int headingNumber(const char* name)
{
    return styleNumber("Heading ", name);
}

TEST(StyleNumberTest, ReadsTheNumberOfAHeading)
{
    EXPECT_EQ(headingNumber("Heading 1"), 1);
    EXPECT_EQ(headingNumber("Heading 3"), 3);
    EXPECT_EQ(headingNumber("Heading 9"), 9);
    EXPECT_EQ(headingNumber("Heading 10"), 10);
    EXPECT_EQ(headingNumber("Heading 123"), 123);
}

TEST(StyleNumberTest, DoesNotLookAtThePrefix)
{
    EXPECT_EQ(headingNumber("My style12"), 12);
    EXPECT_EQ(headingNumber("abcdefgh12"), 12);
    EXPECT_EQ(headingNumber("12345678"), 0);
    EXPECT_EQ(headingNumber("123456789"), 9);
}

TEST(StyleNumberTest, ANameThatEndsInThePrefixHasNoNumber)
{
    EXPECT_EQ(headingNumber(""), 0);
    EXPECT_EQ(headingNumber("Normal"), 0);
    EXPECT_EQ(headingNumber("Heading"), 0);
    EXPECT_EQ(headingNumber("Heading "), 0);
    EXPECT_EQ(headingNumber("1234"), 0);
}

TEST(StyleNumberTest, ReadsAsAtoiDoes)
{
    EXPECT_EQ(headingNumber("Heading x"), 0);
    EXPECT_EQ(headingNumber("Heading 4th"), 4);
    EXPECT_EQ(headingNumber("Heading   5"), 5);
    EXPECT_EQ(headingNumber("Heading +6"), 6);
    EXPECT_EQ(headingNumber("Heading -7"), -7);
    EXPECT_EQ(headingNumber("Heading 007"), 7);
    EXPECT_EQ(headingNumber("Heading 0"), 0);
    EXPECT_EQ(headingNumber("Headings 12"), 12) << "the blank behind the first eight characters is skipped";
}

TEST(StyleNumberTest, TakesAnyPrefix)
{
    EXPECT_EQ(styleNumber("", "42"), 42);
    EXPECT_EQ(styleNumber("TOC ", "TOC 3"), 3);
}

} // namespace
