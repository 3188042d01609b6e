#include "WriterFixture.h"

#include <iterator>

namespace {

using MirovelSectionPageBreakTest = WriterTest;

TEST_F(MirovelSectionPageBreakTest, WritesAPageBreakAndTakesItsEndForThePosition)
{
    writer().insertText(L"ab");
    takeCalls();
    writer().insertPageBreak();
    EXPECT_LINES(takeCalls(), (Calls{"body.Start = 2", "body.InsertBreak(missing)", "body.End -> 3"}));
    EXPECT_EQ(data().pos, 3);
    EXPECT_EQ(data().lastPageBreakPos, 3);
    EXPECT_EQ(data().lastEndlPos, 0);
    EXPECT_EQ(data().stylePos, 0);
    EXPECT_EQ(data().sectionCount, 1);
    EXPECT_EQ(text(), u"ab\f");

    writer().insertText(L"cd");
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("cd"))"});
    EXPECT_EQ(text(), u"ab\fcd");
}

TEST_F(MirovelSectionPageBreakTest, ThePositionIsWhatWordSays)
{
    writer().insertText(L"a\n\nb"); // three by the writer's count, four in Word
    takeCalls();
    writer().insertPageBreak();
    EXPECT_LINES(takeCalls(), (Calls{"body.Start = 3", "body.InsertBreak(missing)", "body.End -> 4"}));
    EXPECT_EQ(text(), u"a\r\r\f") << "the break takes the place of what lies behind the counted position";
    EXPECT_EQ(styleRunAtEnd().second, 4);
}

TEST_F(MirovelSectionPageBreakTest, ClosesAndReopensAStyle)
{
    writer().setStyle("Heading 1", false);
    writer().insertText(L"Title");
    takeCalls();
    writer().insertPageBreak();
    EXPECT_LINES(takeCalls(), join(Calls{"body.Start = 5", "body.InsertBreak(missing)", "body.End -> 6"},
                                   rangeLaid(0, 6), Calls{"body.Style = -2"}, // to "Normal"
                                   rangeLaid(0, 6), fontWritten("body", heading1Font), rangeLaid(6, 6),
                                   Calls{"body.Style = -1"}, // and back
                                   rangeLaid(6, 6), fontWritten("body", normalFont)));
    EXPECT_STREQ(data().styleName.data(), "Heading 1");
    EXPECT_EQ(data().lastPageBreakPos, 6);
    ASSERT_EQ(data().fontRuns.size(), 1U);
    EXPECT_EQ(data().fontRuns.front().getStart(), 6);
    EXPECT_EQ(data().fontRuns.front().getFont(), heading1Font.data());
    EXPECT_EQ(text(), u"Title\f");
    EXPECT_EQ(styleRunAtEnd(), std::pair(6, 6));
}

TEST_F(MirovelSectionPageBreakTest, EndsTheParagraphOfAStyleThatBeganInsideIt)
{
    writer().insertText(L"x");
    writer().setStyle("Heading 1", false);
    writer().insertText(L"Title");
    takeCalls();
    writer().insertPageBreak();
    EXPECT_LINES(takeCalls(),
                 join(Calls{"body.Start = 6", "body.InsertBreak(missing)", "body.End -> 7",
                            R"(body.InsertAfter("\n"))"},
                      rangeLaid(1, 8), Calls{"body.Style = -2"}, rangeLaid(1, 8),
                      fontWritten("body", heading1Font), rangeLaid(8, 8), Calls{"body.Style = -1"},
                      rangeLaid(8, 8), fontWritten("body", normalFont)));
    EXPECT_EQ(data().lastEndlPos, 8);
    EXPECT_EQ(data().lastPageBreakPos, 7);
    EXPECT_EQ(text(), u"xTitle\f\r");
    EXPECT_EQ(styleRunAtEnd(), std::pair(8, 8));
}

TEST_F(MirovelSectionPageBreakTest, InATableWritesNoBreakInNormal)
{
    openCell(headerRange());
    writer().insertPageBreak();
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_EQ(data().pos, 0);
    EXPECT_EQ(data().lastPageBreakPos, 0);
    closeCell();
}

TEST_F(MirovelSectionPageBreakTest, InATableOnlyClosesAndReopensAStyle)
{
    writer().setStyle("Heading 1", false);
    takeCalls();
    openCell(headerRange());
    const std::size_t runs = data().fontRuns.size();
    writer().insertPageBreak();
    EXPECT_LINES(takeCalls(), (Calls{"document.Sections(1).Headers(1).Range.End -> 1",
                                     "document.Sections(1).Headers(1).Range.End -> 1"}))
        << "each style records its font in the cell";
    EXPECT_STREQ(data().styleName.data(), "Heading 1");
    EXPECT_EQ(data().pos, 0);
    EXPECT_EQ(data().lastPageBreakPos, 0);
    ASSERT_EQ(data().fontRuns.size(), runs + 2);
    EXPECT_EQ(data().fontRuns.back().getFont(), heading1Font.data());
    EXPECT_EQ(std::prev(data().fontRuns.end(), 2)->getFont(), normalFont.data());
    EXPECT_EQ(text(), u"");
    closeCell();
}

TEST_F(MirovelSectionPageBreakTest, AFailedBreakMovesNothing)
{
    writer().insertText(L"ab");
    session_.failCall(2, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { writer().insertPageBreak(); }), isHresult(E_FAIL));
    EXPECT_EQ(data().lastPageBreakPos, 0);
    EXPECT_EQ(styleRunAtEnd().second, 2);
}

using ChangeLastPageBreakTest = WriterTest;

TEST_F(ChangeLastPageBreakTest, TurnsTheBreakIntoASection)
{
    writer().insertText(L"ab");
    writer().insertPageBreak();
    takeCalls();
    writer().changeLastPageBreak();
    EXPECT_LINES(takeCalls(),
                 (Calls{"body.Start = 2", "body.End = 3", "body.Delete(1, 1) -> 1", "body.Start = 2",
                        "body.InsertBreak(2)", "body.End = 3", "body.Start = 3"}));
    EXPECT_EQ(data().pos, 3);
    EXPECT_EQ(data().sectionCount, 2);
    EXPECT_EQ(writer().getSectionCount(), 2);
    EXPECT_EQ(data().lastPageBreakPos, 0);
    EXPECT_EQ(text(), u"ab\f");
    ASSERT_EQ(model().sectionCount(), 2);
    EXPECT_EQ(model().sectionEnd(1), 3);
    EXPECT_EQ(model().section(2)->pageSetup.sectionStart, standin::model::SectionStart::newPage);
}

TEST_F(ChangeLastPageBreakTest, LeavesWhatWasWrittenSinceAndGoesOnBehindIt)
{
    writer().insertText(L"ab");
    writer().insertPageBreak();
    writer().insertText(L"cde");
    takeCalls();
    writer().changeLastPageBreak();
    EXPECT_LINES(takeCalls(),
                 (Calls{"body.Start = 2", "body.End = 3", "body.Delete(1, 1) -> 1", "body.Start = 2",
                        "body.InsertBreak(2)", "body.End = 6", "body.Start = 6"}));
    EXPECT_EQ(data().pos, 6);
    writer().insertText(L"f");
    EXPECT_EQ(text(), u"ab\fcdef");
    EXPECT_EQ(model().sectionCount(), 2);
}

TEST_F(ChangeLastPageBreakTest, WithoutABreakDoesNothing)
{
    writer().insertText(L"ab");
    takeCalls();
    writer().changeLastPageBreak();
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_EQ(data().pos, 2);
    EXPECT_EQ(writer().getSectionCount(), 1);
    EXPECT_EQ(text(), u"ab");
}

TEST_F(ChangeLastPageBreakTest, ChangesABreakOnce)
{
    writer().insertText(L"ab");
    writer().insertPageBreak();
    writer().changeLastPageBreak();
    takeCalls();
    writer().changeLastPageBreak();
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_EQ(writer().getSectionCount(), 2);
    EXPECT_EQ(model().sectionCount(), 2);
}

TEST_F(ChangeLastPageBreakTest, ChangesTheLastOfSeveral)
{
    writer().insertText(L"a");
    writer().insertPageBreak();
    writer().insertText(L"b");
    writer().insertPageBreak();
    writer().changeLastPageBreak();
    EXPECT_EQ(text(), u"a\fb\f");
    ASSERT_EQ(model().sectionCount(), 2);
    EXPECT_EQ(model().sectionEnd(1), 4);
    writer().insertPageBreak();
    writer().changeLastPageBreak();
    EXPECT_EQ(writer().getSectionCount(), 3);
    EXPECT_EQ(model().sectionCount(), 3);
    EXPECT_EQ(styleRunAtEnd().second, 5);
}

TEST_F(ChangeLastPageBreakTest, AFailureLeavesTheBreakOnRecord)
{
    writer().insertText(L"ab");
    writer().insertPageBreak();
    session_.failCall(5, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { writer().changeLastPageBreak(); }), isHresult(E_FAIL));
    EXPECT_EQ(writer().getSectionCount(), 1);
    EXPECT_EQ(data().lastPageBreakPos, 3);
    EXPECT_EQ(data().pos, 3);
    EXPECT_EQ(text(), u"ab");
    data().pos = 2;
}

TEST_F(ChangeLastPageBreakTest, AFailureToReturnComesAfterTheSectionHasBeenCounted)
{
    writer().insertText(L"ab");
    writer().insertPageBreak();
    session_.failCall(6, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { writer().changeLastPageBreak(); }), isHresult(E_FAIL));
    EXPECT_EQ(writer().getSectionCount(), 2);
    EXPECT_EQ(data().lastPageBreakPos, 0);
    EXPECT_EQ(model().sectionCount(), 2);
}

} // namespace
