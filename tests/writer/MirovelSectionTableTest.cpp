#include "WriterFixture.h"

#include "WriterEvents.h"

#include <algorithm>
#include <string>

namespace {

namespace model = standin::model;

constexpr auto memberMissing = static_cast<HRESULT>(0x800A1735);
constexpr auto outOfRange = static_cast<HRESULT>(0x800A1200);

class MirovelSectionTableTest : public WriterTest
{
protected:
    /// Opens a table and begins its first row; of the calls nothing is left.
    void openRow()
    {
        writer().startTable();
        writer().addRow();
        takeCalls();
    }

    void addCells(int count)
    {
        for (int i = 0; i < count; ++i)
            writer().addCell();
    }

    void addCell(const wchar_t* text)
    {
        writer().addCell();
        writer().insertText(text);
    }

    std::vector<float> widths(std::int32_t row) const
    {
        std::vector<float> widths;
        for (const model::CellFormat& cell : tables().front().row(row).format().cells)
            widths.push_back(cell.width);
        return widths;
    }

    model::RowFormat rowFormat(std::int32_t row) const { return tables().front().row(row).format(); }
};

/// What opening the first table takes behind what waited for it: Word's answer to where it ends is `end`.
Calls tableOpened(std::int32_t at, std::int32_t end)
{
    const std::string place = std::to_string(at);
    return {R"(body.InsertAfter(" "))",
            "body.Duplicate -> body.Duplicate",
            "body.Duplicate.End = " + place,
            "body.Duplicate.Start = " + place,
            "body.Duplicate.Tables -> body.Duplicate.Tables",
            "body.Duplicate.Tables.Add(body.Duplicate, 1, 1, missing, missing) -> table",
            "table.Rows -> table.Rows",
            "table.Rows.Item(1) -> table.Rows(1)",
            "table.Rows(1).Cells -> table.Rows(1).Cells",
            "table.Rows(1).Cells.Item(1) -> table.Rows(1).Cells(1)",
            "table.Rows(1).Cells(1).Range -> table.Rows(1).Cells(1).Range",
            "body.End -> " + std::to_string(end)};
}

TEST_F(MirovelSectionTableTest, StartsAtTheInsertionPositionWithOneCell)
{
    EXPECT_FALSE(writer().isTableOpen());
    writer().startTable();
    EXPECT_LINES(takeCalls(), join(styleRunApplied(0, 0, "-1", normalFont), tableOpened(0, 3)));
    EXPECT_TRUE(writer().isTableOpen());
    EXPECT_EQ(text(), u"\a\a ");
    EXPECT_EQ(cellTexts(), u"");
    EXPECT_EQ(insertionPosition(), 3) << "behind the table and the space";
    writer().insertText(L"in");
    EXPECT_LINES(takeCalls(), Calls{firstCell + R"(.InsertAfter("in"))"});
    writer().applyStyle();
    EXPECT_LINES(takeCalls(), Calls{}) << "no run is open";
}

TEST_F(MirovelSectionTableTest, AppliesWhatWaitsForTheTextInFront)
{
    writer().setStyle("Heading 1", false);
    writer().setTextAlign(2);
    writer().insertText(L"Title");
    writer().setFont(FontLook{"Courier New", 9}.data());
    writer().insertText(L"!");
    writer().insertEndl();
    takeCalls();
    writer().startTable();
    EXPECT_LINES(
        takeCalls(),
        join(rangeLaid(0, 7), Calls{"body.Style = -2"}, rangeLaid(0, 5), fontWritten("body", heading1Font),
             rangeLaid(5, 7), fontWritten("body", FontLook{"Courier New", 9}), rangeLaid(0, 7),
             Calls{"body.ParagraphFormat -> body.ParagraphFormat", "body.ParagraphFormat.Alignment = 1"},
             tableOpened(7, 10)));
    writer().setTextAlign(0);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force again";
    EXPECT_EQ(text(), u"Title!\r\a\a ");
    EXPECT_EQ(styleAt(0), u"Heading 1");
    EXPECT_EQ(alignmentAt(0), model::Alignment::center);
    writer().endTable();
    EXPECT_LINES(takeCalls(), Calls{"body.End -> 10"}) << "no alignment waits";
    EXPECT_EQ(styleRunAtEnd().second, 10);
}

TEST_F(MirovelSectionTableTest, IsWrittenInNormal)
{
    writer().setStyle("Heading 1", false);
    takeCalls();
    writer().startTable();
    EXPECT_LINES(takeCalls(), join(styleRunApplied(0, 0, "-2", heading1Font), tableOpened(0, 3)));
    writer().setStyle("Normal", false);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force already";
    writer().endTable();
    EXPECT_LINES(finish(), join(styleRunApplied(0, 3, "-1", normalFont), Calls{"document.UndoClear()"}))
        << "the run and its font, from in front of the table";
}

TEST_F(MirovelSectionTableTest, SplitsAParagraphThatIsOpen)
{
    writer().insertText(L"intro");
    takeCalls();
    writer().startTable();
    EXPECT_LINES(takeCalls(), join(styleRunApplied(0, 5, "-1", normalFont), tableOpened(5, 9)));
    EXPECT_EQ(insertionPosition(), 9);
    EXPECT_EQ(text(), u"intro\r\a\a ");
}

TEST_F(MirovelSectionTableTest, DoesNotNest)
{
    openRow();
    addCell(L"one");
    takeCalls();
    writer().startTable();
    EXPECT_LINES(takeCalls(), Calls{});
    writer().insertText(L"!");
    addCell(L"two");
    writer().addRow();
    addCell(L"three");
    EXPECT_EQ(cellTexts(), u"one!|two/three|");
}

TEST_F(MirovelSectionTableTest, WithoutATableNothingIsHeard)
{
    writer().addRow();
    writer().addCell();
    writer().endTable();
    writer().setTableRowHeight(20);
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_FALSE(writer().isTableOpen());
    writer().setStyle("Normal", false);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force still";
    EXPECT_EQ(text(), u"");
    openRow();
    addCell(L"one");
    takeCalls();
    writer().addRow();
    EXPECT_EQ(lastOf(takeCalls()), "row.Cells(1).Range -> row.Cells(1).Range") << "no height is set";
    EXPECT_EQ(cellTexts(), u"one/");
}

/// Counts the calls that come out of order.
class OutOfOrder : public WriterEvents
{
public:
    void ignored(Silence why, std::wstring_view) noexcept override
    {
        count += why == Silence::tableOutOfOrder ? 1 : 0;
    }
    void flushed(const Flush&) noexcept override {}
    void flushFailed(std::u16string_view) noexcept override {}
    void fragmentRefused(std::size_t) noexcept override {}

    int count = 0;
};

TEST_F(MirovelSectionTableTest, EachCallOutOfOrderIsTold)
{
    OutOfOrder told;
    writer().setEvents(&told);
    writer().addRow();
    EXPECT_EQ(told.count, 1);
    writer().addCell();
    EXPECT_EQ(told.count, 2);
    writer().endTable();
    EXPECT_EQ(told.count, 3);
    writer().setTableRowHeight(20);
    EXPECT_EQ(told.count, 4);
    writer().startTable();
    writer().addCell();
    EXPECT_EQ(told.count, 5);
    writer().addRow();
    writer().startTable();
    EXPECT_EQ(told.count, 6);
    writer().addCell();
    writer().endTable();
    EXPECT_EQ(told.count, 6);
    writer().addRow();
    EXPECT_EQ(told.count, 7);
    abandon();
}

TEST_F(MirovelSectionTableTest, ACellWithoutARowIsNotHeard)
{
    writer().startTable();
    takeCalls();
    writer().addCell();
    EXPECT_LINES(takeCalls(), Calls{});
    writer().addRow();
    writer().addCell();
    EXPECT_LINES(takeCalls(), Calls{}) << "it is not counted";
}

TEST_F(MirovelSectionTableTest, TheFirstRowIsTheOneThatTheTableBeganWith)
{
    writer().startTable();
    takeCalls();
    writer().addRow();
    EXPECT_LINES(takeCalls(), Calls{});
    writer().addRow();
    EXPECT_LINES(takeCalls(), Calls{}) << "the first row has no cell yet";
    writer().addCell();
    EXPECT_LINES(takeCalls(), Calls{}) << "this is the first row still";
    EXPECT_EQ(tables().front().rowCount(), 1);
}

TEST_F(MirovelSectionTableTest, TheFirstCellIsTheOneThatTheTableBeganWith)
{
    openRow();
    writer().addCell();
    EXPECT_LINES(takeCalls(), Calls{});
    writer().insertText(L"one");
    EXPECT_LINES(takeCalls(), Calls{R"(table.Rows(1).Cells(1).Range.InsertAfter("one"))"});
    EXPECT_EQ(insertionPosition(), 3) << "text in cells is not counted";
    EXPECT_EQ(cellTexts(), u"one");
}

TEST_F(MirovelSectionTableTest, EachFurtherCellOfTheFirstRowMakesAllEquallyWide)
{
    openRow();
    writer().addCell();
    takeCalls();
    writer().addCell();
    EXPECT_LINES(takeCalls(), (Calls{"table.Rows(1).Cells.Add(missing) -> cell",
                                     "table.Rows(1).Cells.Item(1) -> table.Rows(1).Cells(1)",
                                     "table.Rows(1).Cells(1).SetWidth(215f, 3)",
                                     "table.Rows(1).Cells.Item(2) -> table.Rows(1).Cells(2)",
                                     "table.Rows(1).Cells(2).SetWidth(215f, 3)",
                                     "table.Rows(1).Cells.Item(2) -> table.Rows(1).Cells(2)",
                                     "table.Rows(1).Cells(2).Range -> table.Rows(1).Cells(2).Range"}));
    EXPECT_EQ(widths(1), (std::vector<float>{215, 215}));

    writer().addCell();
    EXPECT_LINES(takeCalls(), (Calls{"table.Rows(1).Cells.Add(missing) -> cell2",
                                     "table.Rows(1).Cells.Item(1) -> table.Rows(1).Cells(1)",
                                     "table.Rows(1).Cells(1).SetWidth(143.33333f, 3)",
                                     "table.Rows(1).Cells.Item(2) -> table.Rows(1).Cells(2)",
                                     "table.Rows(1).Cells(2).SetWidth(143.33333f, 3)",
                                     "table.Rows(1).Cells.Item(3) -> table.Rows(1).Cells(3)",
                                     "table.Rows(1).Cells(3).SetWidth(143.33333f, 3)",
                                     "table.Rows(1).Cells.Item(3) -> table.Rows(1).Cells(3)",
                                     "table.Rows(1).Cells(3).Range -> table.Rows(1).Cells(3).Range"}));
    const float third = 430.0F / 3.0F;
    EXPECT_EQ(widths(1), (std::vector<float>{third, third, third}));
}

TEST_F(MirovelSectionTableTest, AFurtherRowIsMadeByWordLikeTheOneAbove)
{
    openRow();
    addCell(L"one");
    addCell(L"two");
    takeCalls();
    writer().addRow();
    EXPECT_LINES(takeCalls(),
                 (Calls{"table.Rows(1).Cells.Item(1) -> table.Rows(1).Cells(1)",
                        "table.Rows(1).Cells(1).SetWidth(215f, 3)",
                        "table.Rows(1).Cells.Item(2) -> table.Rows(1).Cells(2)",
                        "table.Rows(1).Cells(2).SetWidth(215f, 3)", "table.Rows -> table.Rows",
                        "table.Rows.Add(missing) -> row", "row.Cells -> row.Cells",
                        "row.Cells.Item(1) -> row.Cells(1)", "row.Cells(1).Range -> row.Cells(1).Range"}));
    EXPECT_EQ(widths(2), (std::vector<float>{215, 215}));

    writer().insertText(L"before any cell ");
    EXPECT_LINES(takeCalls(), Calls{R"(row.Cells(1).Range.InsertAfter("before any cell "))"});
    writer().addCell();
    EXPECT_LINES(takeCalls(),
                 (Calls{"row.Cells.Item(1) -> row.Cells(1)", "row.Cells(1).Range -> row.Cells(1).Range#2"}));
    writer().insertText(L"three");
    writer().addCell();
    writer().insertText(L"four");
    EXPECT_EQ(cellTexts(), u"one|two/before any cell three|four");
}

TEST_F(MirovelSectionTableTest, RowsBehindTheSecondAreAddedWithoutTouchingWidths)
{
    openRow();
    addCells(2);
    writer().addRow();
    takeCalls();
    writer().addRow();
    EXPECT_LINES(takeCalls(), (Calls{"table.Rows -> table.Rows", "table.Rows.Add(missing) -> row2",
                                     "row2.Cells -> row2.Cells", "row2.Cells.Item(1) -> row2.Cells(1)",
                                     "row2.Cells(1).Range -> row2.Cells(1).Range"}));
    EXPECT_EQ(cellTexts(), u"|/|/|");
    addCell(L"a");
    addCell(L"b");
    addCell(L"c");
    EXPECT_EQ(cellTexts(), u"|/|/a|bc");
}

TEST_F(MirovelSectionTableTest, CellsBeyondTheFirstRowsCountWriteIntoTheLastOne)
{
    openRow();
    addCells(3);
    writer().addRow();
    addCell(L"a");
    addCell(L"b");
    addCell(L"c");
    takeCalls();
    writer().addCell();
    EXPECT_LINES(takeCalls(),
                 (Calls{"row.Cells.Item(3) -> row.Cells(3)", "row.Cells(3).Range -> row.Cells(3).Range#2"}));
    writer().insertText(L"d");
    addCell(L"e");
    EXPECT_EQ(cellTexts(), u"||/a|b|cde");
}

TEST_F(MirovelSectionTableTest, EndsBehindItsSpace)
{
    openRow();
    addCell(L"one");
    addCell(L"two");
    takeCalls();
    writer().endTable();
    EXPECT_LINES(takeCalls(), (Calls{"table.Rows(1).Cells.Item(1) -> table.Rows(1).Cells(1)",
                                     "table.Rows(1).Cells(1).SetWidth(215f, 3)",
                                     "table.Rows(1).Cells.Item(2) -> table.Rows(1).Cells(2)",
                                     "table.Rows(1).Cells(2).SetWidth(215f, 3)", "body.End -> 10"}));
    EXPECT_FALSE(writer().isTableOpen());
    EXPECT_EQ(insertionPosition(), 10);

    writer().insertText(L"behind");
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("behind"))"});
    EXPECT_EQ(insertionPosition(), 16);
    EXPECT_EQ(text(), u"one\atwo\a\a behind");
}

TEST_F(MirovelSectionTableTest, ASecondEndIsNotHeard)
{
    openRow();
    addCell(L"one");
    writer().endTable();
    writer().setStyle("Heading 1", false);
    const std::int32_t position = insertionPosition();
    writer().endTable();
    EXPECT_LINES(takeCalls(), Calls{});
    writer().setStyle("Heading 1", false);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force still";
    EXPECT_EQ(styleRunAtEnd().second, position);
}

TEST_F(MirovelSectionTableTest, EndsWithoutAnyRow)
{
    writer().startTable();
    takeCalls();
    writer().endTable();
    EXPECT_LINES(takeCalls(), Calls{"body.End -> 3"});
    EXPECT_FALSE(writer().isTableOpen());
    EXPECT_EQ(text(), u"\a\a ");
    writer().insertText(L"behind");
    EXPECT_EQ(text(), u"\a\a behind");
}

TEST_F(MirovelSectionTableTest, ARowWithoutCellsKeepsItsOne)
{
    openRow();
    writer().insertText(L"only");
    writer().addRow();
    writer().endTable();
    EXPECT_EQ(cellTexts(), u"only");
    EXPECT_EQ(tables().front().rowCount(), 1);
}

TEST_F(MirovelSectionTableTest, ALaterRowWithoutCellsStaysEmpty)
{
    openRow();
    addCell(L"one");
    writer().addRow();
    writer().addRow();
    addCell(L"three");
    EXPECT_EQ(cellTexts(), u"one//three");
}

TEST_F(MirovelSectionTableTest, NormalIsInForceBehindIt)
{
    openRow();
    writer().addCell();
    writer().setStyle("Heading 1", false);
    takeCalls();
    writer().setStyle("Heading 1", false);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force in the table";
    writer().endTable();
    takeCalls();
    writer().setStyle("Normal", false);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force already";
}

TEST_F(MirovelSectionTableTest, AnotherTableBeginsAfresh)
{
    openRow();
    addCells(3);
    writer().addRow();
    writer().setTableRowHeight(20);
    writer().endTable();
    writer().insertEndl();
    takeCalls();
    writer().startTable();
    writer().addRow();
    addCell(L"a");
    addCell(L"b");
    writer().addRow();
    addCells(2);
    addCell(L"c"); // beyond this table's columns, not beyond those of the first one
    writer().endTable();
    ASSERT_EQ(tables().size(), 2U);
    EXPECT_EQ(tables().back().columnCount(), 2);
    EXPECT_EQ(tables().back().row(2).format().heightRule, model::RowHeightRule::automatic);
    EXPECT_EQ(text(), u"\a\a\a\a\a\a\a\a \ra\ab\a\a\ac\a\a ");
}

TEST_F(MirovelSectionTableTest, ARightBehindAnotherIsATableOfItsOwn)
{
    openRow();
    addCell(L"a");
    writer().endTable();
    writer().startTable();
    writer().addRow();
    addCell(L"b");
    writer().endTable();
    EXPECT_EQ(text(), u"a\a\a \rb\a\a ");
    EXPECT_EQ(tables().size(), 2U);
}

TEST_F(MirovelSectionTableTest, ParagraphEndsAndPageBreaksStayInTheCell)
{
    openRow();
    addCell(L"one");
    takeCalls();
    writer().insertEndl();
    EXPECT_LINES(takeCalls(), Calls{R"(table.Rows(1).Cells(1).Range.InsertAfter("\n"))"});
    writer().insertPageBreak();
    EXPECT_LINES(takeCalls(), Calls{});
    writer().insertText(L"two");
    EXPECT_EQ(cellTexts(), u"one\rtwo");
    EXPECT_EQ(insertionPosition(), 3);
    writer().changeLastPageBreak();
    EXPECT_LINES(takeCalls(), Calls{}) << "there is none";
    writer().endTable();
    takeCalls();
    writer().setTextAlign(2);
    EXPECT_EQ(firstOf(takeCalls()), R"(body.InsertAfter("\n"))") << "the paragraph behind the table is open";
}

TEST_F(MirovelSectionTableTest, ARowHeightHoldsForTheRowAndThoseBehindIt)
{
    openRow();
    writer().addCell();
    takeCalls();
    writer().setTableRowHeight(20);
    EXPECT_LINES(takeCalls(), Calls{"table.Rows(1).SetHeight(20f, 2)"});
    writer().addRow();
    EXPECT_LINES(takeCalls(), (Calls{"table.Rows(1).Cells.Item(1) -> table.Rows(1).Cells(1)",
                                     "table.Rows(1).Cells(1).SetWidth(430f, 3)", "table.Rows -> table.Rows",
                                     "table.Rows.Add(missing) -> row", "row.Cells -> row.Cells",
                                     "row.Cells.Item(1) -> row.Cells(1)",
                                     "row.Cells(1).Range -> row.Cells(1).Range", "row.SetHeight(20f, 2)"}));
    for (const std::int32_t row : {1, 2}) {
        EXPECT_EQ(rowFormat(row).height, 20) << "row " << row;
        EXPECT_EQ(rowFormat(row).heightRule, model::RowHeightRule::exactly) << "row " << row;
    }
}

TEST_F(MirovelSectionTableTest, AHeightOfZeroIsSetForTheRowButNotForLaterOnes)
{
    writer().startTable();
    takeCalls();
    writer().setTableRowHeight(0);
    EXPECT_LINES(takeCalls(), Calls{"table.Rows(1).SetHeight(0f, 2)"});
    EXPECT_EQ(rowFormat(1).heightRule, model::RowHeightRule::exactly);
    EXPECT_EQ(rowFormat(1).height, 0);
    writer().addRow();
    writer().addCell();
    takeCalls();
    writer().addRow();
    for (const std::string& call : takeCalls())
        EXPECT_EQ(call.find("SetHeight"), std::string::npos) << call;
}

TEST_F(MirovelSectionTableTest, AHeightReachesTheLastRowOfATableThatIsClosed)
{
    openRow();
    writer().addCell();
    writer().addRow();
    writer().endTable();
    takeCalls();
    writer().setTableRowHeight(33);
    EXPECT_LINES(takeCalls(), Calls{"row.SetHeight(33f, 2)"});
    EXPECT_EQ(rowFormat(1).heightRule, model::RowHeightRule::automatic);
    EXPECT_EQ(rowFormat(2).height, 33);
}

TEST_F(MirovelSectionTableTest, AHeightThatWordRefusesIsKeptAndRefusedForEveryRow)
{
    openRow();
    addCells(2);
    int row = 0;
    for (const auto& refused :
         {std::pair(-1, "-1f"), std::pair(1585, "1585f"), std::pair(2147483647, "2147483648f")}) {
        EXPECT_THAT(comErrorOf([&] { writer().setTableRowHeight(refused.first); }), isHresult(outOfRange));
        takeCalls();
        EXPECT_THAT(comErrorOf([&] { writer().addRow(); }), isHresult(outOfRange));
        EXPECT_EQ(lastOf(takeCalls()),
                  numbered("row", ++row) + ".SetHeight(" + refused.second + ", 2) !! 0x800a1200");
    }
    EXPECT_EQ(tables().front().rowCount(), 4) << "the rows are there";
    addCell(L"a");
    writer().setTableRowHeight(20);
    writer().addRow();
    addCell(L"b");
    EXPECT_EQ(cellTexts(), u"|/|/|/|a/b|") << "the column was not begun anew, as it is now";
    writer().endTable();
    EXPECT_EQ(tables().front().rowCount(), 5);
}

TEST_F(MirovelSectionTableTest, AColumnTooManyIsRefusedUntilTheWriterEnds)
{
    constexpr int most = static_cast<int>(model::RowFormat::mostCells);
    openRow();
    addCells(most);
    for (int column = most + 1; column <= 300; ++column) {
        takeCalls();
        EXPECT_THAT(comErrorOf([&] { writer().addCell(); }), isHresult(outOfRange));
        EXPECT_EQ(lastOf(takeCalls()), "table.Rows(1).Cells.Add(missing) !! 0x800a1200");
    }
    writer().insertText(L"last");
    EXPECT_TRUE(cellTexts().ends_with(u"|last"));

    EXPECT_THAT(comErrorOf([&] { writer().addRow(); }), isHresult(memberMissing));
    EXPECT_THAT(comErrorOf([&] { writer().endTable(); }), isHresult(memberMissing));
    EXPECT_TRUE(writer().isTableOpen());
    EXPECT_LINES(finish(), Calls{"document.UndoClear()"});
}

TEST_F(MirovelSectionTableTest, TakesTenThousandCells)
{
    constexpr int rows = 1000;
    writer().startTable();
    for (int row = 0; row < rows; ++row) {
        writer().addRow();
        for (int column = 0; column < 10; ++column)
            addCell(L"x");
    }
    writer().endTable();
    EXPECT_EQ(insertionPosition(), rows * 21 + 1);
    EXPECT_EQ(tables().front().rowCount(), rows);
    EXPECT_EQ(tables().front().row(rows).range().text(),
              u"x\r\ax\r\ax\r\ax\r\ax\r\ax\r\ax\r\ax\r\ax\r\ax\r\a\r\a");
}

TEST_F(MirovelSectionTableTest, AFailureToStartKeepsWhatStoodBeforeTheStep)
{
    const std::size_t flush = styleRunApplied(0, 0, "-1", normalFont).size();
    const std::size_t all = flush + tableOpened(0, 3).size();
    for (std::size_t call = 1; call <= all; ++call) {
        SCOPED_TRACE(call);
        startOver();
        word_.failCall(static_cast<long>(call), E_ACCESSDENIED);
        EXPECT_THAT(comErrorOf([&] { writer().startTable(); }), isHresult(E_ACCESSDENIED));
        word_.clearFaults();
        const bool opened = call > flush;
        const bool hasRow = call > flush + 8;
        const bool hasCell = call > flush + 11;
        EXPECT_EQ(writer().isTableOpen(), opened);
        EXPECT_EQ(insertionPosition(), call <= flush + 1 ? 0 : 1);
        writer().setTableRowHeight(20);
        EXPECT_EQ(takeCalls().size(), hasRow ? 1U : 0U);
        EXPECT_THAT(comErrorOf([&] { writer().insertText(L"in"); }),
                    isHresult(opened && !hasCell ? E_POINTER : S_OK));
        writer().endTable();
        writer().insertText(L"goes on");
        finish();
        EXPECT_NE(text().find(u"goes on"), std::u16string::npos);
    }
}

TEST_F(MirovelSectionTableTest, AFailedCellCountsInItsRowOnly)
{
    const auto expectWidth = [&](const char* width) {
        const Calls calls = takeCalls();
        EXPECT_TRUE(std::ranges::any_of(calls, [&](const std::string& call) {
            return call.ends_with(std::string(".SetWidth(") + width);
        }));
    };
    for (long call = 1; call <= 7; ++call) {
        SCOPED_TRACE(call);
        startOver();
        openCell();
        word_.failCall(call, E_ACCESSDENIED);
        EXPECT_THAT(comErrorOf([&] { writer().addCell(); }), isHresult(E_ACCESSDENIED));
        word_.clearFaults();
        takeCalls();
        if (call == 1) {
            EXPECT_THAT(comErrorOf([&] { writer().addCell(); }), isHresult(memberMissing));
            expectWidth("143.33333f, 3)");
            abandon();
            continue;
        }
        writer().addRow();
        expectWidth("215f, 3)");
        addCell(L"a");
        addCell(L"b");
        EXPECT_EQ(cellTexts(), u"|/ab|") << "it is none of the table's columns";
    }
}

TEST_F(MirovelSectionTableTest, AFailedRowLeavesTheRowBeforeCurrent)
{
    openRow();
    addCell(L"one");
    takeCalls();
    word_.failCall(2, E_ACCESSDENIED); // the width
    EXPECT_THAT(comErrorOf([&] { writer().addRow(); }), isHresult(E_ACCESSDENIED));
    word_.failCall(4, E_ACCESSDENIED); // Rows.Add, behind the width, since the row is not begun yet
    EXPECT_THAT(comErrorOf([&] { writer().addRow(); }), isHresult(E_ACCESSDENIED));
    writer().insertText(L"!");
    EXPECT_EQ(cellTexts(), u"one!");
    takeCalls();
    writer().addRow();
    EXPECT_EQ(firstOf(takeCalls()), "table.Rows -> table.Rows") << "this one was begun";
    addCell(L"two");
    writer().endTable();
    EXPECT_EQ(cellTexts(), u"one!/two");
}

TEST_F(MirovelSectionTableTest, AFailedEndLeavesTheTableOpen)
{
    openRow();
    addCell(L"one");
    for (long call = 1; call <= 3; ++call) {
        word_.failCall(call, E_ACCESSDENIED);
        EXPECT_THAT(comErrorOf([&] { writer().endTable(); }), isHresult(E_ACCESSDENIED));
        EXPECT_TRUE(writer().isTableOpen());
    }
    addCell(L"two");
    writer().addRow();
    addCell(L"three");
    writer().endTable();
    EXPECT_FALSE(writer().isTableOpen());
    EXPECT_EQ(cellTexts(), u"one|two/three|");
}

TEST_F(MirovelSectionTableTest, ATableThatIsNeverEndedIsKept)
{
    openRow();
    addCell(L"one");
    EXPECT_LINES(finish(), Calls{"document.UndoClear()"});
    EXPECT_EQ(cellTexts(), u"one");
}

} // namespace
