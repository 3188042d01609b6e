// The model must fail where Word, or the law, would not have it.
#include "ModelStory.h"

#include <gmock/gmock.h>

using namespace compose;
using testing::ElementsAre;

namespace {

class ModelStoryTest : public testing::Test
{
protected:
    void carryOut(const std::vector<Operation>& operations)
    {
        Plan plan;
        Passage& passage = plan.passages.emplace_back();
        for (const Operation& operation : operations)
            passage.operations.push_back(operation);
        story.carryOut(plan);
    }

    SampleStyles styles;
    ModelStory story{styles, {}, u"Normal"};
};

TEST_F(ModelStoryTest, WritesTextThatLooksLikeWhatIsInFront)
{
    carryOut({WriteText{0, u"a"}, PutFont{{0, 1}, {.isBold = true}}, WriteText{1, u"b\rc"}});
    EXPECT_THAT(story.read().tokens, ElementsAre("'a' Times 12.000000 bold", "'b' Times 12.000000 bold",
                                                 "end Normal 0", "'c' Times 12.000000 bold", "end Normal 0"));
}

TEST_F(ModelStoryTest, LeavesBookmarksInFrontOfWhatIsInsertedAtTheirPlace)
{
    carryOut({WriteText{0, u"ab"}, PlaceTag{1, u"b1"}, PlaceTag{2, u"b2"}, WriteText{1, u"xy"}});
    EXPECT_EQ(story.read().tags, (std::map<std::u16string, std::size_t>{{u"b1", 1}, {u"b2", 4}}));
}

TEST_F(ModelStoryTest, MakesATableWithAPositionForEachRowEnd)
{
    carryOut({WriteText{0, u"a\rb\r"}, MakeTable{{0, 4}, 2, 1, {0, 20}, true}, WriteText{3, u"x"}});
    EXPECT_THAT(story.read().tokens,
                ElementsAre("'a' Times 12.000000", "cell Normal 0", "row 0", "'x' Times 12.000000",
                            "'b' Times 12.000000", "cell Normal 0", "row 20", "end Normal 0"));
}

TEST_F(ModelStoryTest, RefusesATagInAField)
{
    carryOut({AddField{0, 4}, PlaceTag{2, u"b1"}});
    EXPECT_THROW((void)story.read(), BadOperation);
}

TEST_F(ModelStoryTest, RefusesWhatTheStyleSays)
{
    carryOut({WriteText{0, u"a"}, PutFont{{0, 1}, {.isBold = false}}});
    EXPECT_THROW((void)story.read(), BadOperation);
}

TEST_F(ModelStoryTest, RefusesAnAlignmentThatTheStyleSays)
{
    carryOut({PutAlignment{{0, 1}, 0}});
    EXPECT_THROW((void)story.read(), BadOperation);
}

TEST_F(ModelStoryTest, RefusesPartsOfParagraphs)
{
    EXPECT_THROW(carryOut({WriteText{0, u"ab"}, PutStyle{{1, 3}, u"Title"}}), BadOperation);
    EXPECT_THROW(carryOut({WriteText{0, u"ab\r"}, PutStyle{{0, 2}, u"Title"}}), BadOperation);
}

TEST_F(ModelStoryTest, RefusesTablesThatTouch)
{
    EXPECT_THROW(
        carryOut({WriteText{0, u"\r\r"}, MakeTable{{1, 2}, 1, 1, {0}}, MakeTable{{0, 1}, 1, 1, {0}}}),
        BadOperation);
}

TEST_F(ModelStoryTest, RefusesLinksThatCross)
{
    EXPECT_THROW(carryOut({WriteText{0, u"abc"}, AddLink{{1, 3}, {u"p"}}, AddLink{{0, 2}, {u"q"}}}),
                 BadOperation);
}

} // namespace
