#include "Draft.h"

#include "ContentReading.h"
#include "OperationText.h"
#include "SampleStyles.h"

#include "StoryContent.h"

#include <gmock/gmock.h>

#include <string>
#include <string_view>

using namespace compose;
using testing::ElementsAre;

namespace {

/// A table that the client is at, and its draft.
class DraftTest : public testing::Test
{
protected:
    void startTable()
    {
        content.startTable();
        content.addRow();
        content.addCell();
    }
    Source source() { return {content.blocks(), content.links(), {}, leads}; }
    std::u16string goOn()
    {
        content.addPicture();
        const StoryContent::CellPlace place = content.currentCell();
        const DraftStep step = goOnWith(draft, {place.row, place.column}, source(), styles);
        draft = step.draft;
        return step.text;
    }
    void addPicture(const LinkTarget* target = nullptr)
    {
        content.pictureWritten(target);
        ++draft.length;
        ++draft.inCell;
    }
    std::vector<std::string> plan()
    {
        Source all = source();
        all.drafted = draft.length;
        return linesOf(planOf(all, styles));
    }

    static bool leads(const LinkTarget&) { return true; }
    SampleStyles styles;
    StoryContent content{u"Normal"};
    Draft draft;
};

TEST_F(DraftTest, IsTheTextInFrontOfThePicture)
{
    startTable();
    content.insertText(u"ab");
    EXPECT_EQ(goOn(), u"ab");
    addPicture();
    EXPECT_EQ(draft.length, 3);
    content.insertText(u"c");
    EXPECT_EQ(goOn(), u"c") << "again in that cell";
    addPicture();
    content.addCell();
    content.addCell();
    content.addRow();
    content.addCell();
    content.insertText(u"d");
    EXPECT_EQ(goOn(), u"\r\r\rd") << "cells behind it";
    addPicture();
    EXPECT_EQ(draft.length, 10);
}

TEST_F(DraftTest, IsWhereThePlanGoesOn)
{
    const LinkTarget page{.address = u"p"};
    startTable();
    content.setFontAttribute(1, true);
    content.insertText(u"ab");
    goOn();
    addPicture(&page);
    content.insertText(u"c");
    content.addCell();
    content.insertText(u"d");
    content.endTable();
    EXPECT_THAT(plan(), ElementsAre("text 3 'c|d|'", "font 0-2 bold", "font 3-6 bold",
                                    "table 0-7 1x2 heights 0 last", "link 2-3 p#"));
}

TEST_F(DraftTest, DoesNotHoldWhatWordRefused)
{
    startTable();
    content.insertText(u"a");
    goOn();
    content.insertText(u"b");
    content.endTable();
    EXPECT_THAT(plan(), ElementsAre("text 1 'b|'", "table 0-3 1x1 heights 0 last"));
}

TEST_F(DraftTest, KnowsWhetherAFieldTakesACharacterAlthoughTextFollows)
{
    startTable();
    content.insertField(4);
    EXPECT_EQ(goOn(), u"X");
    addPicture();
    content.insertText(u"a");
    EXPECT_THAT(plan(), ElementsAre("text 2 'a|'", "table 0-4 1x1 heights 0 last", "field 0 4 instead of X"));
}

} // namespace
