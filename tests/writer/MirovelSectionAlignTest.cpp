#include "OtherPointer.h"
#include "WriterFixture.h"

#include <array>

namespace {

using standin::model::Alignment;

using MirovelSectionAlignTest = ClientWriterTest;

Calls alignmentWritten(const std::string& range, int alignment)
{
    const std::string format = range + ".ParagraphFormat";
    return {range + ".ParagraphFormat -> " + format, format + ".Alignment = " + std::to_string(alignment)};
}

TEST_F(MirovelSectionAlignTest, RecordsWhereAnAlignmentBegins)
{
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), Calls{"body.End -> 0"});
    EXPECT_EQ(data().alignment, 2);
    ASSERT_EQ(data().alignRuns.size(), 1U);
    const SaveAlign& run = data().alignRuns.front();
    EXPECT_EQ(run.start, 0);
    EXPECT_EQ(run.align, 2);
    EXPECT_EQ(run.range.GetInterfacePtr(), range_.GetInterfacePtr());
    EXPECT_EQ(text(), u"");
    EXPECT_EQ(styleRunAtEnd().second, 0);
}

TEST_F(MirovelSectionAlignTest, TheAlignmentInForceIsNotRecordedAgain)
{
    writer().insertText(L"text");
    takeCalls();
    writer().setTextAlign(0);
    EXPECT_LINES(takeCalls(), Calls{}) << "a document begins with 0";
    EXPECT_TRUE(data().alignRuns.empty());

    writer().setTextAlign(3);
    writer().insertText(L"text");
    takeCalls();
    writer().setTextAlign(3);
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_EQ(data().alignRuns.size(), 1U);
    EXPECT_EQ(text(), u"text\rtext");
}

TEST_F(MirovelSectionAlignTest, EndsAnOpenParagraph)
{
    writer().insertText(L"ab");
    takeCalls();
    writer().setTextAlign(3);
    EXPECT_LINES(takeCalls(), (Calls{R"(body.InsertAfter("\n"))", "body.End -> 3"}));
    EXPECT_EQ(data().lastEndlPos, 3);
    EXPECT_EQ(data().endlCount, 1);
    EXPECT_EQ(data().alignRuns.back().start, 3);
    EXPECT_EQ(text(), u"ab\r");
    EXPECT_EQ(styleRunAtEnd().second, 3);
}

TEST_F(MirovelSectionAlignTest, WritesNoSecondParagraphEnd)
{
    writer().insertText(L"ab");
    writer().insertEndl();
    takeCalls();
    writer().setTextAlign(3);
    EXPECT_LINES(takeCalls(), Calls{"body.End -> 3"});
    EXPECT_EQ(text(), u"ab\r");
}

TEST_F(MirovelSectionAlignTest, BeginsWhereWordSaysNotAtTheWritersCount)
{
    writer().insertText(L"a\n\nb");
    writer().insertEndl();
    EXPECT_EQ(data().pos, 4);
    takeCalls();
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), Calls{"body.End -> 5"});
    EXPECT_EQ(data().alignRuns.back().start, 5);
}

TEST_F(MirovelSectionAlignTest, EachDistinctNumberStartsARun)
{
    for (const std::int16_t number : std::array<std::int16_t, 6>{1, 0, 5, -1, 4, 32767})
        writer().setTextAlign(number);
    EXPECT_EQ(data().alignRuns.size(), 6U);
    EXPECT_EQ(data().alignment, 32767);
    writer().setTextAlign(-32768);
    EXPECT_EQ(data().alignment, -32768) << "widened with its sign";
}

TEST_F(MirovelSectionAlignTest, InATableRecordsTheCellAndEndsNoParagraph)
{
    writer().insertText(L"open paragraph");
    takeCalls();
    const Word::RangePtr cell = headerRange();
    openCell(cell);
    writer().insertText(L"cell");
    takeCalls();
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), Calls{"document.Sections(1).Headers(1).Range.End -> 5"});
    ASSERT_EQ(data().alignRuns.size(), 1U);
    EXPECT_EQ(data().alignRuns.front().start, 5);
    EXPECT_EQ(data().alignRuns.front().range.GetInterfacePtr(), cell.GetInterfacePtr());
    EXPECT_EQ(data().pos, 14);
    EXPECT_EQ(text(), u"open paragraph");
    closeCell();
    data().alignRuns.clear();
}

TEST_F(MirovelSectionAlignTest, AppliesEachAlignmentUpToTheNext)
{
    writer().setTextAlign(2);
    writer().insertText(L"mid");
    writer().insertEndl();
    writer().setTextAlign(3);
    writer().insertText(L"right");
    writer().setTextAlign(4);
    writer().insertText(L"justified");
    writer().setTextAlign(0);
    writer().insertText(L"left");
    takeCalls();
    MirovelSectionProbe::applyAlign(writer());
    EXPECT_LINES(takeCalls(),
                 join(rangeLaid(0, 4), alignmentWritten("body", 1), rangeLaid(4, 10),
                      alignmentWritten("body", 2), rangeLaid(10, 20), alignmentWritten("body", 3),
                      rangeLaid(20, 24), alignmentWritten("body", 0)));
    EXPECT_EQ(text(), u"mid\rright\rjustified\rleft");
    EXPECT_EQ(alignmentAt(0), Alignment::center);
    EXPECT_EQ(alignmentAt(4), Alignment::right);
    EXPECT_EQ(alignmentAt(10), Alignment::justify);
    EXPECT_EQ(alignmentAt(20), Alignment::left);
    EXPECT_TRUE(data().alignRuns.empty());
    EXPECT_EQ(data().alignment, 0);

    MirovelSectionProbe::applyAlign(writer());
    EXPECT_LINES(takeCalls(), Calls{});
}

TEST_F(MirovelSectionAlignTest, UnknownNumbersMeanLeft)
{
    for (const std::int16_t align : std::array<std::int16_t, 5>{1, 5, -1, 32767, 258}) {
        writer().setTextAlign(align);
        takeCalls();
        MirovelSectionProbe::applyAlign(writer());
        EXPECT_LINES(takeCalls(), join(rangeLaid(0, 0), alignmentWritten("body", 0)))
            << "alignment " << align;
    }
}

TEST_F(MirovelSectionAlignTest, TheLastRunEndsAtTheWritersCount)
{
    writer().setTextAlign(2);
    writer().insertText(L"a\n\nb"); // three by the writer's count, four in Word
    takeCalls();
    MirovelSectionProbe::applyAlign(writer());
    EXPECT_LINES(takeCalls(), join(rangeLaid(0, 3), alignmentWritten("body", 1)));
}

TEST_F(MirovelSectionAlignTest, TheLastRunOfACellEndsWithTheCell)
{
    openCell(headerRange());
    writer().insertText(L"cell");
    writer().setTextAlign(2);
    writer().insertText(L"more");
    takeCalls();
    MirovelSectionProbe::applyAlign(writer());
    EXPECT_LINES(takeCalls(), join(Calls{"document.Sections(1).Headers(1).Range.End -> 9",
                                         "document.Sections(1).Headers(1).Range.Start = 5",
                                         "document.Sections(1).Headers(1).Range.End = 9"},
                                   alignmentWritten("document.Sections(1).Headers(1).Range", 1)));
    closeCell();
}

TEST_F(MirovelSectionAlignTest, ARunOfACellEndsAtTheStartOfTheNextOne)
{
    openCell(headerRange());
    writer().setTextAlign(2);
    writer().insertText(L"cell");
    writer().setTextAlign(3);
    writer().insertText(L"!");
    takeCalls();
    MirovelSectionProbe::applyAlign(writer());
    // The first run has moved the end that the last one asks for.
    EXPECT_LINES(takeCalls(), join(Calls{"document.Sections(1).Headers(1).Range.Start = 1",
                                         "document.Sections(1).Headers(1).Range.End = 5"},
                                   alignmentWritten("document.Sections(1).Headers(1).Range", 1),
                                   Calls{"document.Sections(1).Headers(1).Range.End -> 5",
                                         "document.Sections(1).Headers(1).Range.Start = 5",
                                         "document.Sections(1).Headers(1).Range.End = 5"},
                                   alignmentWritten("document.Sections(1).Headers(1).Range", 2)));
    closeCell();
}

TEST_F(MirovelSectionAlignTest, TheOutputRangeIsTheSameByWhicheverPointer)
{
    OtherPointer<Word::Range> other(range_);
    openCell(other.get());
    writer().setTextAlign(2);
    closeCell();
    writer().insertText(L"a\n\nb"); // three by the writer's count, four in Word
    takeCalls();
    MirovelSectionProbe::applyAlign(writer());
    EXPECT_LINES(takeCalls(), join(rangeLaid(0, 3), alignmentWritten("body", 1)))
        << "up to the writer's count, and Word is not asked";
}

TEST_F(MirovelSectionAlignTest, AnotherRangeOverTheSameTextIsNotTheOutputRange)
{
    writer().insertText(L"text");
    const Word::RangePtr duplicate = range_->GetDuplicate();
    takeCalls();
    openCell(duplicate);
    writer().setTextAlign(2);
    closeCell();
    takeCalls();
    MirovelSectionProbe::applyAlign(writer());
    EXPECT_LINES(takeCalls(),
                 join(Calls{"body.Duplicate.End -> 4", "body.Duplicate.Start = 4", "body.Duplicate.End = 4"},
                      alignmentWritten("body.Duplicate", 1)));
}

TEST_F(MirovelSectionAlignTest, AFailureKeepsTheRecords)
{
    writer().setTextAlign(2);
    writer().insertText(L"mid");
    writer().setTextAlign(3);
    writer().insertText(L"right");
    session_.failCall(4, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { MirovelSectionProbe::applyAlign(writer()); }), isHresult(E_FAIL));
    EXPECT_EQ(data().alignRuns.size(), 2U);
    EXPECT_EQ(data().alignment, 3);
}

TEST_F(MirovelSectionAlignTest, AFailureToReadTheEndRecordsNothing)
{
    writer().insertText(L"ab");
    session_.failCall(2, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { writer().setTextAlign(2); }), isHresult(E_FAIL));
    EXPECT_TRUE(data().alignRuns.empty());
    EXPECT_EQ(data().alignment, 0);
    EXPECT_EQ(text(), u"ab\r");
}

} // namespace
