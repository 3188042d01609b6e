#include "ModelFixture.h"

namespace standin::model {
namespace {

constexpr auto header = Section::Part::header;
constexpr auto footer = Section::Part::footer;
constexpr auto primary = HeaderFooterIndex::primary;

class SectionTest : public ModelTest
{
protected:
    static std::u16string textOf(const std::shared_ptr<Story>& story)
    {
        return story->text(0, story->length());
    }
    static void writeInto(const std::shared_ptr<Story>& story, std::u16string_view text)
    {
        LiveRange(story, 0, story->length()).insertAfter(text);
    }
    SectionPtr section(std::int32_t index) { return document->section(index); }
};

TEST_F(SectionTest, ABreakLeavesTheOldSectionItsMarkAndCopiesThePageSetup)
{
    write(u"onetwo");
    const SectionPtr old = section(1);
    old->pageSetup.setOrientation(Orientation::landscape);
    range(3, 3).insertBreak(BreakType::sectionContinuous);
    ASSERT_EQ(document->sectionCount(), 2);
    EXPECT_EQ(section(1), old);
    EXPECT_NE(section(2), old);
    EXPECT_EQ(section(2)->pageSetup.orientation, Orientation::landscape);
    EXPECT_EQ(section(2)->pageSetup.sectionStart, SectionStart::continuous);
    EXPECT_EQ(section(1)->pageSetup.sectionStart, SectionStart::newPage);
    EXPECT_EQ(document->sectionEnd(1), 4);
    EXPECT_EQ(document->sectionStart(2), 4);
    EXPECT_EQ(document->sectionEnd(2), 8);
    EXPECT_EQ(document->sectionIndexAt(3), 1);
    EXPECT_EQ(document->sectionIndexAt(4), 2);
}

TEST_F(SectionTest, ABreakInAnEarlierSectionKeepsTheOrder)
{
    write(u"onetwo");
    range(3, 3).insertBreak(BreakType::sectionNextPage);
    const SectionPtr last = section(2);
    range(1, 1).insertBreak(BreakType::sectionNextPage);
    ASSERT_EQ(document->sectionCount(), 3);
    EXPECT_EQ(section(3), last);
    EXPECT_EQ(document->sectionEnd(1), 2);
    EXPECT_EQ(document->sectionEnd(2), 5);
}

TEST_F(SectionTest, NoSuchSection)
{
    EXPECT_EQ(errorOf([&] { section(0); }), 5941);
    EXPECT_EQ(errorOf([&] { section(2); }), 5941);
}

TEST_F(SectionTest, LinkedHeaderShowsTheOneBeforeUntilItIsCutLoose)
{
    writeInto(section(1)->story(header, primary), u"first");
    write(u"ab");
    range(1, 1).insertBreak(BreakType::sectionNextPage);
    EXPECT_TRUE(section(2)->linkToPrevious(header, primary));
    EXPECT_EQ(section(2)->story(header, primary), section(1)->story(header, primary));
    section(2)->setLinkToPrevious(header, primary, false);
    EXPECT_EQ(textOf(section(2)->story(header, primary)), u"first\r");
    writeInto(section(2)->story(header, primary), u" second");
    EXPECT_EQ(textOf(section(1)->story(header, primary)), u"first\r");
    EXPECT_EQ(textOf(section(2)->story(header, primary)), u"first second\r");
    EXPECT_TRUE(section(2)->linkToPrevious(footer, primary));
}

TEST_F(SectionTest, LinkingAgainDropsTheOwnContent)
{
    range(0, 0).insertBreak(BreakType::sectionNextPage);
    section(2)->setLinkToPrevious(header, primary, false);
    const LiveRange own(section(2)->story(header, primary), 0, 1);
    section(2)->setLinkToPrevious(header, primary, true);
    EXPECT_EQ(errorOf([&] { own.start(); }), 5825);
    EXPECT_EQ(section(2)->ownStory(header, primary), nullptr);
}

TEST_F(SectionTest, FirstSectionReadsUnlinkedAndIgnoresLinking)
{
    EXPECT_FALSE(section(1)->linkToPrevious(header, primary));
    section(1)->setLinkToPrevious(header, primary, true);
    EXPECT_FALSE(section(1)->linkToPrevious(header, primary));
    EXPECT_EQ(errorOf([&] { section(1)->story(header, static_cast<HeaderFooterIndex>(4)); }), 5941);
}

TEST_F(SectionTest, CutLooseHeaderKeepsFormatting)
{
    writeInto(section(1)->story(header, primary), u"a\rbold");
    LiveRange(section(1)->story(header, primary), 2, 6).setFont({.bold = true});
    LiveRange(section(1)->story(header, primary), 0, 1).setParagraphFormat({.alignment = Alignment::right});
    range(0, 0).insertBreak(BreakType::sectionNextPage);
    section(2)->setLinkToPrevious(header, primary, false);
    const auto copy = section(2)->story(header, primary);
    EXPECT_EQ(LiveRange(copy, 2, 6).font().bold, true);
    EXPECT_EQ(LiveRange(copy, 0, 1).font().bold, false);
    EXPECT_EQ(LiveRange(copy, 0, 1).paragraphFormat().alignment, Alignment::right);
    EXPECT_EQ(LiveRange(copy, 0, 1).style()->name(), u"Header");
}

TEST_F(SectionTest, DeletingTheMarkJoinsTheSectionBehindWhichKeepsWhatItShowed)
{
    writeInto(section(1)->story(footer, primary), u"foot");
    write(u"onetwo");
    range(3, 3).insertBreak(BreakType::sectionNextPage);
    const SectionPtr first = section(1);
    const SectionPtr second = section(2);
    second->pageSetup.setOrientation(Orientation::landscape);
    range(3, 4).remove();
    ASSERT_EQ(document->sectionCount(), 1);
    EXPECT_EQ(section(1), second);
    EXPECT_EQ(textOf(second->story(footer, primary)), u"foot\r");
    EXPECT_EQ(errorOf([&] { first->document(); }), 5825);
}

TEST_F(SectionTest, SectionBreakInAHeaderIsNotAvailable)
{
    LiveRange inside(section(1)->story(header, primary), 0, 0);
    EXPECT_EQ(errorOf([&] { inside.insertBreak(BreakType::sectionNextPage); }), 4605);
}

TEST_F(SectionTest, FirstAndEvenExistWhenThePageSetupAsks)
{
    EXPECT_TRUE(section(1)->exists(primary));
    EXPECT_FALSE(section(1)->exists(HeaderFooterIndex::firstPage));
    section(1)->pageSetup.differentFirstPage = true;
    EXPECT_TRUE(section(1)->exists(HeaderFooterIndex::firstPage));
    range(0, 0).insertBreak(BreakType::sectionNextPage);
    document->setOddAndEvenPages(true);
    EXPECT_TRUE(section(1)->exists(HeaderFooterIndex::evenPages));
    EXPECT_TRUE(section(2)->exists(HeaderFooterIndex::evenPages));
}

TEST_F(SectionTest, HeadersTakeNoPageBreaksUnderTheOtherReading)
{
    const auto breakHeader = [this] {
        LiveRange(document->section(1)->story(Section::Part::header, HeaderFooterIndex::primary), 0, 0)
            .insertBreak(BreakType::page);
    };
    EXPECT_EQ(errorOf(breakHeader), 0);
    readAs({.headerTakesPageBreak = false});
    EXPECT_EQ(errorOf(breakHeader), 4605);
    EXPECT_EQ(errorOf([this] { range(0, 0).insertBreak(BreakType::page); }), 0);
}

} // namespace
} // namespace standin::model
