#include "StoryContent.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using namespace compose;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::string narrow(std::u16string_view text)
{
    std::string result;
    for (const char16_t unit : text)
        result += static_cast<char>(unit);
    return result;
}

struct ItemPrinter
{
    std::string operator()(const Text& text) const { return narrow(text.characters); }
    std::string operator()(const PageBreak& pageBreak) const { return pageBreak.isLast ? "^last" : "^"; }
    std::string operator()(const Field& field) const { return "field " + std::to_string(field.number); }
    std::string operator()(const Entry& entry) const
    {
        return "entry " + std::to_string(entry.level) + " " + narrow(entry.text);
    }
    std::string operator()(const Tag& tag) const { return "#" + narrow(tag.bookmark); }
    std::string operator()(const compose::Picture& picture) const
    {
        return picture.isThere ? "picture" : "no picture";
    }
    std::string operator()(const Contents&) const { return "contents"; }
};

std::vector<std::string> itemsOf(const Paragraph& paragraph)
{
    std::vector<std::string> items;
    for (const Item& item : paragraph.items)
        items.push_back(std::visit(ItemPrinter(), item.what));
    return items;
}

class StoryContentTest : public testing::Test
{
protected:
    const Paragraph& paragraph(std::size_t block) { return std::get<Paragraph>(content.blocks().at(block)); }
    const Table& table(std::size_t block) { return std::get<Table>(content.blocks().at(block)); }
    std::vector<std::string> items(std::size_t block = 0) { return itemsOf(paragraph(block)); }
    std::vector<std::string> cell(std::size_t block, std::size_t row, std::size_t column)
    {
        return itemsOf(table(block).rows.at(row).at(column).back());
    }
    void startRow()
    {
        content.startTable();
        content.addRow();
        content.addCell();
    }

    StoryContent content{u"Normal"};
    const LinkTarget page{.address = u"p"};
};

// Text

TEST_F(StoryContentTest, TakesControlCharactersForSpaces)
{
    content.insertText(std::u16string_view(u"a\0b\x07"
                                           "c\x01\x15\t\v\x1E\x1F",
                                           11));
    EXPECT_THAT(items(), ElementsAre("a b c  \t\v\x1E\x1F"));
}

TEST_F(StoryContentTest, TakesAFormFeedForAPageBreakThatEndsNoSection)
{
    content.insertText(u"\fa\f");
    EXPECT_THAT(items(), ElementsAre("^", "a", "^"));
    EXPECT_EQ(content.breakSection(), StoryContent::LastBreak::none);
}

TEST_F(StoryContentTest, TakesAFormFeedInATableForASpace)
{
    startRow();
    content.insertText(u"\fa\fb");
    EXPECT_THAT(cell(0, 0, 0), ElementsAre(" a b"));
}

TEST_F(StoryContentTest, JoinsTextOfOneFont)
{
    content.insertText(u"a");
    content.setFontAttribute(1, false);
    content.setFontAttribute(1, true);
    content.insertText(u"b");
    content.setFontAttribute(1, true);
    content.insertText(u"c");
    EXPECT_THAT(items(), ElementsAre("a", "bc"));
}

TEST_F(StoryContentTest, NumbersTheLinksAndTheirParagraphEnds)
{
    content.insertText(u"a\nb", &page);
    content.insertText(u"c", &page);
    content.insertText(u"", &page);
    EXPECT_EQ(content.links().size(), 2U);
    EXPECT_EQ(paragraph(0).items.at(0).link, 0);
    EXPECT_EQ(paragraph(0).endLink, 0);
    EXPECT_EQ(paragraph(1).items.at(0).link, 0);
    EXPECT_EQ(paragraph(1).items.at(1).link, 1);
}

TEST_F(StoryContentTest, KeepsOnlyTheLastPlaceOfATag)
{
    content.insertTag(u"b1");
    content.insertText(u"a");
    startRow();
    content.insertTag(u"b2");
    content.insertTag(u"b1");
    EXPECT_THAT(items(), ElementsAre("a"));
    EXPECT_THAT(cell(1, 0, 0), ElementsAre("#b2", "#b1"));
    content.removeTag(u"b2");
    content.removeTag(u"b3");
    EXPECT_THAT(cell(1, 0, 0), ElementsAre("#b1"));
}

// Page breaks and sections

TEST_F(StoryContentTest, LetsTheLastPageBreakAloneEndASection)
{
    content.insertPageBreak();
    content.insertText(u"a");
    content.insertPageBreak();
    EXPECT_THAT(items(), ElementsAre("^", "a", "^last"));
    content.insertTag(u"b1");
    EXPECT_EQ(content.breakSection(), StoryContent::LastBreak::waiting);
    EXPECT_THAT(items(0), ElementsAre("^", "a"));
    EXPECT_EQ(paragraph(0).end, ParagraphEnd::section);
    EXPECT_THAT(items(1), ElementsAre("#b1"));
    EXPECT_EQ(content.breakSection(), StoryContent::LastBreak::none);
}

TEST_F(StoryContentTest, BreaksNoPageInATable)
{
    startRow();
    content.insertPageBreak();
    EXPECT_THAT(cell(0, 0, 0), IsEmpty());
}

TEST_F(StoryContentTest, EndsASectionAtAPageBreakThatIsWritten)
{
    content.insertPageBreak();
    content.taken();
    EXPECT_EQ(content.breakSection(), StoryContent::LastBreak::written);
    EXPECT_EQ(content.breakSection(), StoryContent::LastBreak::none);
}

// The new section's first paragraph is empty then, although text stands in front of the break.
TEST_F(StoryContentTest, HoldsNothingBehindAWrittenBreakThatEndsASection)
{
    content.insertText(u"a");
    content.insertPageBreak();
    content.taken();
    content.breakSection();
    content.prepareStyle();
    EXPECT_EQ(content.blocks().size(), 1U);
}

TEST_F(StoryContentTest, HoldsWhatWasWrittenBehindABreakThatEndsASection)
{
    content.insertPageBreak();
    content.insertText(u"a");
    content.taken();
    content.breakSection();
    content.prepareStyle();
    EXPECT_EQ(content.blocks().size(), 2U);
}

TEST_F(StoryContentTest, HoldsWhatWasWrittenBehindAWrittenBreakThatEndsASection)
{
    content.insertPageBreak();
    content.taken();
    content.insertText(u"a");
    content.taken();
    content.breakSection();
    content.prepareStyle();
    EXPECT_EQ(content.blocks().size(), 2U);
}

TEST_F(StoryContentTest, HoldsAnObjectBehindAWrittenBreakThatEndsASection)
{
    content.insertPageBreak();
    content.taken();
    content.objectWritten();
    content.breakSection();
    content.prepareStyle();
    EXPECT_EQ(content.blocks().size(), 2U);
}

// Tables

TEST_F(StoryContentTest, MovesTagsIntoTheTableBehindThem)
{
    content.insertText(u"a\n");
    content.insertTag(u"b1");
    startRow();
    EXPECT_THAT(items(0), ElementsAre("a"));
    EXPECT_THAT(cell(1, 0, 0), ElementsAre("#b1"));
}

TEST_F(StoryContentTest, KeepsTablesApartByAParagraph)
{
    startRow();
    content.endTable();
    content.insertTag(u"b1");
    startRow();
    EXPECT_THAT(items(1), ElementsAre("#b1"));
    EXPECT_EQ(content.blocks().size(), 4U);
}

TEST_F(StoryContentTest, KeepsTablesApartOfWhichOneIsWritten)
{
    startRow();
    content.endTable();
    content.taken();
    startRow();
    EXPECT_EQ(content.blocks().size(), 3U);
    EXPECT_EQ(paragraph(0).style, u"Normal");
}

TEST_F(StoryContentTest, KeepsAFilesTableApart)
{
    content.fileWritten(true);
    startRow();
    EXPECT_EQ(content.blocks().size(), 3U);
    content.endTable();
    content.insertEndl();
    content.taken();
    content.fileWritten(false);
    startRow();
    EXPECT_EQ(content.blocks().size(), 2U);
}

TEST_F(StoryContentTest, TakesCellsBeyondTheFirstRowsForTheLastOne)
{
    startRow();
    content.addCell();
    content.addRow();
    for (int i = 0; i < 4; ++i)
        content.addCell();
    content.insertText(u"a");
    EXPECT_THAT(cell(0, 1, 1), ElementsAre("a"));
    EXPECT_EQ(content.currentCell().row, 1U);
    EXPECT_EQ(content.currentCell().column, 1U);
}

TEST_F(StoryContentTest, IgnoresTableCallsOutOfOrder)
{
    content.addRow();
    content.addCell();
    content.setTableRowHeight(10);
    content.endTable();
    EXPECT_FALSE(content.isPending());
    content.startTable();
    content.addCell();
    content.setTableRowHeight(10);
    content.startTable();
    content.addRow();
    content.addRow();
    EXPECT_EQ(table(0).rows.size(), 1U);
    EXPECT_EQ(table(0).columns(), 1U);
    EXPECT_THAT(table(0).heights, ElementsAre(0));
}

TEST_F(StoryContentTest, KeepsARowHeightForTheRowsBehind)
{
    startRow();
    content.addRow();
    content.setTableRowHeight(20);
    content.addRow();
    EXPECT_THAT(table(0).heights, ElementsAre(0, 20, 20));
    content.endTable();
    startRow();
    EXPECT_THAT(table(2).heights, ElementsAre(0));
}

TEST_F(StoryContentTest, GoesOnInATableThatIsTaken)
{
    startRow();
    content.insertText(u"a");
    content.taken();
    EXPECT_FALSE(content.isPending());
    content.addCell();
    EXPECT_TRUE(content.isPending());
    content.addRow();
    content.addCell();
    content.insertText(u"b");
    EXPECT_EQ(table(0).writtenRows, 1U);
    EXPECT_EQ(table(0).writtenColumns, 1U);
    EXPECT_EQ(table(0).columns(), 2U);
    EXPECT_TRUE(table(0).rows.at(0).at(0).back().holdsWritten);
    EXPECT_EQ(content.currentCell().row, 1U);
    content.taken();
    content.addRow();
    EXPECT_EQ(content.currentCell().row, 2U);
    EXPECT_EQ(table(0).writtenRows, 2U);
}

TEST_F(StoryContentTest, IsPendingForARowHeightAlone)
{
    startRow();
    content.taken();
    content.setTableRowHeight(20);
    EXPECT_TRUE(content.isPending());
    content.taken();
    EXPECT_FALSE(content.isPending());
}

TEST_F(StoryContentTest, IsPendingForTheAlignmentOfAWrittenCell)
{
    startRow();
    content.taken();
    content.setTextAlign(3);
    EXPECT_TRUE(content.isPending());
}

// Taking

TEST_F(StoryContentTest, GoesOnInAParagraphThatIsTaken)
{
    content.insertText(u"a", &page);
    content.insertTag(u"b1");
    content.taken();
    EXPECT_FALSE(content.isPending());
    EXPECT_EQ(content.waiting(), 0U);
    EXPECT_TRUE(content.links().empty());
    EXPECT_TRUE(paragraph(0).holdsAnything());
    content.insertText(u"b");
    EXPECT_THAT(items(), ElementsAre("b"));
    EXPECT_EQ(content.blocks().size(), 1U);
    content.prepareStyle();
    EXPECT_EQ(content.blocks().size(), 2U);
}

TEST_F(StoryContentTest, HoldsNothingOfATagThatIsTaken)
{
    content.insertTag(u"b1");
    EXPECT_TRUE(content.isPending());
    content.taken();
    EXPECT_FALSE(paragraph(0).holdsAnything());
}

TEST_F(StoryContentTest, IsPendingForASettledParagraphOnce)
{
    content.settleParagraph();
    EXPECT_TRUE(content.isPending());
    content.taken();
    EXPECT_FALSE(content.isPending());
    content.objectWritten();
    EXPECT_TRUE(paragraph(0).holdsAnything());
}

TEST_F(StoryContentTest, EndsTheParagraphInFrontOfAFile)
{
    content.prepareFile();
    EXPECT_EQ(content.blocks().size(), 1U);
    content.insertText(u"a");
    content.prepareFile();
    EXPECT_EQ(content.blocks().size(), 2U);
}

TEST_F(StoryContentTest, CountsWhatWaits)
{
    content.insertText(std::u16string(1000, u'a'));
    EXPECT_GE(content.waiting(), 2000U);
    EXPECT_LT(content.waiting(), 3000U);
}

// Table of contents

TEST_F(StoryContentTest, DropsAnEarlierPlaceOfTheTableOfContents)
{
    EXPECT_FALSE(content.insertTOC(u"T"));
    EXPECT_THAT(items(2), ElementsAre("contents"));
    EXPECT_FALSE(content.insertTOC(u"T"));
    EXPECT_THAT(items(2), IsEmpty());
    EXPECT_THAT(items(5), ElementsAre("contents"));
    content.taken();
    EXPECT_TRUE(content.insertTOC(u"T"));
    EXPECT_FALSE(content.insertTOC(u"T"));
}

TEST_F(StoryContentTest, MakesNoTableOfContentsInATable)
{
    startRow();
    EXPECT_FALSE(content.insertTOC(u"T"));
    EXPECT_THAT(cell(0, 0, 0), IsEmpty());
}

TEST_F(StoryContentTest, MakesEntriesOfOneLineAndTheStylesLevel)
{
    content.startTOCEntry();
    content.insertText(u"no table of contents yet");
    content.endTOCEntry();
    content.insertTOC(u"T");
    content.setStyle(u"Heading 2", u"Heading 2");
    content.startTOCEntry();
    content.insertText(u"a\n\r\n");
    content.insertText(u"b\fc");
    content.endTOCEntry();
    content.endTOCEntry();
    EXPECT_THAT(itemsOf(std::get<Paragraph>(content.blocks().back())),
                ElementsAre("b", "^", "c", "entry 2 a b c"));
}

TEST_F(StoryContentTest, GoesOnWithAnEntryThatIsTaken)
{
    content.insertTOC(u"T");
    content.startTOCEntry();
    content.insertText(u"a");
    content.taken();
    content.insertText(u"b");
    content.endTOCEntry();
    EXPECT_THAT(items(), ElementsAre("b", "entry 1 ab"));
}

TEST(StoryContentTagsTest, KnowsThoseThatStandWhereTextGoesOn)
{
    StoryContent content(u"Normal");
    content.insertText(u"a");
    content.insertTag(u"b1");
    EXPECT_THAT(content.tagsAtEnd(), IsEmpty()) << "not in Word yet";
    content.taken();
    EXPECT_THAT(content.tagsAtEnd(), ElementsAre(u"b1"));
    content.insertTag(u"b2");
    content.taken();
    EXPECT_THAT(content.tagsAtEnd(), ElementsAre(u"b1", u"b2"));
    content.insertText(u"c");
    content.taken();
    EXPECT_THAT(content.tagsAtEnd(), IsEmpty());
    content.insertTag(u"b3");
    content.taken();
    content.objectWritten();
    EXPECT_THAT(content.tagsAtEnd(), IsEmpty());
    content.insertTag(u"b4");
    content.taken();
    content.insertEndl();
    EXPECT_THAT(content.tagsAtEnd(), IsEmpty());
}

} // namespace
