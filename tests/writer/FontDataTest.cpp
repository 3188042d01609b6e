#include "FontData.h"

#include <gtest/gtest.h>

namespace {

FontData fullFont()
{
    FontData font;
    font.name = "Courier New";
    font.size = 11;
    font.bold = font.italic = font.underline = font.strikeThrough = 1;
    return font;
}

TEST(FontDataTest, StartsAsArialWithoutASize)
{
    const FontData font;
    EXPECT_STREQ(font.name.data(), "Arial");
    EXPECT_EQ(font.size, 0);
    EXPECT_EQ(font.bold, 0);
    EXPECT_EQ(font.italic, 0);
    EXPECT_EQ(font.underline, 0);
    EXPECT_EQ(font.strikeThrough, 0);
}

TEST(FontDataTest, ClearEmptiesEveryField)
{
    FontData font = fullFont();
    font.clear();
    EXPECT_TRUE(font.name.isEmpty());
    EXPECT_EQ(font.size, 0);
    EXPECT_EQ(font.bold, 0);
    EXPECT_EQ(font.italic, 0);
    EXPECT_EQ(font.underline, 0);
    EXPECT_EQ(font.strikeThrough, 0);
    EXPECT_TRUE(font != FontData()) << "a cleared font has no face, a new one is Arial";
}

void expectFull(const FontData& font)
{
    EXPECT_STREQ(font.name.data(), "Courier New");
    EXPECT_EQ(font.size, 11);
    EXPECT_EQ(font.bold, 1);
    EXPECT_EQ(font.italic, 1);
    EXPECT_EQ(font.underline, 1);
    EXPECT_EQ(font.strikeThrough, 1);
}

TEST(FontDataTest, CopiesAreCompleteAndIndependent)
{
    FontData original = fullFont();
    const FontData copy(original);
    FontData assigned;
    assigned = original;
    original.clear();
    expectFull(copy);
    expectFull(assigned);
}

TEST(FontDataTest, EqualFontsAreNotDifferent)
{
    EXPECT_FALSE(FontData() != FontData());
    EXPECT_FALSE(fullFont() != fullFont());
}

TEST(FontDataTest, EachFieldAloneMakesADifference)
{
    const FontData plain;
    FontData other;
    other.name = "Ariel";
    EXPECT_TRUE(plain != other);
    other = plain;
    other.name = "arial";
    EXPECT_TRUE(plain != other) << "names are compared byte for byte";
    other = plain;
    other.name = "Arial ";
    EXPECT_TRUE(plain != other);
    other = plain;
    other.size = 12;
    EXPECT_TRUE(plain != other);
    other = plain;
    other.bold = 1;
    EXPECT_TRUE(plain != other);
    other = plain;
    other.italic = 1;
    EXPECT_TRUE(plain != other);
    other = plain;
    other.underline = 1;
    EXPECT_TRUE(plain != other);
    other = plain;
    other.strikeThrough = 1;
    EXPECT_TRUE(plain != other);
}

} // namespace
