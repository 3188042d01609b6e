#include "FontChange.h"

#include "SampleStyles.h"

#include <gtest/gtest.h>

using namespace compose;

namespace {

class FontChangeTest : public testing::Test
{
protected:
    FontChange change(const FontWish& wish, const std::u16string& style = u"Normal")
    {
        return changeOf(&wish, style, styles);
    }
    SampleStyles styles;
};

TEST_F(FontChangeTest, IsEmptyForNoWish)
{
    EXPECT_TRUE(changeOf(nullptr, u"Title", styles).isEmpty());
}

TEST_F(FontChangeTest, IsEmptyForTheParagraphsOwnStyle)
{
    EXPECT_TRUE(change({.style = u"Title"}, u"Title").isEmpty());
}

// No style is looked at for what no style can say.
TEST_F(FontChangeTest, AsksForNoStyleWithoutNeed)
{
    EXPECT_TRUE(change({.style = u"no such style"}, u"no such style").isEmpty());
}

TEST_F(FontChangeTest, AsksForNoPropertyWithoutNeed)
{
    class BoldOnly : public SampleStyles
    {
    public:
        using SampleStyles::fontOf;
        const compose::Font& fontOf(const std::u16string& style, FontProperty property) override
        {
            EXPECT_EQ(property, FontProperty::bold);
            return fontOf(style);
        }
    } boldOnly;
    const FontWish wish{.style = u"Title", .size = 0, .isBold = false};
    EXPECT_EQ(changeOf(&wish, u"Title", boldOnly), FontChange{.isBold = false});
}

TEST_F(FontChangeTest, IsEmptyForWhatTheStyleSays)
{
    EXPECT_TRUE(change({.style = u"Normal", .name = u"Times", .size = 12, .isBold = false}).isEmpty());
    EXPECT_TRUE(change({.style = u"Twin of Normal"}).isEmpty());
}

TEST_F(FontChangeTest, HoldsWhatAnotherStyleSaysOtherwise)
{
    EXPECT_EQ(change({.style = u"Heading 2"}),
              (FontChange{.name = u"Arial", .size = 14.0F, .isBold = true, .isItalic = true}));
    EXPECT_EQ(change({.style = u"Normal"}, u"Header"),
              (FontChange{.isUnderlined = false, .isStruck = false}));
}

TEST_F(FontChangeTest, HoldsWhatTheClientSaidOtherwise)
{
    EXPECT_EQ(change({.style = u"Title", .name = u"Times", .size = 20, .isBold = false, .isItalic = true}),
              (FontChange{.size = 20.0F, .isItalic = true}));
    EXPECT_EQ(change({.style = u"Normal", .isUnderlined = true, .isStruck = true}),
              (FontChange{.isUnderlined = true, .isStruck = true}));
}

TEST_F(FontChangeTest, TakesSizeZeroForThatOfTheParagraphsStyle)
{
    EXPECT_TRUE(change({.style = u"Normal", .size = 0}).isEmpty());
    EXPECT_FALSE(change({.style = u"Title", .size = 0}).size);
}

} // namespace
