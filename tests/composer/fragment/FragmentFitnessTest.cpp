#include "FragmentFitness.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace compose {
namespace {

const std::vector<LinkTarget> someLinks = {{u"http://example.com/", u""}, {u"a\nb", u""}};

bool fits(Item item)
{
    return fitsFragment(Paragraph{.items = {std::move(item)}}, someLinks);
}

bool fitsInCell(Item item)
{
    return fitsFragment(Table{.rows = {{{Paragraph{.items = {std::move(item)}}}}}, .heights = {0}},
                        someLinks);
}

bool fits(FontWish wish)
{
    return fits(Item{Text{u"a"}, std::make_shared<const FontWish>(std::move(wish))});
}

Table tableOf(std::size_t rows, std::size_t columns, int height = 0)
{
    return {.rows = std::vector<Row>(rows, Row(columns)), .heights = std::vector<int>(rows, height)};
}

TEST(FragmentFitness, TextsFitUnlessTheyHoldControlCharactersOrHalvesOfPairs)
{
    EXPECT_TRUE(fits({Text{u"a\t\v\f{\\}\u20AC\U0001F600"}}));
    EXPECT_FALSE(fits({Text{u"a\x07"}}));
    EXPECT_FALSE(fits({Text{u"a\x13"}}));
    EXPECT_FALSE(fits({Text{{u"\xD83D", 1}}}));
}

TEST(FragmentFitness, EverythingElseWithAFormOfItsOwnFits)
{
    EXPECT_TRUE(fits({PageBreak()}));
    EXPECT_TRUE(fits({Field{4}}));
    EXPECT_TRUE(fits({Entry{u"a\r\n\"\\\t", 9}}));
    EXPECT_TRUE(fits({Tag{u"b1"}}));
}

TEST(FragmentFitness, ThePlaceOfTheTableOfContentsFitsAloneAndEndsAFragment)
{
    const Paragraph alone{.items = {{Contents()}}};
    EXPECT_TRUE(fitsFragment(alone, {}));
    EXPECT_TRUE(endsFragment(alone));
    EXPECT_FALSE(fitsFragment(Paragraph{.items = {{Contents()}, {Text{u"a"}}}}, {}));
    EXPECT_FALSE(endsFragment(Paragraph{.items = {{Text{u"a"}}}}));
}

TEST(FragmentFitness, FieldsThatWordChoosesDoNot)
{
    EXPECT_FALSE(fits({Field{0}}));
    EXPECT_FALSE(fits({Field{5}}));
}

TEST(FragmentFitness, EntriesWithControlCharactersOrALevelThatWordDoesNotHaveDoNot)
{
    EXPECT_FALSE(fits({Entry{u"a\fb", 1}}));
    EXPECT_FALSE(fits({Entry{{u"\xD83D", 1}, 1}}));
    EXPECT_FALSE(fits({Entry{u"a", 0}}));
    EXPECT_FALSE(fits({Entry{u"a", 10}}));
}

TEST(FragmentFitness, LinksFitUnlessTheirTargetsHoldControlCharacters)
{
    EXPECT_TRUE(fits({.what = Text{u"a"}, .link = 0}));
    EXPECT_FALSE(fits({.what = Text{u"a"}, .link = 1}));
    EXPECT_FALSE(fitsFragment(Paragraph{.endLink = 1}, someLinks));
}

TEST(FragmentFitness, FontsFitUnlessWordRefusesThem)
{
    EXPECT_TRUE(fits(FontWish{.style = u"Normal", .name = u"Arial", .size = 1638}));
    EXPECT_TRUE(fits(FontWish{.style = u"Normal", .size = 0}));
    EXPECT_FALSE(fits(FontWish{.style = u"Normal", .name = u""}));
    EXPECT_FALSE(fits(FontWish{.style = u"Normal", .name = u"a;b"}));
    EXPECT_FALSE(fits(FontWish{.style = u"Normal", .name = u"No Such Font"})) << "means the style's";
    EXPECT_FALSE(fits(FontWish{.style = u"Normal", .size = -1}));
    EXPECT_FALSE(fits(FontWish{.style = u"Normal", .size = 1639}));
}

TEST(FragmentFitness, StylesFitIfRtfCanNameThem)
{
    EXPECT_TRUE(fitsFragment(Paragraph{.style = u"\u00DCbersicht {1}"}, {}));
    EXPECT_FALSE(fitsFragment(Paragraph{.style = u"a;b"}, {}));
    EXPECT_FALSE(fitsFragment(Paragraph{.style = u""}, {}));
}

TEST(FragmentFitness, WhatEndsASectionFitsAndEndsAFragment)
{
    EXPECT_TRUE(fitsFragment(Paragraph{.end = ParagraphEnd::section}, {}));
    EXPECT_TRUE(endsFragment(Paragraph{.end = ParagraphEnd::section}));
}

TEST(FragmentFitness, WhatHasBegunToStandInWordDoesNotFit)
{
    EXPECT_FALSE(fitsFragment(Paragraph{.holdsWritten = true}, {}));
    Table table = tableOf(2, 2);
    EXPECT_TRUE(fitsFragment(table, {}));
    table.writtenRows = 1;
    EXPECT_FALSE(fitsFragment(table, {}));
}

TEST(FragmentFitness, TablesFitWithinWordsLimits)
{
    EXPECT_TRUE(fitsFragment(tableOf(1, 63, 1584), {}));
    EXPECT_FALSE(fitsFragment(tableOf(1, 64), {}));
    EXPECT_TRUE(fitsFragment(tableOf(32767, 1), {}));
    EXPECT_FALSE(fitsFragment(tableOf(32768, 1), {}));
    EXPECT_FALSE(fitsFragment(tableOf(1, 1, -1), {}));
    EXPECT_FALSE(fitsFragment(tableOf(1, 1, 1585), {}));
    EXPECT_FALSE(fitsFragment(tableOf(0, 0), {}));
    EXPECT_FALSE(fitsFragment(tableOf(1, 0), {}));
}

TEST(FragmentFitness, TablesFitIfTheirCellsDo)
{
    EXPECT_TRUE(fitsInCell({Text{u"a\v"}}));
    EXPECT_FALSE(fitsInCell({Text{u"\x07"}}));
    EXPECT_FALSE(fitsInCell({Contents()}));
    EXPECT_FALSE(fitsInCell({Picture()})) << "its text is in Word already";
}

KeptPicturePtr pictureOf(std::int32_t twipsWide, std::int32_t twipsHigh)
{
    return std::make_shared<const KeptPicture>(
        KeptPicture{{PictureKind::png, 1, 1, twipsWide, twipsHigh}, "bytes", u"a.png"});
}

TEST(FragmentFitness, KeptPicturesFitUnlessThePageOrTheirCellIsSmaller)
{
    const Extent page{100, 50};
    const auto onPage = [&](std::int32_t width, std::int32_t height) {
        return fitsFragment(Paragraph{.items = {{Picture{true, pictureOf(width, height)}}}}, {}, page);
    };
    EXPECT_TRUE(onPage(2000, 1000));
    EXPECT_FALSE(onPage(2001, 1000));
    EXPECT_FALSE(onPage(2000, 1001));
    const auto inCell = [&](std::int32_t width) {
        Table table = tableOf(1, 2);
        table.rows.front().front() = {Paragraph{.items = {{Picture{true, pictureOf(width, 20)}}}}};
        return fitsFragment(table, {}, page);
    };
    EXPECT_TRUE(inCell(892)) << "half of 110.8 points, less 10.8";
    EXPECT_FALSE(inCell(893));
}

TEST(FragmentFitness, PageBreaksInCellsDoNotFit)
{
    EXPECT_FALSE(fitsInCell({PageBreak()}));
    EXPECT_FALSE(fitsInCell({Text{u"a\fb"}}));
}

} // namespace
} // namespace compose
