#include "ModelFixture.h"

#include <algorithm>

namespace standin::model {
namespace {

TEST(StylesTest, ItemsByNameNumberAndIndex)
{
    const Styles styles;
    EXPECT_EQ(styles.byName(u"HEADING 1")->builtinNumber(), -2);
    EXPECT_EQ(styles.byNumber(-63)->name(), u"Title");
    EXPECT_EQ(styles.byNumber(1)->name(), u"Block Text");
    EXPECT_EQ(errorOf([&] { styles.byName(u"Nope"); }), 5941);
    EXPECT_EQ(errorOf([&] { styles.byNumber(0); }), 5941);
    EXPECT_EQ(errorOf([&] { styles.byNumber(-1000); }), 5941);
    EXPECT_EQ(errorOf([&] { styles.byNumber(styles.count() + 1); }), 5941);
}

TEST(StylesTest, EveryBuiltinHasItsOwnNumberAndName)
{
    const Styles styles;
    for (std::int32_t number = -105; number <= -1; ++number) {
        const StylePtr style = styles.findBuiltin(number);
        ASSERT_TRUE(style) << number;
        EXPECT_EQ(styles.find(style->name()), style);
    }
    EXPECT_EQ(styles.count(), 105);
}

struct Expected
{
    const char16_t* style;
    const char16_t* font;
    float size;
    bool bold;
    bool italic;
};

class BuiltinFont : public testing::TestWithParam<Expected>
{
};

TEST_P(BuiltinFont, IsWord2000s)
{
    const Expected& expected = GetParam();
    const FontProperties font = Styles().byName(expected.style)->resolvedFont();
    EXPECT_EQ(font.name, expected.font);
    EXPECT_EQ(font.size, expected.size);
    EXPECT_EQ(font.bold, expected.bold);
    EXPECT_EQ(font.italic, expected.italic);
}

INSTANTIATE_TEST_SUITE_P(Headings, BuiltinFont,
                         testing::Values(Expected{u"Normal", u"Times New Roman", 12, false, false},
                                         Expected{u"Heading 1", u"Arial", 16, true, false},
                                         Expected{u"Heading 2", u"Arial", 14, true, true},
                                         Expected{u"Heading 3", u"Arial", 13, true, false},
                                         Expected{u"Heading 4", u"Times New Roman", 14, true, false},
                                         Expected{u"Heading 5", u"Times New Roman", 13, true, true},
                                         Expected{u"Heading 6", u"Times New Roman", 11, true, false},
                                         Expected{u"Heading 7", u"Times New Roman", 12, false, false},
                                         Expected{u"Heading 8", u"Times New Roman", 12, false, true},
                                         Expected{u"Heading 9", u"Arial", 11, false, false},
                                         Expected{u"TOC 3", u"Times New Roman", 12, false, false}));

TEST(StylesTest, ParagraphPropertiesOfTheBuiltins)
{
    const Styles styles;
    const ParagraphProperties heading = styles.byNumber(-3)->resolvedParagraph();
    EXPECT_EQ(heading.spaceBefore, 12.0f);
    EXPECT_EQ(heading.spaceAfter, 3.0f);
    EXPECT_EQ(heading.keepWithNext, true);
    EXPECT_EQ(heading.outlineLevel, 2);
    EXPECT_EQ(styles.byNumber(-6)->resolvedParagraph().keepWithNext, false);
    EXPECT_EQ(styles.byNumber(-3)->next()->name(), u"Normal");
    EXPECT_EQ(styles.byNumber(-20)->resolvedParagraph().leftIndent, 0.0f);
    EXPECT_EQ(styles.byNumber(-22)->resolvedParagraph().leftIndent, 24.0f);
    ASSERT_EQ(styles.byNumber(-32)->resolvedParagraph().tabs->size(), 2u);
    EXPECT_EQ(styles.byNumber(-32)->resolvedParagraph().tabs->at(1).position, 432.0f);
    EXPECT_EQ(styles.byNumber(-86)->font.color, 0xFF0000);
}

TEST(StylesTest, AddedStylesAreBasedOnNormalAndKeepTheOrder)
{
    Styles styles;
    const StylePtr mine = styles.add(u"My style", StyleType::paragraph);
    EXPECT_EQ(styles.byName(u"MY STYLE"), mine);
    EXPECT_EQ(mine->resolvedFont().size, 12.0f);
    EXPECT_EQ(mine->builtinNumber(), 0);
    EXPECT_EQ(errorOf([&] { styles.add(u"normal", StyleType::paragraph); }), 4198);
    EXPECT_EQ(errorOf([&] { styles.add(u"", StyleType::paragraph); }), 4198);
    EXPECT_TRUE(
        std::is_sorted(styles.all().begin(), styles.all().end(), [](const StylePtr& a, const StylePtr& b) {
            return foldCase(a->name()) < foldCase(b->name());
        }));
}

TEST(StylesTest, NoStyleIsBasedOnItself)
{
    Styles styles;
    const StylePtr first = styles.add(u"first", StyleType::paragraph);
    const StylePtr second = styles.add(u"second", StyleType::paragraph);
    second->setBase(first.get());
    EXPECT_EQ(errorOf([&] { first->setBase(second.get()); }), 4198);
    EXPECT_EQ(errorOf([&] { first->setBase(first.get()); }), 4198);
}

TEST(StylesTest, FoldsLettersOnly)
{
    EXPECT_EQ(foldCase(u"AZ[Ä×Ω\u042f_"), u"az[ä×ω\u044f_");
}

} // namespace
} // namespace standin::model
