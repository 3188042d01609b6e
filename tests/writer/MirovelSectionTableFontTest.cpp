// Fonts that were set while a table was open.
#include "WriterFixture.h"

namespace {

namespace model = standin::model;

constexpr FontLook smallCourier{"Courier New", 9};
constexpr FontLook bold{"Courier New", 9, true};

/// A table of two rows, two columns and one letter in each cell: at 0 "a", at 2 "b", at 5 "c", at 7 "d".
class MirovelSectionTableFontTest : public WriterTest
{
protected:
    void openTable()
    {
        writer().startTable();
        writer().addRow();
    }

    void addCell(const wchar_t* text)
    {
        writer().addCell();
        writer().insertText(text);
    }

    /// Sets the font in front of what the next cell holds.
    void addCell(const FontLook& font, const wchar_t* text)
    {
        writer().addCell();
        writer().setFont(font.data());
        writer().insertText(text);
    }

    /// Which cells have `face`, as "+-/++".
    std::string cellsIn(const char16_t* face) const
    {
        std::string marks;
        for (const model::TableRow& row : tables().front().rows()) {
            marks += marks.empty() ? "" : "/";
            for (const model::TableCell& cell : row.cells())
                marks += fontAt(cell.range().start()).name == face ? '+' : '-';
        }
        return marks;
    }
};

/// A font is written into a cell of the table; `asked` when Word was asked where the cell starts, `use` how
/// often the cell's range has been taken.
Calls cellWritten(int row, int column, std::int32_t start, std::int32_t end, bool asked, const FontLook& look,
                  int use = 1)
{
    const std::string cellName = "table.Cell(" + std::to_string(row) + ", " + std::to_string(column) + ")";
    const std::string rangeName = numbered(cellName + ".Range", use, "#");
    Calls calls = {cellName + " -> " + cellName, cellName + ".Range -> " + rangeName};
    if (asked)
        calls.push_back(rangeName + ".Start -> " + std::to_string(start));
    return join(calls,
                Calls{rangeName + ".End -> " + std::to_string(end),
                      rangeName + ".Start = " + std::to_string(start),
                      rangeName + ".End = " + std::to_string(end)},
                fontWritten(rangeName, look));
}

TEST_F(MirovelSectionTableFontTest, IsRecordedWithItsCell)
{
    openTable();
    addCell(L"a");
    takeCalls();
    writer().setFont(smallCourier.data());
    EXPECT_LINES(takeCalls(), Calls{"table.Rows(1).Cells(1).Range.End -> 2"});
    writer().setFont(smallCourier.data());
    EXPECT_LINES(takeCalls(), Calls{"table.Rows(1).Cells(1).Range.End -> 2"})
        << "in a table even the font in force is recorded";
    writer().endTable();
    EXPECT_LINES(finish(),
                 join(cellWritten(1, 1, 1, 2, false, smallCourier),
                      Calls{"table.Rows -> table.Rows", "table.Rows.Count -> 1",
                            "table.Columns -> table.Columns", "table.Columns.Count -> 1"},
                      cellWritten(1, 1, 1, 2, false, smallCourier, 2), Calls{"document.UndoClear()"}));
}

TEST_F(MirovelSectionTableFontTest, BeforeAnyRowOrCellCountsAsTheFirst)
{
    writer().startTable();
    writer().setFont(smallCourier.data());
    writer().addRow();
    writer().setFont(smallCourier.data());
    addCell(L"a");
    writer().endTable();
    EXPECT_LINES(finish(),
                 join(cellWritten(1, 1, 0, 2, false, smallCourier),
                      Calls{"table.Rows -> table.Rows", "table.Rows.Count -> 1",
                            "table.Columns -> table.Columns", "table.Columns.Count -> 1"},
                      cellWritten(1, 1, 0, 2, false, smallCourier, 2), Calls{"document.UndoClear()"}));
    EXPECT_EQ(cellsIn(u"Courier New"), "+");
}

TEST_F(MirovelSectionTableFontTest, TheLastOneReachesToTheEndOfTheTable)
{
    openTable();
    addCell(L"a");
    addCell(smallCourier, L"b");
    writer().addRow();
    addCell(L"c");
    addCell(L"d");
    writer().endTable();
    EXPECT_LINES(finish(), join(Calls{"table.Rows -> table.Rows", "table.Rows.Count -> 2",
                                      "table.Columns -> table.Columns", "table.Columns.Count -> 2"},
                                cellWritten(1, 2, 2, 4, false, smallCourier),
                                cellWritten(2, 1, 5, 7, true, smallCourier),
                                cellWritten(2, 2, 7, 9, true, smallCourier), Calls{"document.UndoClear()"}));
    EXPECT_EQ(cellsIn(u"Courier New"), "-+/++");
    EXPECT_EQ(text(), u"a\ab\a\ac\ad\a\a ");
}

TEST_F(MirovelSectionTableFontTest, BeginsInTheMiddleOfACell)
{
    openTable();
    addCell(L"plain ");
    writer().setFont(smallCourier.data());
    writer().insertText(L"typed");
    writer().endTable();
    finish();
    EXPECT_EQ(fontAt(5).name, u"Times New Roman");
    EXPECT_EQ(fontAt(6).name, u"Courier New");
    EXPECT_EQ(fontAt(10).name, u"Courier New");
}

TEST_F(MirovelSectionTableFontTest, ReachesIntoTheCellOfTheNextWhichThenTakesOver)
{
    openTable();
    addCell(smallCourier, L"a");
    addCell(bold, L"b");
    writer().endTable();
    takeCalls();
    EXPECT_LINES(finish(), join(cellWritten(1, 1, 0, 2, false, smallCourier),
                                cellWritten(1, 2, 2, 4, true, smallCourier),
                                Calls{"table.Rows -> table.Rows", "table.Rows.Count -> 1",
                                      "table.Columns -> table.Columns", "table.Columns.Count -> 2"},
                                cellWritten(1, 2, 2, 4, false, bold, 2), Calls{"document.UndoClear()"}));
    EXPECT_EQ(fontAt(0).bold, false);
    EXPECT_EQ(fontAt(2).bold, true);
}

// The column of the run behind bounds every row.
TEST_F(MirovelSectionTableFontTest, ReachesNoFurtherRightThanTheNextOneStands)
{
    openTable();
    addCell(L"a");
    addCell(smallCourier, L"b");
    writer().addRow();
    addCell(FontLook{"Arial", 8}, L"c");
    addCell(L"d");
    writer().endTable();
    finish();
    EXPECT_EQ(cellsIn(u"Courier New"), "--/--") << "columns 2 to 1 of row 1 are none";
    EXPECT_EQ(cellsIn(u"Arial"), "--/++");
}

TEST_F(MirovelSectionTableFontTest, IsLostWhenTheNextOneIsSetBehindTheTable)
{
    openTable();
    addCell(smallCourier, L"a");
    addCell(L"b");
    writer().endTable();
    writer().setFont(bold.data());
    writer().insertText(L"behind");
    EXPECT_LINES(finish(), join(rangeLaid(6, 12), fontWritten("body", bold), Calls{"document.UndoClear()"}));
    EXPECT_EQ(cellsIn(u"Courier New"), "--");
    EXPECT_EQ(fontAt(6).bold, true);
}

TEST_F(MirovelSectionTableFontTest, IsLostWhenAStyleIsSetBehindTheTable)
{
    openTable();
    addCell(smallCourier, L"a");
    writer().endTable();
    writer().setStyle("Heading 1", false);
    writer().insertText(L"Title");
    finish();
    EXPECT_EQ(cellsIn(u"Courier New"), "-");
}

TEST_F(MirovelSectionTableFontTest, IsKeptWhenAnotherTableFollows)
{
    openTable();
    addCell(smallCourier, L"a");
    writer().endTable();
    writer().startTable();
    EXPECT_EQ(fontAt(0).name, u"Courier New");
    takeCalls();
    writer().applyFont();
    EXPECT_LINES(takeCalls(), Calls{}) << "no font waits";
}

TEST_F(MirovelSectionTableFontTest, OfATextInFrontEndsWhereTheCellsOneBegins)
{
    writer().setStyle("Heading 1", false);
    writer().insertText(L"T");
    writer().insertEndl();
    openTable();
    addCell(L"a");
    addCell(smallCourier, L"b");
    writer().endTable();
    takeCalls();
    EXPECT_LINES(finish(), join(rangeLaid(2, 8), Calls{"body.Style = -1"}, rangeLaid(2, 4),
                                fontWritten("body", normalFont),
                                Calls{"table.Rows -> table.Rows", "table.Rows.Count -> 1",
                                      "table.Columns -> table.Columns", "table.Columns.Count -> 2"},
                                cellWritten(1, 2, 4, 6, false, smallCourier), Calls{"document.UndoClear()"}));
}

// After the font of the last cell the output range is not laid anywhere else.
TEST_F(MirovelSectionTableFontTest, LeavesTheOutputRangeInTheTableAndWhatIsWrittenNextGoesThere)
{
    writer().setStyle("Heading 1", false);
    writer().insertText(L"T");
    writer().insertEndl();
    openTable();
    addCell(L"a");
    addCell(smallCourier, L"b");
    writer().endTable();
    writer().insertText(L"behind");
    writer().insertEndl();
    EXPECT_EQ(text(), u"T\ra\ab\a\a behind\r");
    takeCalls();
    writer().setStyle("Heading 2", false);
    EXPECT_EQ(range_->GetEnd(), 4) << "where the font of the second cell begins";
    writer().insertText(L"Part");
    EXPECT_EQ(text(), u"T\raPart\ab\a\a behind\r") << "in front of the mark that the range ends with";
    EXPECT_EQ(styleRunAtEnd().second, 19) << "the count goes on as if the text stood at the end";
}

TEST_F(MirovelSectionTableFontTest, InACellOfARowWithoutCellsFailsAtTheEnd)
{
    openTable();
    writer().setFont(smallCourier.data());
    writer().insertText(L"only");
    writer().endTable();
    takeCalls();
    EXPECT_THAT(comErrorOf([&] { writer().applyFont(); }), isHresult(static_cast<HRESULT>(0x800A1735)));
    EXPECT_LINES(takeCalls(),
                 (Calls{"table.Rows -> table.Rows", "table.Rows.Count -> 1", "table.Columns -> table.Columns",
                        "table.Columns.Count -> 1", "table.Cell(1, 0) !! 0x800a1735"}));
    EXPECT_THAT(comErrorOf([&] { finish(); }), isHresult(static_cast<HRESULT>(0x800A1735)))
        << "the font is still there";
}

TEST_F(MirovelSectionTableFontTest, BeyondTheLastColumnCountsForTheLastOne)
{
    openTable();
    addCell(L"a");
    addCell(L"b");
    writer().addRow();
    addCell(L"c");
    addCell(L"d");
    addCell(smallCourier, L"e"); // a third one, in the second
    writer().endTable();
    EXPECT_EQ(cellTexts(), u"a|b/c|de");
    EXPECT_LINES(finish(),
                 (Calls{"table.Rows -> table.Rows", "table.Rows.Count -> 2", "table.Columns -> table.Columns",
                        "table.Columns.Count -> 2", "document.UndoClear()"}))
        << "columns 3 to 2 are none";
}

TEST_F(MirovelSectionTableFontTest, BetweenTwoBeyondTheLastColumnGoesToTheLastOne)
{
    openTable();
    addCell(L"a");
    writer().addRow();
    addCell(L"c");
    addCell(smallCourier, L"d");
    addCell(bold, L"e");
    writer().endTable();
    takeCalls();
    EXPECT_LINES(
        finish(),
        join(cellWritten(2, 1, 4, 7, false, smallCourier), cellWritten(2, 1, 3, 7, true, smallCourier, 2),
             Calls{"table.Rows -> table.Rows", "table.Rows.Count -> 2", "table.Columns -> table.Columns",
                   "table.Columns.Count -> 1", "document.UndoClear()"}));
    EXPECT_EQ(cellTexts(), u"a/cde");
    EXPECT_EQ(cellsIn(u"Courier New"), "-/+") << "the whole cell, since it stands for two";
    EXPECT_EQ(fontAt(5).bold, false);
}

TEST_F(MirovelSectionTableFontTest, OfAStyleIsRecordedInTheCellAndTheStyleIsNotApplied)
{
    openTable();
    addCell(L"a");
    takeCalls();
    writer().setStyle("Heading 1", false);
    EXPECT_LINES(takeCalls(),
                 join(styleFontRead("-2", heading1Font), Calls{"table.Rows(1).Cells(1).Range.End -> 2"}));
    writer().insertText(L"T");
    writer().endTable();
    EXPECT_LINES(finish(), join(Calls{R"(body.InsertAfter("\n"))", "body.Start = 3", "body.End = 6",
                                      "body.Style = -1", "table.Rows -> table.Rows", "table.Rows.Count -> 1",
                                      "table.Columns -> table.Columns", "table.Columns.Count -> 1"},
                                cellWritten(1, 1, 1, 3, false, heading1Font), Calls{"document.UndoClear()"}))
        << "the run of the style goes on behind the table, as one in \"Normal\"";
    EXPECT_EQ(text(), u"aT\a\a \r");
    EXPECT_EQ(styleAt(0), u"Normal");
    EXPECT_EQ(fontAt(0).name, u"Times New Roman");
    EXPECT_EQ(fontAt(1).name, u"Arial");
    EXPECT_EQ(fontAt(1).bold, true);
}

TEST_F(MirovelSectionTableFontTest, AFailureAmongTheCellsKeepsTheRuns)
{
    openTable();
    addCell(smallCourier, L"a");
    addCell(L"b");
    writer().endTable();
    const std::size_t calls = 4 + cellWritten(1, 1, 0, 2, false, smallCourier).size() +
                              cellWritten(1, 2, 2, 4, true, smallCourier).size();
    for (std::size_t call = 1; call <= calls; ++call) {
        word_.failCall(static_cast<long>(call), E_ACCESSDENIED);
        EXPECT_THAT(comErrorOf([&] { writer().applyFont(); }), isHresult(E_ACCESSDENIED)) << "call " << call;
        word_.clearFaults();
    }
    takeCalls();
    writer().applyFont();
    EXPECT_EQ(takeCalls().size(), calls);
}

} // namespace
