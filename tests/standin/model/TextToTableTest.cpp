#include "TextToTable.h"

#include "Bookmarks.h"
#include "Field.h"
#include "Hyperlink.h"
#include "ModelFixture.h"

namespace standin::model {
namespace {

class TextToTableTest : public ModelTest
{
protected:
    Table convert(Position start, Position end, const TextToTableOptions& options)
    {
        LiveRange place = range(start, end);
        const Table table = convertToTable(place, options);
        expectAt(place, table.range().start(), table.range().end());
        return table;
    }
};

TEST_F(TextToTableTest, EachParagraphIsACell)
{
    write(u"x\ra\rb\rc\rd\ry");
    const Table table = convert(2, 10, {.columns = 2});
    EXPECT_EQ(shape(), u"xPaCbCRcCdCRyP");
    expectAt(table.range(), 2, 12);
    EXPECT_EQ(table.cell(2, 2).range().text(), u"d\r\a");
    EXPECT_FLOAT_EQ(table.cell(1, 1).format().width, 221.4f);
    EXPECT_FALSE(table.cell(1, 1).format().top.isVisible);
}

TEST_F(TextToTableTest, TheRangeLiesInFrontOfTheTableUnderTheOtherReading)
{
    readAs({.convertToTableRangeCoversTable = false});
    write(u"x\ra\rb\ry");
    LiveRange place = range(2, 6);
    convertToTable(place, {});
    EXPECT_EQ(shape(), u"xPaCRbCRyP");
    expectAt(place, 2, 2);
}

TEST_F(TextToTableTest, OneColumnUnlessAskedForMore)
{
    write(u"a\rb\rc\r");
    convert(0, 6, {});
    EXPECT_EQ(shape(), u"aCRbCRcCRP");
}

TEST_F(TextToTableTest, AsManyColumnsAsTheRowsNeed)
{
    write(u"a\rb\rc\rd\re\r");
    convert(0, 10, {.rows = 2});
    EXPECT_EQ(shape(), u"aCbCcCRdCeCCRP");
}

TEST_F(TextToTableTest, ShortRowsAreFilledAndMoreRowsAreEmpty)
{
    write(u"a\rb\rc\ry");
    const Table table = convert(0, 6, {.rows = 3, .columns = 2});
    EXPECT_EQ(shape(), u"aCbCRcCCRCCRyP");
    expectAt(table.range(), 0, 12);
}

TEST_F(TextToTableTest, TheFinalMarkStaysBehindTheTable)
{
    write(u"a\rb");
    content().setParagraphFormat({.alignment = Alignment::right});
    LiveRange all = content();
    const Table table = convertToTable(all, {.columns = 2});
    EXPECT_EQ(shape(), u"aCbCRP");
    expectAt(all, 0, 5);
    EXPECT_EQ(table.cell(1, 2).range().paragraphFormat().alignment, Alignment::right);
    EXPECT_EQ(range(5, 6).paragraphFormat().alignment, Alignment::right);
}

TEST_F(TextToTableTest, AnEmptyStoryBecomesATableInFrontOfItsParagraph)
{
    convert(0, 0, {});
    EXPECT_EQ(shape(), u"CRP");
}

TEST_F(TextToTableTest, ParagraphsTouchedGoInWhole)
{
    write(u"abc\rdef\ry");
    convert(1, 6, {.columns = 2});
    EXPECT_EQ(shape(), u"abcCdefCRyP");
}

TEST_F(TextToTableTest, SeparatorsEndCellsAndParagraphsEndRows)
{
    write(u"a\tb\rc\t\rd\ry");
    const Table table = convert(0, 9, {.separator = u'\t'});
    EXPECT_EQ(shape(), u"aCbCRcCCRdCCRyP");
    expectAt(table.range(), 0, 13);
}

TEST_F(TextToTableTest, CellsWithoutRoomGoIntoTheNextRow)
{
    write(u"a;b;c\rd\ry");
    convert(0, 8, {.separator = u';', .columns = 2});
    EXPECT_EQ(shape(), u"aCbCRcCCRdCCRyP");
}

TEST_F(TextToTableTest, FormattingStaysWithItsText)
{
    write(u"a\rb\rcd\r");
    range(0, 1).setStyle(-2);
    range(2, 3).setParagraphFormat({.alignment = Alignment::center});
    range(4, 5).setFont({.bold = true});
    const Table table = convert(0, 7, {.columns = 3});
    EXPECT_EQ(table.cell(1, 1).range().style()->name(), u"Heading 1");
    EXPECT_EQ(table.cell(1, 2).range().paragraphFormat().alignment, Alignment::center);
    EXPECT_EQ(table.cell(1, 3).range().paragraphFormat().alignment, Alignment::left);
    EXPECT_EQ(range(4, 5).font().bold, true);
    EXPECT_EQ(range(5, 7).font().bold, false);
}

TEST_F(TextToTableTest, MarksLookLikeTheParagraphsThatTheyTakeThePlaceOf)
{
    write(u"a\rb\r");
    range(1, 2).setFont({.italic = true});
    convert(0, 4, {.columns = 2});
    EXPECT_EQ(range(1, 2).font().italic, true);
    EXPECT_EQ(range(3, 4).font().italic, false);
}

TEST_F(TextToTableTest, BookmarksStayWithTheirCells)
{
    write(u"ab\rcd\ref\ry");
    Bookmarks& marks = document->bookmarks();
    marks.add(u"first", range(0, 0));
    marks.add(u"one", range(0, 2));
    marks.add(u"second", range(3, 3));
    marks.add(u"third", range(6, 8));
    marks.add(u"behind", range(9, 9));
    const LiveRange whole = range(3, 6);
    convert(0, 9, {.columns = 2});
    EXPECT_EQ(shape(), u"abCcdCRefCCRyP");
    expectAt(marks.find(u"first")->range(), 0, 0);
    expectAt(marks.find(u"one")->range(), 0, 2);
    expectAt(marks.find(u"second")->range(), 3, 3);
    expectAt(marks.find(u"third")->range(), 7, 9);
    expectAt(marks.find(u"behind")->range(), 12, 12);
    expectAt(whole, 3, 7);
}

TEST_F(TextToTableTest, FieldsAndLinksStayWhole)
{
    write(u"a\tb\r");
    addHyperlink(range(0, 1), {u"", u"a\tz"});
    const Table table = convert(0, 1, {.separator = u'\t'});
    const std::vector<Hyperlink> links = hyperlinksIn(table.cell(1, 1).range());
    ASSERT_EQ(links.size(), 1u);
    EXPECT_EQ(links.front().target().subAddress, u"a\tz");
    EXPECT_EQ(table.cell(1, 1).range().text(), u"a\r\a");
    EXPECT_EQ(table.cell(1, 2).range().text(), u"b\r\a");
}

TEST_F(TextToTableTest, ColumnsAreAsWideAsAskedForAndHaveLines)
{
    write(u"a\rb\r");
    const Table table = convert(0, 4, {.columns = 2, .columnWidth = 100, .borders = Table::Borders::single});
    EXPECT_FLOAT_EQ(table.cell(1, 2).format().width, 100);
    EXPECT_TRUE(table.cell(1, 2).format().left.isVisible);
}

TEST_F(TextToTableTest, ATableLikeAnyOther)
{
    write(u"a\rb\rc\rd\ry");
    Table table = convert(0, 8, {.columns = 2});
    table.addRow();
    table.addColumn();
    EXPECT_EQ(shape(), u"aCbCCRcCdCCRCCCRyP");
    EXPECT_EQ(table.row(1).format().cells.size(), 3u);
}

/// Whatever the text: nothing of it is lost, every row has its columns, and what followed it still does.
TEST_F(TextToTableTest, TextOfAnyShapeStaysWhole)
{
    std::uint32_t state = 1;
    const auto random = [&state](std::uint32_t below) {
        state = state * 1664525u + 1013904223u;
        return (state >> 16) % below;
    };
    for (int round = 0; round < 300; ++round) {
        document = Document::make(u"Document1");
        std::u16string written;
        for (std::uint32_t i = random(12); i > 0; --i)
            written += u"ab\t\r"[random(4)];
        write(written);
        const auto last = static_cast<std::uint32_t>(written.size());
        const auto from = static_cast<Position>(random(last + 1));
        const auto past = from + static_cast<Position>(random(last + 2 - static_cast<std::uint32_t>(from)));
        const LiveRange behind = range(static_cast<Position>(last), static_cast<Position>(last) + 1);
        TextToTableOptions options;
        if (random(2) == 0)
            options.separator = u'\t';
        if (random(2) == 0)
            options.columns = 1 + static_cast<std::int32_t>(random(3));
        const Table table = convert(from, past, options);
        ASSERT_EQ(checkInvariants(*document), "") << round;
        EXPECT_TRUE(table.isUniform());
        EXPECT_EQ(options.columns.value_or(table.columnCount()), table.columnCount());
        EXPECT_EQ(behind.end(), document->mainStory()->length());
        const auto letters = [](std::u16string from_) {
            std::erase_if(from_, [](char16_t c) { return c < u'a'; });
            return from_;
        };
        EXPECT_EQ(letters(text()), letters(written));
    }
}

TEST_F(TextToTableTest, RefusesWhatNoTableHas)
{
    write(u"a\rb\r");
    const auto refused = [this](const TextToTableOptions& options) {
        return errorOf([&] { convert(0, 4, options); });
    };
    EXPECT_EQ(refused({.columns = 0}), 4608);
    EXPECT_EQ(refused({.columns = 64}), 4608);
    EXPECT_EQ(refused({.rows = 0}), 4608);
    EXPECT_EQ(refused({.rows = 32768}), 4608);
    EXPECT_EQ(refused({.columnWidth = -1}), 4608);
    EXPECT_EQ(shape(), u"aPbPP");
}

TEST_F(TextToTableTest, RefusesTextThatIsNoPlainParagraphs)
{
    write(u"ab\rcd\ref");
    document->mainStory()->wrapInField(1, 4, u"QUOTE");
    EXPECT_THROW(convert(0, 3, {}), NotSupported);
    const Position last = document->mainStory()->length() - 1;
    LiveRange place = range(last, last);
    Table::add(place, 1, 1);
    EXPECT_THROW(convert(last + 1, last + 1, {}), NotSupported);
}

} // namespace
} // namespace standin::model
