#include "OtherPointer.h"
#include "WriterFixture.h"

#include <array>

namespace {

using standin::model::Alignment;

class MirovelSectionAlignTest : public WriterTest
{
protected:
    Calls applied()
    {
        takeCalls();
        MirovelSectionProbe::applyAlign(writer());
        return takeCalls();
    }
};

TEST_F(MirovelSectionAlignTest, RecordsWhereAnAlignmentBegins)
{
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), Calls{"body.End -> 0"});
    EXPECT_EQ(text(), u"");
    EXPECT_EQ(insertionPosition(), 0);
    EXPECT_LINES(applied(), join(rangeLaid(0, 0), alignmentWritten("body", 1)));
}

TEST_F(MirovelSectionAlignTest, TheAlignmentInForceIsNotRecordedAgain)
{
    writer().insertText(L"text");
    takeCalls();
    writer().setTextAlign(0);
    EXPECT_LINES(takeCalls(), Calls{}) << "a document begins with 0";
    EXPECT_LINES(applied(), Calls{});

    writer().setTextAlign(3);
    writer().insertText(L"text");
    takeCalls();
    writer().setTextAlign(3);
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_EQ(text(), u"text\rtext");
    EXPECT_LINES(applied(), join(rangeLaid(5, 9), alignmentWritten("body", 2)));
}

TEST_F(MirovelSectionAlignTest, EndsAnOpenParagraph)
{
    writer().insertText(L"ab");
    takeCalls();
    writer().setTextAlign(3);
    EXPECT_LINES(takeCalls(), (Calls{R"(body.InsertAfter("\n"))", "body.End -> 3"}));
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), Calls{"body.End -> 3"}) << "the paragraph is ended";
    EXPECT_EQ(text(), u"ab\r");
    EXPECT_LINES(applied(), join(rangeLaid(3, 3), alignmentWritten("body", 2), rangeLaid(3, 3),
                                 alignmentWritten("body", 1)));
    EXPECT_EQ(styleRunAtEnd().second, 3);
}

TEST_F(MirovelSectionAlignTest, TheParagraphEndItWritesCountsForTheUndoList)
{
    for (int i = 0; i < 100; ++i)
        writer().insertEndl();
    writer().insertText(L"ab");
    takeCalls();
    writer().setTextAlign(3);
    EXPECT_LINES(takeCalls(),
                 (Calls{R"(body.InsertAfter("\n"))", "document.UndoClear()", "body.End -> 103"}));
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
    EXPECT_EQ(insertionPosition(), 4);
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), Calls{"body.End -> 5"});
    EXPECT_EQ(firstOf(applied()), "body.Start = 5");
}

TEST_F(MirovelSectionAlignTest, EachDistinctNumberStartsARun)
{
    for (const std::int16_t number : std::array<std::int16_t, 6>{1, 0, 5, -1, 4, 32767})
        writer().setTextAlign(number);
    for (const std::int16_t number : std::array<std::int16_t, 2>{32767, -32768}) {
        writer().setTextAlign(number);
        takeCalls();
        writer().setTextAlign(number);
        EXPECT_LINES(takeCalls(), Calls{}) << number << " is in force";
    }
    const Calls left = join(rangeLaid(0, 0), alignmentWritten("body", 0));
    const Calls justified = join(rangeLaid(0, 0), alignmentWritten("body", 3));
    EXPECT_LINES(applied(), join(left, left, left, left, justified, left, left));
}

TEST_F(MirovelSectionAlignTest, InATableRecordsTheCellAndEndsNoParagraph)
{
    writer().insertText(L"open paragraph");
    takeCalls();
    openCell();
    writer().insertText(L"cell");
    const std::int32_t position = insertionPosition();
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), Calls{firstCell + ".End -> 20"});
    EXPECT_EQ(insertionPosition(), position);
    EXPECT_EQ(cellTexts(), u"cell");
    EXPECT_LINES(applied(), join(Calls{firstCell + ".End -> 20"}, rangeLaid(20, 20, firstCell),
                                 alignmentWritten(firstCell, 1)));
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
    EXPECT_LINES(applied(), join(rangeLaid(0, 4), alignmentWritten("body", 1), rangeLaid(4, 10),
                                 alignmentWritten("body", 2), rangeLaid(10, 20), alignmentWritten("body", 3),
                                 rangeLaid(20, 24), alignmentWritten("body", 0)));
    EXPECT_EQ(text(), u"mid\rright\rjustified\rleft");
    EXPECT_EQ(alignmentAt(0), Alignment::center);
    EXPECT_EQ(alignmentAt(4), Alignment::right);
    EXPECT_EQ(alignmentAt(10), Alignment::justify);
    EXPECT_EQ(alignmentAt(20), Alignment::left);

    writer().setTextAlign(0);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force again";
    EXPECT_LINES(applied(), Calls{});
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
    EXPECT_LINES(applied(), join(rangeLaid(0, 3), alignmentWritten("body", 1)));
}

TEST_F(MirovelSectionAlignTest, TheLastRunOfACellEndsWithTheCell)
{
    openCell();
    writer().insertText(L"cell");
    writer().setTextAlign(2);
    writer().insertText(L"more");
    EXPECT_LINES(applied(), join(Calls{firstCell + ".End -> 9"}, rangeLaid(5, 9, firstCell),
                                 alignmentWritten(firstCell, 1)));
}

TEST_F(MirovelSectionAlignTest, ARunOfACellEndsAtTheStartOfTheNextOne)
{
    openCell();
    writer().setTextAlign(2);
    writer().insertText(L"cell");
    writer().setTextAlign(3);
    writer().insertText(L"!");
    // The first run has moved the end that the last one asks for.
    EXPECT_LINES(applied(), join(rangeLaid(1, 5, firstCell), alignmentWritten(firstCell, 1),
                                 Calls{firstCell + ".End -> 5"}, rangeLaid(5, 5, firstCell),
                                 alignmentWritten(firstCell, 2)));
}

TEST_F(MirovelSectionAlignTest, TheOutputRangeIsTheSameByWhicheverPointer)
{
    OtherPointer<Word::Range> other(range_);
    MirovelSectionProbe::setRange(writer(), other.get());
    writer().setTextAlign(2);
    MirovelSectionProbe::setRange(writer(), range_);
    writer().insertText(L"a\n\nb"); // three by the writer's count, four in Word
    EXPECT_LINES(applied(), join(rangeLaid(0, 3), alignmentWritten("body", 1)))
        << "up to the writer's count, and Word is not asked";
}

TEST_F(MirovelSectionAlignTest, AnotherRangeOverTheSameTextIsNotTheOutputRange)
{
    writer().insertText(L"text");
    writer().insertEndl();
    MirovelSectionProbe::setRange(writer(), range_->GetDuplicate());
    writer().setTextAlign(2);
    MirovelSectionProbe::setRange(writer(), range_);
    EXPECT_LINES(applied(), join(Calls{"body.Duplicate.End -> 5"}, rangeLaid(5, 5, "body.Duplicate"),
                                 alignmentWritten("body.Duplicate", 1)));
}

TEST_F(MirovelSectionAlignTest, AFailureKeepsTheRecords)
{
    writer().setTextAlign(2);
    writer().insertText(L"mid");
    writer().setTextAlign(3);
    writer().insertText(L"right");
    word_.failCall(4, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { MirovelSectionProbe::applyAlign(writer()); }), isHresult(E_FAIL));
    takeCalls();
    writer().setTextAlign(3);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force still";
    EXPECT_LINES(applied(), join(rangeLaid(0, 4), alignmentWritten("body", 1), rangeLaid(4, 9),
                                 alignmentWritten("body", 2)));
}

TEST_F(MirovelSectionAlignTest, AFailureToReadTheEndRecordsNothing)
{
    writer().insertText(L"ab");
    word_.failCall(2, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { writer().setTextAlign(2); }), isHresult(E_FAIL));
    EXPECT_EQ(text(), u"ab\r");
    takeCalls();
    writer().setTextAlign(0);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force still";
    EXPECT_LINES(applied(), Calls{});
}

} // namespace
