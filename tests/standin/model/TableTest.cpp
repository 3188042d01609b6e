#include "Table.h"

#include "ModelFixture.h"

namespace standin::model {
namespace {

class TableTest : public ModelTest
{
protected:
    Table add(Position at, std::int32_t rows, std::int32_t columns)
    {
        LiveRange place = range(at, at);
        return Table::add(place, rows, columns);
    }
    static void expectWidths(const TableRow& row, const std::vector<float>& widths)
    {
        std::vector<float> found;
        for (const CellFormat& cell : row.format().cells)
            found.push_back(cell.width);
        ASSERT_EQ(found.size(), widths.size());
        for (std::size_t i = 0; i < widths.size(); ++i)
            EXPECT_NEAR(found[i], widths[i], 0.01f) << i;
    }
};

TEST_F(TableTest, EmptyTableHasOnePositionPerCellAndRow)
{
    const Table table = add(0, 2, 3);
    EXPECT_EQ(shape(), u"CCCRCCCRP");
    expectAt(table.range(), 0, 8);
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(table.columnCount(), 3);
}

TEST_F(TableTest, TableAtAParagraphsStartStandsInFrontOfIt)
{
    write(u"a\rb");
    const Table table = add(2, 1, 1);
    EXPECT_EQ(shape(), u"aPCRbP");
    expectAt(table.range(), 2, 4);
}

TEST_F(TableTest, TableInsideAParagraphSplitsIt)
{
    write(u"ab");
    add(1, 1, 1);
    EXPECT_EQ(shape(), u"aPCRbP");
}

TEST_F(TableTest, TableBeforeAMarkSplitsTheParagraph)
{
    write(u"ab");
    add(2, 1, 1);
    EXPECT_EQ(shape(), u"abPCRP");
}

TEST_F(TableTest, TableReplacesItsRange)
{
    write(u"abcd");
    LiveRange place = range(1, 3);
    Table::add(place, 1, 1);
    EXPECT_EQ(shape(), u"aPCRdP");
}

TEST_F(TableTest, CellsTakeTheParagraphStyleOfTheirPlace)
{
    content().setStyle(-2);
    const Table table = add(0, 1, 1);
    EXPECT_EQ(table.cell(1, 1).range().style()->name(), u"Heading 1");
}

TEST_F(TableTest, RefusesSizesThatNoTableHas)
{
    EXPECT_EQ(errorOf([&] { add(0, 0, 1); }), 4608);
    EXPECT_EQ(errorOf([&] { add(0, 1, 0); }), 4608);
    EXPECT_EQ(errorOf([&] { add(0, 1, 64); }), 4608);
}

TEST_F(TableTest, TablesInsideTablesAreNotSupported)
{
    add(0, 1, 1);
    EXPECT_THROW(add(0, 1, 1), NotSupported);
}

TEST_F(TableTest, ColumnsShareTheTextWidthEqually)
{
    const Table table = add(0, 1, 2);
    expectWidths(table.row(1), {221.4f, 221.4f});
    EXPECT_FLOAT_EQ(table.row(1).format().leftEdge, -5.4f);
}

TEST_F(TableTest, TableInAHeaderTakesTheWidthOfItsSection)
{
    LiveRange(document->mainStory(), 0, 0).insertBreak(BreakType::sectionNextPage);
    const SectionPtr section = document->section(2);
    section->pageSetup.leftMargin = 100;
    section->setLinkToPrevious(Section::Part::header, HeaderFooterIndex::primary, false);
    LiveRange place(section->story(Section::Part::header, HeaderFooterIndex::primary), 0, 0);
    expectWidths(Table::add(place, 1, 1).row(1), {432.8f});
}

TEST_F(TableTest, BordersAreThereOnlyWhenAskedFor)
{
    EXPECT_FALSE(add(0, 1, 1).row(1).format().cells[0].top.isVisible);
    LiveRange place = range(2, 2);
    EXPECT_TRUE(Table::add(place, 1, 1, Table::Borders::single).row(2).format().cells[0].top.isVisible);
}

TEST_F(TableTest, CellRangeEndsBehindItsMark)
{
    const Table table = add(0, 2, 2);
    expectAt(table.cell(1, 1).range(), 0, 1);
    expectAt(table.cell(2, 2).range(), 4, 5);
    EXPECT_EQ(table.cell(2, 2).range().text(), u"\r\a");
}

TEST_F(TableTest, InsertAfterACellWritesBeforeItsMark)
{
    const Table table = add(0, 1, 2);
    LiveRange cell = table.cell(1, 2).range();
    cell.insertAfter(u"ab");
    cell.insertAfter(u"c\rd");
    EXPECT_EQ(shape(), u"CabcPdCRP");
    expectAt(cell, 1, 7);
    expectAt(table.cell(1, 2).range(), 1, 7);
}

TEST_F(TableTest, CellAfterOthersHaveGrownIsFoundAgain)
{
    const Table table = add(0, 2, 2);
    const TableCell last = table.cell(2, 2);
    table.cell(1, 1).range().insertAfter(u"one\rtwo");
    expectAt(last.range(), 11, 12);
    EXPECT_EQ(last.index(), 2);
    EXPECT_EQ(last.row().index(), 2);
}

TEST_F(TableTest, SettingACellsTextKeepsItsMark)
{
    const Table table = add(0, 1, 2);
    table.cell(1, 1).range().setText(u"abc");
    table.cell(1, 1).range().setText(u"x");
    EXPECT_EQ(shape(), u"xCCRP");
}

TEST_F(TableTest, DeletingACellsRangeEmptiesItAndTextCanFollow)
{
    const Table table = add(0, 1, 2);
    LiveRange cell = table.cell(1, 1).range();
    cell.insertAfter(u"ab\rc");
    cell.remove();
    expectAt(cell, 0, 0);
    cell.insertAfter(u"z");
    EXPECT_EQ(shape(), u"zCCRP");
}

TEST_F(TableTest, NothingCanBeWrittenBetweenTheLastCellAndTheRowsMark)
{
    add(0, 1, 1);
    EXPECT_EQ(errorOf([&] { range(1, 1).insertAfter(u"x"); }), 5251);
    EXPECT_EQ(errorOf([&] { range(1, 1).insertBefore(u"x"); }), 5251);
    EXPECT_EQ(shape(), u"CRP");
}

TEST_F(TableTest, SectionsDoNotBreakInsideATable)
{
    add(0, 1, 1);
    EXPECT_EQ(errorOf([&] { range(0, 0).insertBreak(BreakType::sectionNextPage); }), 4605);
}

TEST_F(TableTest, DeletingTheTablesRangeEmptiesItsCells)
{
    const Table table = add(0, 2, 2);
    table.cell(1, 1).range().insertAfter(u"a");
    table.cell(2, 2).range().insertAfter(u"b\rc");
    LiveRange all = table.range();
    EXPECT_EQ(all.remove(), 1);
    EXPECT_EQ(shape(), u"CCRCCRP");
}

TEST_F(TableTest, DeletingBeyondTheTableTakesItAway)
{
    write(u"ab\rcd");
    const Table table = add(3, 1, 2);
    table.cell(1, 1).range().insertAfter(u"x");
    range(1, 8).remove();
    EXPECT_EQ(shape(), u"adP");
    EXPECT_EQ(errorOf([&] { table.rowCount(); }), 5825);
}

TEST_F(TableTest, DeletingTheWholeStoryTakesTheTableAway)
{
    add(0, 2, 2);
    content().remove();
    EXPECT_EQ(shape(), u"P");
}

TEST_F(TableTest, DeletingIntoATableTakesWholeRowsAndEmptiesTheRest)
{
    write(u"ab\rcd");
    const Table table = add(3, 2, 2);
    for (const std::int32_t row : {1, 2}) {
        table.cell(row, 1).range().insertAfter(u"x");
        table.cell(row, 2).range().insertAfter(u"y");
    }
    ASSERT_EQ(shape(), u"abPxCyCRxCyCRcdP");
    range(1, 10).remove();
    EXPECT_EQ(shape(), u"aPCyCRcdP");
    EXPECT_EQ(table.rowCount(), 1);
}

TEST_F(TableTest, DeletingFromACellBeyondTheTableKeepsTheRow)
{
    write(u"cd");
    const Table table = add(0, 2, 2);
    table.cell(1, 2).range().insertAfter(u"xy");
    ASSERT_EQ(shape(), u"CxyCRCCRcdP");
    range(2, 9).remove();
    EXPECT_EQ(shape(), u"CxCRdP");
}

TEST_F(TableTest, DeletingAMarkInFrontOfATableKeepsTextAndCellsApart)
{
    write(u"ab");
    add(2, 1, 1);
    range(2, 3).remove();
    EXPECT_EQ(shape(), u"abPCRP");
    EXPECT_EQ(range(2, 2).remove(), 0);
}

TEST_F(TableTest, CollapsedDeleteDoesNotTakeACellsMark)
{
    add(0, 1, 2);
    EXPECT_EQ(range(0, 0).remove(), 0);
    EXPECT_EQ(range(3, 3).remove(-1), 0);
    EXPECT_EQ(shape(), u"CCRP");
}

TEST_F(TableTest, RowsAreAddedAsTheLastOne)
{
    Table table = add(0, 1, 2);
    table.row(1).cell(1).setWidth(100, RulerStyle::none);
    table.row(1).setHeight(20, RowHeightRule::exactly);
    table.cell(1, 1).range().insertAfter(u"x");
    table.cell(1, 2).range().setParagraphFormat({.alignment = Alignment::right});
    const TableRow row = table.addRow();
    EXPECT_EQ(shape(), u"xCCRCCRP");
    EXPECT_EQ(row.index(), 2);
    expectWidths(row, {100, 221.4f});
    EXPECT_EQ(row.format().heightRule, RowHeightRule::exactly);
    EXPECT_FLOAT_EQ(row.format().height, 20);
    EXPECT_EQ(row.cell(2).range().paragraphFormat().alignment, Alignment::right);
    EXPECT_EQ(row.cell(1).range().paragraphFormat().alignment, Alignment::left);
}

TEST_F(TableTest, CellsAddedToARowMakeTheTableRagged)
{
    Table table = add(0, 2, 1);
    TableRow row = table.row(1);
    const TableCell added = row.addCell();
    EXPECT_EQ(shape(), u"CCRCRP");
    EXPECT_EQ(added.index(), 2);
    EXPECT_EQ(row.cellCount(), 2);
    EXPECT_EQ(table.columnCount(), 2);
    EXPECT_FALSE(table.isUniform());
    EXPECT_EQ(errorOf([&] { table.cell(2, 2); }), 5941);
    expectWidths(row, {442.8f, 442.8f});
}

TEST_F(TableTest, RowsHoldAtMost63Cells)
{
    TableRow row = add(0, 1, 63).row(1);
    EXPECT_EQ(errorOf([&] { row.addCell(); }), 4608);
}

TEST_F(TableTest, WidthAloneMovesTheCellsBehind)
{
    TableRow row = add(0, 1, 3).row(1);
    row.cell(2).setWidth(50, RulerStyle::none);
    expectWidths(row, {147.6f, 50, 147.6f});
}

TEST_F(TableTest, WidthCanKeepTheRightEdge)
{
    TableRow row = add(0, 1, 3).row(1);
    row.cell(1).setWidth(47.6f, RulerStyle::sameWidth);
    expectWidths(row, {47.6f, 197.6f, 197.6f});
}

TEST_F(TableTest, EqualWidthsSetCellByCellComeOutEqual)
{
    TableRow row = add(0, 1, 1).row(1);
    for (std::int32_t count = 1; count <= 3; ++count) {
        if (count > 1)
            row.addCell();
        for (std::int32_t index = 1; index <= count; ++index)
            row.cell(index).setWidth(430.0f / static_cast<float>(count), RulerStyle::sameWidth);
    }
    expectWidths(row, {143.33f, 143.33f, 143.33f});
}

TEST_F(TableTest, RefusesWidthsAndHeightsThatWordDoesNotHave)
{
    TableRow row = add(0, 1, 1).row(1);
    EXPECT_EQ(errorOf([&] { row.cell(1).setWidth(-1, RulerStyle::none); }), 4608);
    EXPECT_EQ(errorOf([&] { row.cell(1).setWidth(1585, RulerStyle::none); }), 4608);
    EXPECT_EQ(errorOf([&] { row.setHeight(-1, RowHeightRule::exactly); }), 4608);
}

TEST_F(TableTest, RemovedRowsAndCellsAreDeletedObjects)
{
    write(u"x\ry");
    const Table table = add(2, 2, 1);
    const TableRow row = table.row(1);
    const TableCell cell = row.cell(1);
    ASSERT_EQ(shape(), u"xPCRCRyP");
    range(1, 4).remove();
    EXPECT_EQ(shape(), u"xPCRyP");
    EXPECT_EQ(errorOf([&] { row.index(); }), 5825);
    EXPECT_EQ(errorOf([&] { cell.range(); }), 5825);
    range(1, 5).remove();
    EXPECT_EQ(errorOf([&] { table.rowCount(); }), 5825);
}

TEST_F(TableTest, IndexesThatAreNotThereAreRefused)
{
    const Table table = add(0, 1, 1);
    EXPECT_EQ(errorOf([&] { table.row(0); }), 5941);
    EXPECT_EQ(errorOf([&] { table.row(2); }), 5941);
    EXPECT_EQ(errorOf([&] { table.row(1).cell(2); }), 5941);
}

TEST_F(TableTest, TablesAreFoundInARange)
{
    write(u"a\rb\rc");
    add(4, 1, 1);
    add(2, 1, 2);
    ASSERT_EQ(shape(), u"aPCCRbPCRcP");
    EXPECT_EQ(tablesOf(content()).size(), 2u);
    EXPECT_EQ(tablesOf(range(0, 3)).size(), 1u);
    EXPECT_EQ(tablesOf(range(0, 2)).size(), 0u);
    EXPECT_EQ(tablesOf(range(7, 7)).size(), 1u);
}

TEST_F(TableTest, TablesThatTouchAreOne)
{
    add(0, 1, 1);
    const Table table = add(2, 1, 2);
    EXPECT_EQ(shape(), u"CRCCRP");
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_FALSE(table.isUniform());
}

TEST_F(TableTest, HeadersThatAreUnlinkedCopyTheirTables)
{
    const auto header = Section::Part::header;
    const auto primary = HeaderFooterIndex::primary;
    LiveRange place(document->section(1)->story(header, primary), 0, 0);
    Table::add(place, 2, 2).cell(2, 1).range().insertAfter(u"x\ry");
    range(0, 0).insertBreak(BreakType::sectionNextPage);
    document->section(2)->setLinkToPrevious(header, primary, false);
    const auto copy = document->section(2)->story(header, primary);
    EXPECT_EQ(copy->text(0, copy->length()), u"\a\a\ax\ry\a\a\a\r");
    EXPECT_EQ(Table(copy, 0).cell(2, 1).range().text(), u"x\ry\r\a");
}

TEST_F(TableTest, TablesOfAClosedDocumentAreDeletedObjects)
{
    const Table table = add(0, 1, 1);
    const TableCell cell = table.cell(1, 1);
    document->close();
    EXPECT_EQ(errorOf([&] { table.rowCount(); }), 5825);
    EXPECT_EQ(errorOf([&] { cell.range(); }), 5825);
}

TEST_F(TableTest, ACellsRangeEndsInFrontOfItsMarkBehindTextUnderTheOtherReading)
{
    for (const bool keeps : {true, false}) {
        readAs({.cellRangeKeepsMark = keeps});
        LiveRange start = range(0, 0);
        LiveRange cell = Table::add(start, 1, 1).cell(1, 1).range();
        cell.insertAfter(u"abc");
        EXPECT_EQ(shape(), u"abcCRP");
        expectAt(cell, 0, keeps ? 4 : 3);
        cell.insertAfter(u"d");
        EXPECT_EQ(shape(), u"abcdCRP");
    }
}

TEST_F(TableTest, ATableStyleIsPutOnTheTablesThatARangeTouches)
{
    write(u"a\rb");
    const StylePtr ruled = document->styles().add(u"Ruled", StyleType::table);
    LiveRange front = range(0, 0);
    Table first = Table::add(front, 2, 2);
    const Position end = document->mainStory()->length() - 1;
    LiveRange back = range(end, end);
    const Table second = Table::add(back, 1, 1);
    first.cell(1, 1).range().setStyle(u"Ruled");
    EXPECT_EQ(first.row(1).format().style, ruled.get());
    EXPECT_EQ(first.row(2).format().style, ruled.get()) << "it is the whole table's";
    EXPECT_EQ(second.row(1).format().style, nullptr);
    EXPECT_EQ(first.addRow().format().style, ruled.get());
    EXPECT_EQ(first.cell(1, 1).range().style()->name(), u"Normal") << "its paragraphs keep theirs";
    LiveRange outside = range(first.range().end(), first.range().end() + 1);
    EXPECT_EQ(errorOf([&] { outside.setStyle(u"Ruled"); }), 4608);
    content().setStyle(*ruled);
    EXPECT_EQ(second.row(1).format().style, ruled.get());
}

} // namespace
} // namespace standin::model
