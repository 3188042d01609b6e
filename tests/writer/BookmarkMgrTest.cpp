#include "BookmarkMgr.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(BookmarkMgrTest, NamesTagsInTheOrderOfTheirFirstUse)
{
    BookmarkMgr tags;
    EXPECT_STREQ(tags.add("zebra").data(), "b1");
    EXPECT_STREQ(tags.add("aardvark").data(), "b2");
    EXPECT_STREQ(tags.add("monkey").data(), "b3");
}

TEST(BookmarkMgrTest, CountsBeyondOneDigit)
{
    BookmarkMgr tags;
    for (int i = 1; i < 12; ++i)
        tags.add(std::to_string(i).c_str());
    EXPECT_STREQ(tags.add("twelfth").data(), "b12");
}

TEST(BookmarkMgrTest, LookupFindsWhatWasAdded)
{
    BookmarkMgr tags;
    tags.add("first");
    tags.add("second");
    QdxString name = "untouched";
    bool defined = true;
    ASSERT_TRUE(tags.lookup("second", name, defined));
    EXPECT_STREQ(name.data(), "b2");
    EXPECT_FALSE(defined);
}

TEST(BookmarkMgrTest, FindsTheTagOfAName)
{
    BookmarkMgr tags;
    tags.add("first");
    tags.add("second");
    EXPECT_STREQ(tags.tagOf("b2").data(), "second");
    EXPECT_TRUE(tags.tagOf("b3").isEmpty());
}

TEST(BookmarkMgrTest, LookupOfAnUnknownTagLeavesTheOutputs)
{
    BookmarkMgr tags;
    tags.add("first");
    QdxString name = "untouched";
    bool defined = true;
    EXPECT_FALSE(tags.lookup("other", name, defined));
    EXPECT_STREQ(name.data(), "untouched");
    EXPECT_TRUE(defined);
    defined = false;
    EXPECT_FALSE(tags.lookup("other", name, defined));
    EXPECT_FALSE(defined);
}

TEST(BookmarkMgrTest, MarkDefinedMarksThatTagAlone)
{
    BookmarkMgr tags;
    tags.add("first");
    tags.add("second");
    tags.markDefined("second");
    QdxString name;
    bool defined = true;
    ASSERT_TRUE(tags.lookup("first", name, defined));
    EXPECT_FALSE(defined);
    ASSERT_TRUE(tags.lookup("second", name, defined));
    EXPECT_TRUE(defined);
    EXPECT_STREQ(name.data(), "b2");
}

TEST(BookmarkMgrTest, MarkDefinedOfAnUnknownTagEntersNothing)
{
    BookmarkMgr tags;
    tags.markDefined("ghost");
    QdxString name;
    bool defined = false;
    EXPECT_FALSE(tags.lookup("ghost", name, defined));
    EXPECT_STREQ(tags.add("real").data(), "b1");
}

TEST(BookmarkMgrTest, TagsThatDifferInCaseAreDifferent)
{
    BookmarkMgr tags;
    EXPECT_STREQ(tags.add("Tag").data(), "b1");
    QdxString name;
    bool defined = false;
    EXPECT_FALSE(tags.lookup("tag", name, defined));
    EXPECT_STREQ(tags.add("tag").data(), "b2");
    tags.markDefined("tag");
    ASSERT_TRUE(tags.lookup("Tag", name, defined));
    EXPECT_STREQ(name.data(), "b1");
    EXPECT_FALSE(defined);
}

TEST(BookmarkMgrTest, AnyTextMayBeATag)
{
    BookmarkMgr tags;
    const QdxString blank = "";
    const QdxString strange = "GUID {7}\n \xe4\xff";
    EXPECT_STREQ(tags.add(blank).data(), "b1");
    EXPECT_STREQ(tags.add(strange).data(), "b2");
    QdxString name;
    bool defined = false;
    EXPECT_TRUE(tags.lookup(strange, name, defined));
    EXPECT_STREQ(name.data(), "b2");
    EXPECT_TRUE(tags.lookup(blank, name, defined));
    EXPECT_STREQ(name.data(), "b1");
}

TEST(BookmarkMgrTest, ClearForgetsAndStartsAgain)
{
    BookmarkMgr tags;
    tags.add("first");
    tags.add("second");
    tags.clear();
    QdxString name;
    bool defined = false;
    EXPECT_FALSE(tags.lookup("first", name, defined));
    EXPECT_STREQ(tags.add("second").data(), "b1");
}

TEST(BookmarkMgrTest, ANewNodeIsEmptyAndNotDefined)
{
    const markNode node;
    EXPECT_TRUE(node.name.isEmpty());
    EXPECT_FALSE(node.defined);
}

} // namespace
