// Alignments that were set while a table was open.
#include "WriterFixture.h"

#include <algorithm>
#include <string>

namespace {

using standin::model::Alignment;

class MirovelSectionTableAlignTest : public WriterTest
{
protected:
    void SetUp() override
    {
        WriterTest::SetUp();
        writer().startTable();
        writer().addRow();
        takeCalls();
    }

    void addCell(std::int16_t align, const wchar_t* text)
    {
        writer().addCell();
        writer().setTextAlign(align);
        writer().insertText(text);
    }

    /// The cells' alignments: "lcr/j".
    std::string alignments() const
    {
        std::string letters;
        for (const standin::model::TableRow& row : tables().front().rows()) {
            letters += letters.empty() ? "" : "/";
            for (const standin::model::TableCell& cell : row.cells())
                letters += "lcrj"[static_cast<std::size_t>(alignmentAt(cell.range().start()))];
        }
        return letters;
    }
};

TEST_F(MirovelSectionTableAlignTest, BeginsBehindTheCellAndIsAppliedWhenTheTableEnds)
{
    writer().addCell();
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), Calls{"table.Rows(1).Cells(1).Range.End -> 1"});
    writer().insertText(L"abc");
    takeCalls();
    writer().endTable();
    EXPECT_LINES(takeCalls(),
                 join(Calls{"table.Rows(1).Cells(1).Range.End -> 4", "table.Rows(1).Cells(1).Range.Start = 1",
                            "table.Rows(1).Cells(1).Range.End = 4"},
                      alignmentWritten("table.Rows(1).Cells(1).Range", 1),
                      Calls{"table.Rows(1).Cells.Item(1) -> table.Rows(1).Cells(1)",
                            "table.Rows(1).Cells(1).SetWidth(430f, 3)", "body.End -> 6"}));
    writer().setTextAlign(0);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force again";
    MirovelSectionProbe::applyAlign(writer());
    EXPECT_LINES(takeCalls(), Calls{}) << "no alignment waits";
    EXPECT_EQ(alignments(), "c");
    EXPECT_EQ(alignmentAt(5), Alignment::left) << "the space behind the table";
}

TEST_F(MirovelSectionTableAlignTest, EachCellHasItsOwn)
{
    addCell(2, L"one");
    addCell(3, L"two");
    writer().addRow();
    addCell(4, L"three");
    addCell(2, L"four");
    writer().endTable();
    EXPECT_EQ(alignments(), "cr/jc");
    takeCalls();
    writer().setTextAlign(0);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force again";
}

TEST_F(MirovelSectionTableAlignTest, BehindTheCellsTextReachesWhatFollowsTheCell)
{
    writer().addCell();
    writer().insertText(L"one");
    writer().setTextAlign(2); // from 4 to 4, which is the row's mark
    takeCalls();
    writer().endTable();
    EXPECT_EQ(alignments(), "l");
}

// An alignment is recorded when it changes, and the last one ends with its cell.
TEST_F(MirovelSectionTableAlignTest, OneThatHoldsForSeveralCellsReachesOnlyTheFirst)
{
    addCell(2, L"one");
    addCell(2, L"two");
    writer().addRow();
    addCell(2, L"three");
    takeCalls();
    writer().endTable();
    const Calls calls = takeCalls();
    EXPECT_EQ(std::ranges::count_if(
                  calls, [](const std::string& call) { return call.find(".Alignment = ") != call.npos; }),
              1);
    EXPECT_EQ(alignments(), "cl/ll");
}

TEST_F(MirovelSectionTableAlignTest, OneIsAskedForAgainBehindTheTable)
{
    addCell(2, L"one");
    writer().endTable();
    takeCalls();
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), (Calls{R"(body.InsertAfter("\n"))", "body.End -> 7"}));
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), Calls{}) << "now it is in force";
}

TEST_F(MirovelSectionTableAlignTest, AFailureWhenTheTableEndsKeepsItOpen)
{
    addCell(2, L"one");
    for (long call = 1; call <= 5; ++call) {
        word_.failCall(call, E_ACCESSDENIED);
        EXPECT_THAT(comErrorOf([&] { writer().endTable(); }), isHresult(E_ACCESSDENIED)) << "call " << call;
        EXPECT_TRUE(writer().isTableOpen());
    }
    word_.clearFaults();
    takeCalls();
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force still";
    writer().endTable();
    EXPECT_EQ(alignments(), "c");
}

} // namespace
