#include "WaitingTags.h"

#include <gmock/gmock.h>

using namespace compose;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::u16string> tagsIn(const Paragraph& paragraph)
{
    std::vector<std::u16string> found;
    for (const Item& item : paragraph.items)
        if (const auto* const tag = std::get_if<Tag>(&item.what))
            found.push_back(tag->bookmark);
    return found;
}

/// A paragraph with a text and a tag, which is placed.
Paragraph tagged(WaitingTags& tags, const std::u16string& bookmark)
{
    return {.items = {{Text{u"a"}}, {Tag{bookmark, tags.place(bookmark)}}}};
}

TEST(WaitingTagsTest, ABookmarkHasItsLastPlace)
{
    WaitingTags tags;
    Paragraph early = tagged(tags, u"b1");
    Blocks blocks = {Table{.rows = {Row{Cell{std::move(early)}}}, .heights = {0}}};
    blocks.emplace_back(tagged(tags, u"b2"));
    blocks.emplace_back(tagged(tags, u"b1"));
    tags.dropStale(blocks);
    EXPECT_THAT(tagsIn(std::get<Table>(blocks[0]).rows[0][0][0]), IsEmpty());
    EXPECT_THAT(tagsIn(std::get<Paragraph>(blocks[1])), ElementsAre(u"b2"));
    EXPECT_THAT(tagsIn(std::get<Paragraph>(blocks[2])), ElementsAre(u"b1"));
    EXPECT_EQ(std::get<Table>(blocks[0]).rows[0][0][0].items.size(), 1U) << "its text";
}

TEST(WaitingTagsTest, ARemovedOneHasNone)
{
    WaitingTags tags;
    Blocks blocks = {tagged(tags, u"b1")};
    tags.remove(u"b2");
    tags.dropStale(blocks);
    EXPECT_THAT(tagsIn(std::get<Paragraph>(blocks[0])), ElementsAre(u"b1"));
    tags.remove(u"b1");
    tags.dropStale(blocks);
    EXPECT_THAT(tagsIn(std::get<Paragraph>(blocks[0])), IsEmpty());
}

} // namespace
