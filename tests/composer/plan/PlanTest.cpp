#include "Plan.h"

#include "ContentReading.h"
#include "OperationText.h"
#include "SampleStyles.h"

#include "StoryContent.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using namespace compose;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Content that calls make, and the plans for it, each behind the one before.
class PlanTest : public testing::Test
{
protected:
    std::vector<std::string> plan()
    {
        const auto leads = [](const LinkTarget& target) { return target.bookmark != missingBookmark; };
        const Plan made = planOf({content.blocks(), content.links(), ground, leads}, styles);
        content.taken();
        ground = made.after;
        return linesOf(made);
    }
    void setStyle(std::u16string_view name)
    {
        content.prepareStyle();
        content.setStyle(name, name);
    }
    void link(std::u16string_view label) { content.insertText(label, &page); }
    /// A table of one row, in whose last cell it goes on.
    void startRow(std::size_t columns)
    {
        content.startTable();
        content.addRow();
        for (; columns > 0; --columns)
            content.addCell();
    }

    SampleStyles styles;
    StoryContent content{u"Normal"};
    Ground ground;
    const LinkTarget page{.address = u"p"};
};

TEST_F(PlanTest, IsEmptyForNothing)
{
    EXPECT_THAT(plan(), IsEmpty());
    EXPECT_EQ(ground, Ground());
}

TEST_F(PlanTest, WritesAllTextAtOnce)
{
    content.insertText(u"a\nb");
    content.insertPageBreak();
    content.insertText(u"c");
    EXPECT_THAT(plan(), ElementsAre("text 0 'a|b^c'", "keep break 3"));
}

TEST_F(PlanTest, PutsStylesThenAlignmentsThenFonts)
{
    setStyle(u"Heading 1");
    content.setTextAlign(3);
    content.insertText(u"a");
    content.setFontAttribute(2, true);
    content.insertText(u"b");
    EXPECT_THAT(plan(),
                ElementsAre("text 0 'ab'", "style 0-3 Heading 1", "alignment 0-3 2", "font 1-2 italic"));
}

TEST_F(PlanTest, JoinsNeighboursThatLookAlike)
{
    setStyle(u"Title");
    content.setTextAlign(4);
    content.setFontSize(20);
    content.insertText(u"a\nb");
    content.setFontSize(20);
    content.insertText(u"c");
    content.insertEndl();
    EXPECT_THAT(plan(), ElementsAre("text 0 'a|bc|'", "style 0-5 Title", "alignment 0-5 3", "font 0-4 20"));
}

TEST_F(PlanTest, JoinsFontsOverPageBreaksButNotOverAnotherStylesEnd)
{
    content.setFontAttribute(1, true);
    content.insertText(u"a\fb");
    setStyle(u"Title");
    content.setFontSize(20);
    content.insertText(u"c");
    EXPECT_THAT(plan(), ElementsAre("text 0 'a^b|c'", "style 4-6 Title", "font 0-3 bold", "font 4-5 20"));
}

TEST_F(PlanTest, SaysNothingThatTheStyleSays)
{
    setStyle(u"Title");
    content.setTextAlign(2);
    content.setFontName(u"Arial");
    content.setFontSize(16);
    content.setFontAttribute(1, true);
    content.insertText(u"a");
    EXPECT_THAT(plan(), ElementsAre("text 0 'a'", "style 0-2 Title"));
}

TEST_F(PlanTest, SaysNothingThatTheParagraphInFrontHandsOn)
{
    setStyle(u"Title");
    content.setTextAlign(4);
    content.insertText(u"a\n");
    content.insertText(u"b");
    plan();
    EXPECT_EQ(ground, (Ground{.style = u"Title", .alignment = 3}));
    content.insertText(u"c\nd");
    EXPECT_THAT(plan(), ElementsAre("text 0 'c|d'"));
}

TEST_F(PlanTest, TakesAnAlignmentBackThatTheGroundHas)
{
    content.setTextAlign(3);
    content.insertText(u"a");
    plan();
    content.setTextAlign(1);
    content.insertText(u"b");
    EXPECT_THAT(plan(), ElementsAre("text 0 '|b'", "alignment 1-3 of the style"));
}

// Each paragraph would need it, and the next plan's too.
TEST_F(PlanTest, FreesManyParagraphsOfTheGroundsAlignmentAtOnce)
{
    ground.alignment = 1;
    content.insertText(u"a\nb\nc\n");
    EXPECT_THAT(plan(),
                ElementsAre("text 0 'a|b|c|'", "alignment 2-7 of the style", "alignment 0-2 of the style"));
    EXPECT_EQ(ground, Ground());
}

TEST_F(PlanTest, FreesNothingOfAnAlignmentWhereAllIsToHaveOne)
{
    ground.isAlignmentKnown = false;
    content.setTextAlign(2);
    content.insertText(u"a\nb\nc\nd");
    EXPECT_THAT(plan(), ElementsAre("text 0 'a|b|c|d'", "alignment 0-8 1"));
}

TEST_F(PlanTest, SaysStyleAndAlignmentOfAnUnknownGround)
{
    ground = {.style = u"", .isAlignmentKnown = false};
    content.insertText(u"a");
    EXPECT_THAT(plan(), ElementsAre("text 0 'a'", "style 0-2 Normal", "alignment 0-2 of the style"));
}

TEST_F(PlanTest, ClearsTheFontOfTextBehindFormattedText)
{
    content.setFontAttribute(1, true);
    content.insertText(u"a");
    EXPECT_THAT(plan(), ElementsAre("text 0 'a'", "font 0-1 bold"));
    EXPECT_FALSE(ground.isPlain);
    content.setFontAttribute(1, false);
    content.insertText(u"b");
    EXPECT_THAT(plan(), ElementsAre("text 0 'b'", "clear 0-1"));
    EXPECT_TRUE(ground.isPlain);
}

TEST_F(PlanTest, ClearsTheFontOfTextBehindALink)
{
    link(u"a");
    plan();
    EXPECT_FALSE(ground.isPlain);
    link(u"a\f");
    plan();
    EXPECT_FALSE(ground.isPlain);
    link(u"a\n");
    plan();
    EXPECT_TRUE(ground.isPlain) << "the link ends in front of the paragraph's end";
}

TEST_F(PlanTest, EndsASectionWhoseNextParagraphLooksUnlikeItsLast)
{
    content.insertText(u"a");
    content.insertPageBreak();
    content.breakSection();
    setStyle(u"Title");
    content.insertTag(u"b1");
    content.insertText(u"b");
    EXPECT_THAT(plan(), ElementsAre("text 0 'a|b'", "style 2-4 Title", "tag 2 b1", "section 1"));
}

TEST_F(PlanTest, ShowsTheEndOfASectionBehindAnEntryThatIsThere)
{
    content.insertTOC(u"");
    plan();
    content.startTOCEntry();
    content.insertText(u"a\n");
    content.endTOCEntry();
    EXPECT_THAT(plan(), ElementsAre("text 0 'a|'", "entry 2 'a ' 1"));
    content.insertPageBreak();
    content.breakSection();
    content.insertText(u"b");
    EXPECT_THAT(plan(), ElementsAre("text 0 '|b'", "clear 0-2", "section 0", "clear 0-1"));
}

// An entry is hidden, and a field at a paragraph's beginning would take that over.
TEST_F(PlanTest, PutsAFieldInFrontOfAnEntryBehindACharacter)
{
    content.insertTOC(u"");
    plan();
    content.startTOCEntry();
    content.insertText(u"a\n");
    content.insertField(2);
    content.endTOCEntry();
    EXPECT_THAT(plan(), ElementsAre("text 0 'a|X'", "entry 3 'a ' 1", "field 2 2 instead of X"));
}

TEST_F(PlanTest, LeavesTheLastParagraphAloneWhileItHoldsNothing)
{
    setStyle(u"Title");
    content.insertText(u"a\n");
    plan();
    EXPECT_EQ(ground.style, u"Normal");
    content.insertText(u"b");
    EXPECT_THAT(plan(), ElementsAre("text 0 'b'", "style 0-2 Title"));
}

TEST_F(PlanTest, FormatsAnEmptyParagraphThatIsSettled)
{
    setStyle(u"Title");
    content.settleParagraph();
    EXPECT_THAT(plan(), ElementsAre("style 0-1 Title"));
}

TEST_F(PlanTest, AddsFieldsEntriesLinksAndTagsFromTheBackToTheFront)
{
    content.insertTOC(u"T");
    plan();
    content.insertTag(u"b1");
    content.insertText(u"a");
    content.insertField(4);
    content.insertTag(u"b2");
    link(u"bc");
    content.startTOCEntry();
    content.insertText(u"d");
    content.endTOCEntry();
    content.insertTag(u"b3");
    EXPECT_THAT(plan(), ElementsAre("text 0 'abcd'", "entry 4 'd' 1", "tag behind field b3", "link 1-3 p#",
                                    "field 1 4", "tag behind field b2", "tag 0 b1"));
}

TEST_F(PlanTest, GivesEachTableTheTableStyle)
{
    for (const char16_t* const text : {u"a", u"b"}) {
        startRow(1);
        content.insertText(text);
        content.endTable();
    }
    Source source{content.blocks(), content.links(), ground, [](const LinkTarget&) { return true; }};
    source.tableStyle = u"Ruled";
    EXPECT_THAT(linesOf(planOf(source, styles)),
                ElementsAre("text 0 'a||b|'", "table 3-5 1x1 heights 0 last in Ruled",
                            "table 0-2 1x1 heights 0 in Ruled"));
}

TEST_F(PlanTest, MakesTheTableOfContentsPlaceInAParagraphOfItsOwn)
{
    content.insertText(u"a");
    content.insertTOC(u"T");
    EXPECT_THAT(plan(), ElementsAre("text 0 'a|T|||'", "alignment 2-5 1", "keep contents 5"));
}

TEST_F(PlanTest, GivesAFieldItsFontByACharacterInItsPlace)
{
    content.insertText(u"a");
    content.setFontAttribute(1, true);
    content.insertField(1);
    content.insertTag(u"b1");
    EXPECT_THAT(plan(),
                ElementsAre("text 0 'aX'", "font 1-2 bold", "field 1 1 instead of X", "tag behind field b1"));
}

TEST_F(PlanTest, GivesEachFieldItsFontThatLooksUnlikeWhatIsInFront)
{
    content.setFontAttribute(1, true);
    content.insertText(u"a");
    content.setFontAttribute(1, false);
    content.insertField(1);
    content.setFontAttribute(1, true);
    content.insertField(2);
    content.insertField(3);
    EXPECT_THAT(plan(), ElementsAre("text 0 'aXX'", "font 0-1 bold", "font 2-3 bold", "field 3 3",
                                    "field 2 2 instead of X", "field 1 1 instead of X"));
}

TEST_F(PlanTest, GivesAFieldBehindAPageBreakItsFont)
{
    content.setFontAttribute(1, true);
    content.insertText(u"a");
    content.insertField(1);
    EXPECT_THAT(plan(), ElementsAre("text 0 'a^X'", "font 0-3 bold", "field 2 1 instead of X"));
}

TEST_F(PlanTest, NeedsNoCharacterForAPlainFieldInAnEmptyParagraph)
{
    content.setFontAttribute(1, true);
    content.insertText(u"a\n");
    content.setFontAttribute(1, false);
    content.insertField(4);
    content.insertEndl();
    content.setFontAttribute(1, true);
    content.insertText(u"b");
    EXPECT_THAT(plan(), ElementsAre("text 0 'a||b'", "font 0-1 bold", "font 3-4 bold", "field 2 4"));
}

TEST_F(PlanTest, MakesOneLinkOfALabelWithParagraphEnds)
{
    link(u"\na\n");
    content.insertText(u"b");
    EXPECT_THAT(plan(), ElementsAre("text 0 '|a|b'", "link 0-2 p#"));
}

TEST_F(PlanTest, KeepsLinksApartThatTouch)
{
    link(u"a\n");
    link(u"b");
    EXPECT_THAT(plan(), ElementsAre("text 0 'a|b'", "link 2-3 p#", "link 0-1 p#"));
}

TEST_F(PlanTest, LeavesTextPlainWhoseLinkLeadsNowhere)
{
    const LinkTarget nowhere{.bookmark = std::u16string(missingBookmark)};
    content.insertText(u"a", &nowhere);
    EXPECT_THAT(plan(), ElementsAre("text 0 'a'"));
}

TEST_F(PlanTest, MakesATableOfText)
{
    content.insertText(u"a");
    startRow(1);
    content.insertText(u"b");
    content.addCell();
    content.setTextAlign(3);
    content.insertText(u"c");
    content.addRow();
    content.setTableRowHeight(20);
    content.addCell();
    content.endTable();
    content.insertText(u"d");
    EXPECT_THAT(plan(),
                ElementsAre("text 0 'a|b|c|||d'", "alignment 4-8 2", "table 2-8 2x2 heights 0,20 last"));
}

TEST_F(PlanTest, CountsRowEndsInFrontOfWhatATableHolds)
{
    startRow(1);
    content.insertTag(u"b1");
    content.addRow();
    content.addCell();
    link(u"a");
    content.endTable();
    content.insertText(u"c");
    content.insertField(4);
    EXPECT_THAT(plan(), ElementsAre("text 0 '|a|c'", "field 4 4", "tag 0 b1",
                                    "table 0-3 2x1 heights 0,0 last", "link 2-3 p#"));
}

TEST_F(PlanTest, FillsACellOfSeveralParagraphsWhenItsTableIsMade)
{
    startRow(1);
    content.insertText(u"a\n");
    content.setFontAttribute(1, true);
    content.setTextAlign(2);
    content.insertText(u"b");
    content.insertTag(u"b1");
    content.addCell();
    content.insertText(u"c");
    EXPECT_THAT(plan(), ElementsAre("text 0 'a|c|'", "alignment 2-4 1", "font 2-3 bold",
                                    "table 0-4 1x2 heights 0 last", "text 1 '|b'", "alignment 2-4 1",
                                    "font 2-3 bold", "tag 3 b1"));
}

TEST_F(PlanTest, LeavesThePlaceOfCellsParagraphsPlainBetweenFormattedCells)
{
    startRow(1);
    content.setFontAttribute(1, true);
    content.insertText(u"a");
    content.addCell();
    content.setFontAttribute(1, false);
    content.insertText(u"\nb");
    content.addCell();
    content.setFontAttribute(1, true);
    content.insertText(u"c");
    EXPECT_THAT(plan(), ElementsAre("text 0 'a||c|'", "font 0-1 bold", "font 3-4 bold",
                                    "table 0-5 1x3 heights 0 last", "text 2 '|b'"));
}

TEST_F(PlanTest, PlacesTagsRightBehindATableWhenItIsMade)
{
    startRow(1);
    content.insertText(u"a");
    content.endTable();
    content.insertTag(u"b1");
    content.insertText(u"b");
    content.insertTag(u"b2");
    EXPECT_THAT(plan(), ElementsAre("text 0 'a|b'", "tag 3 b2", "table 0-2 1x1 heights 0 last", "tag 3 b1"));
}

TEST_F(PlanTest, GoesOnWithAnOpenTable)
{
    startRow(2);
    content.insertText(u"a");
    EXPECT_THAT(plan(), ElementsAre("text 0 '|a|'", "table 0-3 1x2 heights 0 last"));
    content.insertText(u"b");
    content.addCell();
    content.addRow();
    content.addCell();
    content.insertText(u"c");
    // The new column's cell may have got the look of the cell beside it.
    EXPECT_THAT(plan(),
                ElementsAre("extend from 1 to 2x3 heights 0,0", "in cell 0,1", "text 0 'b'", "clear 0-1",
                            "in cell 0,2", "alignment 0-1 of the style", "in cell 1,0", "text 0 'c'"));
}

TEST_F(PlanTest, KnowsWhichTableGoesOn)
{
    startRow(1);
    content.endTable();
    startRow(1);
    EXPECT_THAT(plan(),
                ElementsAre("text 0 '|||'", "table 2-3 1x1 heights 0 last", "table 0-1 1x1 heights 0"));
}

TEST_F(PlanTest, SaysNothingOfTheWrittenCellsOfAnOpenTableThatStayAsTheyAre)
{
    startRow(2);
    content.setTextAlign(3);
    plan();
    content.setTextAlign(2);
    EXPECT_THAT(plan(), ElementsAre("in cell 0,1", "alignment 0-1 1"))
        << "as many rows and columns as before";
}

} // namespace
