#include "Flow.h"

#include "OperationText.h"
#include "SampleStyles.h"

#include <gmock/gmock.h>

using namespace compose;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class FlowTest : public testing::Test
{
protected:
    Flow flow(Flow::Within within, const Ground& ground = {}, Position origin = 0)
    {
        return {source, styles, ground, within, origin};
    }
    static std::vector<std::string> planOf(Flow& flow)
    {
        Passage passage;
        flow.plan(passage.operations);
        return linesOf(passage);
    }

    Blocks blocks;
    std::vector<LinkTarget> links = {{.address = u"p"}};
    SampleStyles styles;
    Source source{blocks, links, {}, [](const LinkTarget&) { return true; }};
    FontWishPtr bold = std::make_shared<const FontWish>(FontWish{.style = u"Normal", .isBold = true});
};

TEST_F(FlowTest, LeavesGroundThatNothingIsPutOn)
{
    Flow nothing = flow(Flow::Within::story, {.style = u"Title", .isPlain = false});
    EXPECT_THAT(planOf(nothing), IsEmpty());
    EXPECT_EQ(nothing.groundBehind(), (Ground{.style = u"Title", .isPlain = false}));
}

TEST_F(FlowTest, FormatsACellsLastParagraphAlthoughItIsEmpty)
{
    const Paragraph paragraph{.alignment = 3};
    Flow inCell = flow(Flow::Within::cell);
    inCell.add(paragraph);
    EXPECT_THAT(planOf(inCell), ElementsAre("alignment 0-1 2"));
    Flow inStory = flow(Flow::Within::story);
    inStory.add(paragraph);
    EXPECT_THAT(planOf(inStory), IsEmpty());
}

TEST_F(FlowTest, CountsFromItsOrigin)
{
    const Paragraph first{.items = {{Text{u"ab"}, bold}}};
    const Paragraph second{.items = {{Text{u"c"}}, {Field{4}}, {Tag{u"b1"}}}, .style = u"Title"};
    Flow late = flow(Flow::Within::cell, {}, 10);
    late.add(first);
    late.add(second);
    EXPECT_THAT(planOf(late), ElementsAre("text 10 'ab|c'", "style 13-15 Title", "font 10-12 bold",
                                          "field 14 4", "tag behind field b1"));
}

TEST_F(FlowTest, TakesBackAnAlignmentThatAnotherStyleMayHaveLeft)
{
    const Paragraph paragraph{.items = {{Text{u"a"}}}, .style = u"Title"};
    Flow onAligned = flow(Flow::Within::story, {.alignment = 2});
    onAligned.add(paragraph);
    EXPECT_THAT(planOf(onAligned),
                ElementsAre("text 0 'a'", "style 0-2 Title", "alignment 0-2 of the style"));
}

TEST_F(FlowTest, SaysWhatIsBehindItsLastParagraph)
{
    const Paragraph paragraph{.items = {{Text{u"a"}}, {Tag{u"b1"}}}, .style = u"Title", .alignment = 4};
    Flow story = flow(Flow::Within::story);
    story.add(paragraph);
    EXPECT_EQ(story.groundBehind(), (Ground{.style = u"Title", .alignment = 3}));
}

} // namespace
