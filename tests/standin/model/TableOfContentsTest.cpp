#include "TableOfContents.h"

#include "Hyperlink.h"
#include "ModelFixture.h"

namespace standin::model {
namespace {

class TableOfContentsTest : public ModelTest
{
protected:
    void heading(std::u16string_view text, std::int32_t level)
    {
        LiveRange end = range(document->mainStory()->length() - 1, document->mainStory()->length() - 1);
        end.insertAfter(text);
        end.setStyle(-1 - level);
        end.insertParagraphAfter();
        end.collapse(CollapseDirection::end);
        end.setStyle(-1);
    }
    TableOfContents add(const TableOfContentsOptions& options)
    {
        return addTableOfContents(range(0, 0), options);
    }
    static std::u16string textOf(const TableOfContents& table) { return table.field().result().text(); }
    std::u16string styleOf(const TableOfContents& table, std::size_t line)
    {
        const Story& story = *document->mainStory();
        const std::size_t first = story.paragraphIndexAt(table.range().start());
        return story.paragraph(first + line).format->style->name();
    }
};

TEST_F(TableOfContentsTest, ListsHeadingsWithTheirPages)
{
    write(u"\r");
    heading(u"First", 1);
    heading(u"Second", 2);
    heading(u"\fThird", 3);
    heading(u"Fourth", 4);
    heading(u"  ", 1);
    const TableOfContents table = add({.lowerHeadingLevel = 3});
    EXPECT_EQ(table.field().code().text(), u" TOC \\o \"1-3\" \\h \\z ");
    EXPECT_EQ(textOf(table), u"First\t1\rSecond\t1\rThird\t2\r");
    EXPECT_EQ(styleOf(table, 0), u"TOC 1");
    EXPECT_EQ(styleOf(table, 1), u"TOC 2");
    EXPECT_EQ(styleOf(table, 2), u"TOC 3");
    EXPECT_EQ(styleOf(table, 3), u"Normal");
    expectAt(table.range(), 0, table.range().end());
}

TEST_F(TableOfContentsTest, LinesLeadToHiddenBookmarksOverTheirHeadings)
{
    write(u"\r");
    heading(u"First", 1);
    const TableOfContents table = add({});
    const auto links = hyperlinksIn(table.range());
    ASSERT_EQ(links.size(), 1u);
    const BookmarkPtr bookmark = document->bookmarks().find(links[0].target().subAddress);
    ASSERT_TRUE(bookmark);
    EXPECT_TRUE(bookmark->isHidden());
    EXPECT_EQ(bookmark->range().text(), u"First");
    EXPECT_EQ(fieldsIn(table.range()).size(), 3u);
}

TEST_F(TableOfContentsTest, ListsTheEntriesThatFieldsMarkInOrderWithTheHeadings)
{
    write(u"\rsome text\r");
    addField(range(5, 5), {.type = 9, .text = u"\"Marked\" \\fC \\l \"2\""});
    addField(range(1, 1), {.type = 9, .text = u"\"Level 0\" \\fC \\l \"0\""});
    addField(range(1, 1), {.type = 9, .text = u"\"Other table\" \\fX \\l \"1\""});
    heading(u"Heading", 1);
    EXPECT_EQ(textOf(add({.useFields = true})), u"Level 0\t1\rMarked\t1\rHeading\t1\r");
    tablesOfContentsIn(content())[0].range().remove();
    const TableOfContents marked =
        add({.useHeadingStyles = false, .lowerHeadingLevel = 0, .useFields = true});
    EXPECT_EQ(marked.field().code().text(), u" TOC \\f \\h \\z ");
    EXPECT_EQ(textOf(marked), u"Level 0\t1\rMarked\t1\r");
    EXPECT_EQ(styleOf(marked, 1), u"TOC 2");
    marked.range().remove();
    const TableOfContents other = add({.useHeadingStyles = false, .useFields = true, .tableId = u"x"});
    EXPECT_EQ(textOf(other), u"Other table\t1\r");
}

TEST_F(TableOfContentsTest, SaysWhenThereIsNothingToList)
{
    write(u"text");
    const TableOfContents table = add({});
    EXPECT_EQ(textOf(table), u"Error! No table of contents entries found.");
    EXPECT_EQ(table.field().result().font().bold, true);
    EXPECT_EQ(content().text(), u"Error! No table of contents entries found.text\r");
}

TEST_F(TableOfContentsTest, IsASnapshotUntilItIsUpdated)
{
    write(u"\r");
    heading(u"First", 1);
    TableOfContents table = add({});
    heading(u"Second", 1);
    EXPECT_EQ(textOf(table), u"First\t1\r");
    table.update();
    EXPECT_EQ(textOf(table), u"First\t1\rSecond\t1\r");
    const std::size_t bookmarks = document->bookmarks().all().size();
    const std::u16string before = text();
    table.update();
    EXPECT_EQ(text(), before);
    EXPECT_EQ(document->bookmarks().all().size(), bookmarks);
    table.range().remove();
    EXPECT_EQ(text(), u"\rFirst\rSecond\r\r");
    EXPECT_EQ(document->mainStory()->paragraph(0).format->style->name(), u"Normal");
}

TEST_F(TableOfContentsTest, PageNumbersCanStandElsewhereOrNotAtAll)
{
    write(u"\r");
    heading(u"First", 1);
    EXPECT_EQ(textOf(add({.rightAlignPageNumbers = false, .useHyperlinks = false})), u"First 1\r");
    tablesOfContentsIn(content())[0].range().remove();
    EXPECT_EQ(textOf(add({.includePageNumbers = false, .useHyperlinks = false})), u"First\r");
}

TEST_F(TableOfContentsTest, CountsAddedStylesAsHeadings)
{
    write(u"\rcaption");
    range(1, 2).setStyle(u"Caption");
    EXPECT_EQ(textOf(add({.useHeadingStyles = false, .addedStyles = u"Nothing,1,caption,3"})),
              u"caption\t1\r");
    EXPECT_EQ(styleOf(tablesOfContentsIn(content())[0], 0), u"TOC 3");
}

TEST_F(TableOfContentsTest, ItsOptionsAreThoseOfItsCode)
{
    const TableOfContentsOptions all = {.useHeadingStyles = true,
                                        .upperHeadingLevel = 2,
                                        .lowerHeadingLevel = 4,
                                        .useFields = true,
                                        .tableId = u"X",
                                        .addedStyles = u"A b,2",
                                        .rightAlignPageNumbers = false,
                                        .includePageNumbers = false,
                                        .useHyperlinks = false,
                                        .hidePageNumbersInWeb = false};
    EXPECT_EQ(add(all).options(), all);
    EXPECT_EQ(errorOf([&] { add({.lowerHeadingLevel = 0}); }), 4608);
}

TEST_F(TableOfContentsTest, TheTabStandsAtTheRightMarginWithDots)
{
    write(u"\r");
    heading(u"First", 1);
    TableOfContents table = add({});
    const auto tabs = [this] { return range(0, 1).paragraphFormat().tabs.value_or(std::vector<TabStop>()); };
    EXPECT_EQ(tabs(), (std::vector{TabStop{432, TabStop::Kind::right, TabStop::Leader::dots}}));
    table.setTabLeader(TabStop::Leader::lines);
    EXPECT_EQ(tabs().front().leader, TabStop::Leader::lines);
    EXPECT_EQ(table.tabLeader(), TabStop::Leader::lines);
}

TEST_F(TableOfContentsTest, InTheMiddleOfAParagraphTheTextInFrontStaysByItself)
{
    write(u"front behind\r");
    heading(u"First", 1);
    const TableOfContents table = addTableOfContents(range(6, 6), {.useHyperlinks = false});
    EXPECT_EQ(content().text(), u"front \rFirst\t1\rbehind\rFirst\r\r");
    EXPECT_EQ(styleOf(table, 0), u"Normal");
    EXPECT_EQ(styleOf(table, 1), u"TOC 1");
    EXPECT_EQ(styleOf(table, 2), u"Normal");
}

TEST_F(TableOfContentsTest, InsideTheCodeOfALinkItIsMadeThereAndNothingIsLost)
{
    write(u"link\rtext\r");
    heading(u"First", 1);
    addHyperlink(range(0, 4), {u"http://somewhere", u""});
    EXPECT_TRUE(crossesField(range(10, 10)));
    const TableOfContents table = addTableOfContents(range(10, 10), {});
    EXPECT_EQ(tablesOfContentsIn(content()).size(), 1u);
    EXPECT_EQ(content().text(), u"link\rtext\rFirst\r\r");
    EXPECT_TRUE(table.field().exists());
}

TEST_F(TableOfContentsTest, LevelsAreCheckedEvenWithoutHeadingsUnderTheOtherReading)
{
    const TableOfContentsOptions entriesOnly{
        .useHeadingStyles = false, .lowerHeadingLevel = 0, .useFields = true};
    EXPECT_EQ(errorOf([&] { add(entriesOnly); }), 0);
    readAs({.contentsTakeAnyLevel = false});
    EXPECT_EQ(errorOf([&] { add(entriesOnly); }), 4608);
    EXPECT_EQ(errorOf([&] { add({.useHeadingStyles = false, .lowerHeadingLevel = 10}); }), 4608);
    EXPECT_EQ(errorOf([&] { add({.useHeadingStyles = false, .lowerHeadingLevel = 9}); }), 0);
}

TEST_F(TableOfContentsTest, HeadersTakeNoneUnderTheOtherReading)
{
    const auto addToHeader = [this] {
        const auto story = document->section(1)->story(Section::Part::header, HeaderFooterIndex::primary);
        addTableOfContents(LiveRange(story, 0, 0), {});
    };
    EXPECT_EQ(errorOf(addToHeader), 0);
    readAs({.headerTakesContents = false});
    EXPECT_EQ(errorOf(addToHeader), 4605);
    EXPECT_EQ(errorOf([this] { add({}); }), 0);
}

} // namespace
} // namespace standin::model
