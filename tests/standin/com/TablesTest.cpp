#include "DocumentFixture.h"

#include "Hresult.h"

#include <WordConstants.h>
#include <gmock/gmock.h>

namespace {
using testing::ElementsAre;

class Tables : public standin_test::DocumentFixture
{
protected:
    Word::TablePtr add(long rows, long columns) const
    {
        const Word::RangePtr start = range(0, 0);
        return start->GetTables()->Add(start, rows, columns);
    }
};

TEST_F(Tables, AreAddedAndCounted)
{
    const Word::TablePtr table = add(2, 3);
    EXPECT_EQ(text(), u"\a\a\a\a\a\a\a\a\r");
    EXPECT_EQ(document->GetTables()->GetCount(), 1);
    EXPECT_EQ(table->GetRows()->GetCount(), 2);
    EXPECT_EQ(table->GetColumns()->GetCount(), 3);
    EXPECT_EQ(table->GetRange()->GetEnd(), 8);
    EXPECT_EQ(table->GetUniform(), VARIANT_TRUE);
    EXPECT_EQ(document->Range(Word::integer(8), Word::integer(9))->GetTables()->GetCount(), 0);
    EXPECT_EQ(document->GetTables()->Item(1)->Cell(2, 3)->GetRange()->GetStart(), 6);
}

TEST_F(Tables, GrowCellByCellAndRowByRow)
{
    const Word::TablePtr table = add(1, 1);
    const Word::CellsPtr cells = table->GetRows()->Item(1)->GetCells();
    const Word::RangePtr first = cells->Item(1)->GetRange();
    first->InsertAfter(L"one");
    cells->Add();
    cells->Item(1)->SetWidth(200, Word::wdAdjustSameWidth);
    cells->Item(2)->SetWidth(200, Word::wdAdjustSameWidth);
    cells->Item(2)->GetRange()->InsertAfter(L"two");
    const Word::RowPtr row = table->GetRows()->Add();
    row->SetHeight(30, Word::wdRowHeightExactly);
    row->GetCells()->Item(2)->GetRange()->InsertAfter(L"four");
    EXPECT_EQ(text(), u"one\atwo\a\a\afour\a\a\r");
    EXPECT_FLOAT_EQ(table->Cell(2, 1)->GetWidth(), 200);
    EXPECT_FLOAT_EQ(table->Cell(2, 2)->GetWidth(), 200);
    EXPECT_FLOAT_EQ(row->GetHeight(), 30);
    EXPECT_EQ(row->GetHeightRule(), Word::wdRowHeightExactly);
    EXPECT_FLOAT_EQ(table->GetRows()->Item(1)->GetHeight(), 9999999);
    EXPECT_EQ(first->GetText(), _bstr_t(L"one\r\a"));
}

TEST_F(Tables, WhatIsNotThereIsRefused)
{
    const Word::TablePtr table = add(1, 1);
    EXPECT_THAT(comErrorOf([&] { table->Cell(1, 2); }), isHresult(wordError(5941)));
    EXPECT_THAT(comErrorOf([&] { table->GetRows()->Item(2); }), isHresult(wordError(5941)));
    EXPECT_THAT(comErrorOf([&] { table->GetRows()->Item(1)->GetCells()->Item(0); }),
                isHresult(wordError(5941)));
    EXPECT_THAT(comErrorOf([&] { document->GetTables()->Item(2); }), isHresult(wordError(5941)));
    EXPECT_THAT(comErrorOf([&] { document->GetTables()->Add(nullptr, 1, 1); }), isHresult(wordError(4218)));
    EXPECT_THAT(comErrorOf([&] { table->GetRows()->Item(1)->SetHeight(5, 3); }), isHresult(wordError(4608)));
    EXPECT_THAT(comErrorOf([&] { table->Cell(1, 1)->SetWidth(5, 4); }), isHresult(wordError(4608)));
    EXPECT_THAT(comErrorOf([&] { table->GetBorders(); }), isHresult(E_NOTIMPL));
}

TEST_F(Tables, ColumnsNeedRowsThatAreAlike)
{
    const Word::TablePtr table = add(2, 2);
    const Word::ColumnPtr second = table->GetColumns()->Item(2);
    EXPECT_FLOAT_EQ(second->GetWidth(), 221.4f);
    EXPECT_THAT(comErrorOf([&] { table->GetColumns()->Item(3); }), isHresult(wordError(5941)));
    EXPECT_FLOAT_EQ(table->GetColumns()->Add()->GetWidth(), 221.4f);
    EXPECT_EQ(table->GetColumns()->GetCount(), 3);
    table->Cell(1, 2)->SetWidth(80, Word::wdAdjustNone);
    EXPECT_FLOAT_EQ(second->GetWidth(), 9999999);
    EXPECT_THAT(comErrorOf([&] { table->GetColumns()->Item(1); }), isHresult(wordError(5992)));
}

TEST_F(Tables, HeightsAreAnsweredByRule)
{
    const Word::TablePtr table = add(2, 1);
    const Word::RowsPtr rows = table->GetRows();
    EXPECT_EQ(rows->Item(1)->GetHeightRule(), Word::wdRowHeightAuto);
    EXPECT_FLOAT_EQ(rows->Item(1)->GetHeight(), 9999999);
    rows->SetHeight(25, Word::wdRowHeightExactly);
    EXPECT_FLOAT_EQ(rows->Item(2)->GetHeight(), 25);
    rows->Item(2)->SetHeight(12, Word::wdRowHeightAtLeast);
    EXPECT_EQ(rows->Item(2)->GetHeightRule(), Word::wdRowHeightAtLeast);
}

TEST_F(Tables, WhatIsAddedComesLast)
{
    const Word::TablePtr table = add(1, 2);
    const Word::RowPtr row = table->GetRows()->Item(1);
    EXPECT_THAT(comErrorOf([&] { table->GetRows()->Add(Word::object(row)); }), isHresult(E_NOTIMPL));
    EXPECT_THAT(comErrorOf([&] { row->GetCells()->Add(Word::object(table->Cell(1, 2))); }),
                isHresult(E_NOTIMPL));
    EXPECT_THAT(comErrorOf([&] { table->GetColumns()->Add(Word::object(table->GetColumns()->Item(1))); }),
                isHresult(E_NOTIMPL));
    EXPECT_THAT(comErrorOf([&] { table->Cell(1, 1)->SetWidth(5, Word::wdAdjustProportional); }),
                isHresult(E_NOTIMPL));
    EXPECT_EQ(text(), u"\a\a\a\r");
}

TEST_F(Tables, OfWhichNothingIsLeftAreDeletedObjects)
{
    const Word::TablePtr table = add(1, 1);
    const Word::RowPtr row = table->GetRows()->Item(1);
    const Word::CellPtr cell = row->GetCells()->Item(1);
    document->Range()->Delete();
    EXPECT_EQ(text(), u"\r");
    EXPECT_THAT(comErrorOf([&] { table->GetRows(); }), isHresult(wordError(5825)));
    EXPECT_THAT(comErrorOf([&] { row->GetCells(); }), isHresult(wordError(5825)));
    EXPECT_THAT(comErrorOf([&] { cell->GetRange(); }), isHresult(wordError(5825)));
}

TEST_F(Tables, AreWrittenDownCallByCall)
{
    word.clearTranscript();
    const Word::TablePtr table = add(1, 1);
    table->GetRows()->Item(1)->GetCells()->Item(1)->SetWidth(100, Word::wdAdjustSameWidth);
    EXPECT_THAT(
        word.transcript(),
        ElementsAre("document.Range(0, 0) -> document.Range(0, 0)",
                    "document.Range(0, 0).Tables -> document.Range(0, 0).Tables",
                    "document.Range(0, 0).Tables.Add(document.Range(0, 0), 1, 1, missing, missing) -> table",
                    "table.Rows -> table.Rows", "table.Rows.Item(1) -> table.Rows(1)",
                    "table.Rows(1).Cells -> table.Rows(1).Cells",
                    "table.Rows(1).Cells.Item(1) -> table.Rows(1).Cells(1)",
                    "table.Rows(1).Cells(1).SetWidth(100f, 3)"));
}

TEST_F(Tables, LeaveNoObjectsBehind)
{
    {
        const Word::TablePtr table = add(2, 2);
        table->GetRows()->Item(1)->GetCells()->Item(2)->GetRange();
        table->GetColumns()->Item(1);
    }
    document = nullptr;
    EXPECT_EQ(word.liveObjects(), 0);
}
} // namespace
