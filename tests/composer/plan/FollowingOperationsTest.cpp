#include "FollowingOperations.h"

#include "OperationText.h"

#include <gmock/gmock.h>

using namespace compose;
using testing::ElementsAre;

namespace {

std::vector<std::string> printed(const std::deque<Operation>& operations)
{
    std::vector<std::string> lines;
    for (const Operation& each : operations)
        lines.push_back(printable(each));
    return lines;
}

TEST(FollowingOperationsTest, TellATagBehindTheFieldInHand)
{
    const PlaceTag behind{0, u"b1", true};
    EXPECT_FALSE(hasTagBehindField({AddField{0, 1}}));
    EXPECT_TRUE(hasTagBehindField({AddField{0, 1}, behind}));
    EXPECT_TRUE(hasTagBehindField({AddField{0, 1}, RemoveText{{0, 1}}, behind}));
    EXPECT_FALSE(hasTagBehindField({AddField{0, 1}, PlaceTag{0, u"b1"}}));
    EXPECT_FALSE(hasTagBehindField({AddField{0, 1}, AddField{2, 2}, behind})) << "that of another one";
}

TEST(FollowingOperationsTest, ReleaseTheTagsOfAFieldThatIsMissing)
{
    std::deque<Operation> operations = {AddField{1, 4}, RemoveText{{1, 2}}, PlaceTag{1, u"b1", true},
                                        AddField{0, 4}, PlaceTag{0, u"b2", true}};
    releaseTags(operations);
    EXPECT_THAT(printed(operations),
                ElementsAre("field 1 4", "remove 1-2", "tag 1 b1", "field 0 4", "tag behind field b2"));
}

TEST(FollowingOperationsTest, MoveUpWhereACharacterIsMissing)
{
    std::deque<Operation> operations = {AddPicture{3, nullptr}, AddLink{{2, 3}, {.bookmark = u"x"}},
                                        AddLink{{1, 3}, {.bookmark = u"x"}}, PlaceTag{3, u"b1"},
                                        PlaceTag{2, u"b2"}};
    closeGap(operations, 2);
    EXPECT_EQ(operations.size(), 4U) << "the link around the character alone is gone";
    EXPECT_EQ(std::get<AddLink>(operations[1]).span, (Span{1, 2}));
    EXPECT_EQ(std::get<PlaceTag>(operations[2]).at, 2);
    EXPECT_EQ(std::get<PlaceTag>(operations[3]).at, 2);
}

} // namespace
