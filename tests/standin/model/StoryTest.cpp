#include "ModelFixture.h"

namespace standin::model {
namespace {

class StoryTest : public ModelTest
{
protected:
    Story& story() { return *document->mainStory(); }
    std::u16string styleAt(Position position) { return story().paragraphAt(position).format->style->name(); }
};

TEST_F(StoryTest, NewParagraphMarkDuplicatesTheFormatOfTheParagraphItSplits)
{
    write(u"abcd");
    range(0, 4).setStyle(u"Heading 2");
    range(2, 2).insertAfter(u"\r");
    EXPECT_EQ(styleAt(0), u"Heading 2");
    EXPECT_EQ(styleAt(4), u"Heading 2");
}

TEST_F(StoryTest, DeletingAMarkGivesTheTextTheFormatOfTheParagraphBehind)
{
    write(u"one\rtwo");
    range(0, 1).setStyle(u"Heading 1");
    range(3, 4).remove();
    EXPECT_EQ(text(), u"onetwo\r");
    EXPECT_EQ(story().paragraphCount(), 1u);
    EXPECT_EQ(styleAt(0), u"Normal");
}

TEST_F(StoryTest, DeletingInsideAndAcrossRunsKeepsTheRestOfTheirFormatting)
{
    write(u"aabbcc");
    range(0, 2).setFont({.bold = true});
    range(4, 6).setFont({.italic = true});
    range(1, 5).remove();
    EXPECT_EQ(text(), u"ac\r");
    EXPECT_EQ(range(0, 1).font().bold, true);
    EXPECT_EQ(range(1, 2).font().bold, false);
    EXPECT_EQ(range(1, 2).font().italic, true);
}

TEST_F(StoryTest, RunsThatBecomeNeighboursMerge)
{
    write(u"abcde");
    range(2, 3).setFont({.bold = true});
    ASSERT_EQ(story().runCount(), 3u);
    range(2, 3).remove();
    EXPECT_EQ(story().runCount(), 1u);
}

TEST_F(StoryTest, FormattingEqualToTheRunAroundItSplitsNothing)
{
    write(u"abcde");
    story().setCharacterFormat(1, 3, {});
    EXPECT_EQ(story().runCount(), 1u);
}

TEST_F(StoryTest, TheFinalMarkCannotBeErasedNorPassed)
{
    write(u"abc");
    EXPECT_EQ(errorOf([&] { story().erase(0, 4); }), 4608);
    EXPECT_EQ(errorOf([&] { story().erase(2, 1); }), 4608);
    EXPECT_EQ(errorOf([&] { story().insert(4, u"x"); }), 4608);
    EXPECT_EQ(errorOf([&] { story().insert(-1, u"x"); }), 4608);
    EXPECT_EQ(errorOf([&] { story().setCharacterFormat(0, 5, {}); }), 4608);
}

TEST_F(StoryTest, RunsAndParagraphsTellTheirBorders)
{
    write(u"one\rtwo");
    range(1, 5).setFont({.bold = true});
    EXPECT_EQ(story().paragraphAt(3).end, 4);
    EXPECT_EQ(story().paragraphAt(4).start, 4);
    EXPECT_EQ(story().paragraphAt(8).start, 4);
    EXPECT_EQ(story().runAt(0).end, 1);
    EXPECT_EQ(story().runAt(4).start, 1);
    EXPECT_EQ(story().runAt(5).end, 8);
}

TEST_F(StoryTest, DirectFormattingIsKeptAlsoWhereTheStyleSaysTheSame)
{
    write(u"ab");
    const Story& story = *document->mainStory();
    EXPECT_EQ(story.directFont(0), FontProperties());
    EXPECT_EQ(story.directParagraph(0), ParagraphProperties());
    range(0, 1).setFont({.size = 12.0f, .bold = false});
    range(0, 1).setParagraphFormat({.alignment = Alignment::left});
    EXPECT_EQ(story.directFont(0), (FontProperties{.size = 12.0f, .bold = false}));
    EXPECT_EQ(story.effectiveFont(0), story.effectiveFont(1));
    EXPECT_EQ(story.directFont(1), FontProperties());
    EXPECT_EQ(story.directParagraph(2), ParagraphProperties{.alignment = Alignment::left});
    range(0, 2).resetFont();
    range(0, 2).resetParagraphFormat();
    EXPECT_EQ(story.directFont(0), FontProperties());
    EXPECT_EQ(story.directParagraph(0), ParagraphProperties());
}

} // namespace
} // namespace standin::model
