#include "WriterFixture.h"

#include <string>

namespace {

using MirovelSectionPageBreakTest = WriterTest;

TEST_F(MirovelSectionPageBreakTest, WritesAPageBreakAndTakesItsEndForThePosition)
{
    writer().insertText(L"ab");
    takeCalls();
    writer().insertPageBreak();
    EXPECT_LINES(takeCalls(), (Calls{"body.Start = 2", "body.InsertBreak(missing)", "body.End -> 3"}));
    EXPECT_EQ(insertionPosition(), 3);
    EXPECT_EQ(writer().getSectionCount(), 1);
    EXPECT_EQ(text(), u"ab\f");

    writer().insertText(L"cd");
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("cd"))"});
    EXPECT_EQ(text(), u"ab\fcd");
    EXPECT_EQ(styleRunAtEnd(), std::pair(0, 5));
}

TEST_F(MirovelSectionPageBreakTest, IsNoParagraphEnd)
{
    writer().insertText(L"ab");
    writer().insertEndl();
    writer().insertPageBreak();
    takeCalls();
    writer().setTextAlign(2);
    EXPECT_EQ(firstOf(takeCalls()), R"(body.InsertAfter("\n"))");
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
    EXPECT_EQ(text(), u"Title\f");
    writer().setStyle("Heading 1", false);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force";
    EXPECT_LINES(finish(), join(styleRunApplied(6, 6, "-2", heading1Font), Calls{"document.UndoClear()"}));
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
    EXPECT_EQ(text(), u"xTitle\f\r");
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), Calls{"body.End -> 8"}) << "no paragraph is open";
    writer().changeLastPageBreak();
    EXPECT_EQ(firstOf(takeCalls()), "body.Start = 6");
    EXPECT_EQ(styleRunAtEnd(), std::pair(8, 8));
}

TEST_F(MirovelSectionPageBreakTest, InATableWritesNoBreakInNormal)
{
    openCell();
    const std::int32_t position = insertionPosition();
    writer().insertPageBreak();
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_EQ(insertionPosition(), position);
    writer().changeLastPageBreak();
    EXPECT_LINES(takeCalls(), Calls{}) << "there is none";
    EXPECT_EQ(cellTexts(), u"");
}

TEST_F(MirovelSectionPageBreakTest, InATableOnlyClosesAndReopensAStyle)
{
    openCell();
    writer().setStyle("Heading 1", false);
    writer().applyFont();
    const std::int32_t position = insertionPosition();
    writer().insertPageBreak();
    EXPECT_LINES(takeCalls(), (Calls{firstCell + ".End -> 1", firstCell + ".End -> 1"}))
        << "each style records its font in the cell";
    EXPECT_EQ(writer().getFont(), heading1Font.data());
    writer().setStyle("Heading 1", false);
    EXPECT_LINES(takeCalls(), Calls{}) << "it is in force";
    EXPECT_EQ(insertionPosition(), position);
    writer().changeLastPageBreak();
    EXPECT_LINES(takeCalls(), Calls{}) << "there is none";
    EXPECT_EQ(cellTexts(), u"");
    writer().endTable();
    takeCalls();
    writer().applyFont();
    std::string faces;
    for (const std::string& call : takeCalls())
        if (const auto name = call.find(".Font.Name = "); name != call.npos)
            faces += call.substr(name + 13);
    EXPECT_EQ(faces, R"("Times New Roman""Arial")");
}

TEST_F(MirovelSectionPageBreakTest, AFailedBreakMovesNothing)
{
    writer().insertText(L"ab");
    word_.failCall(2, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { writer().insertPageBreak(); }), isHresult(E_FAIL));
    takeCalls();
    writer().changeLastPageBreak();
    EXPECT_LINES(takeCalls(), Calls{}) << "there is none";
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
    EXPECT_EQ(insertionPosition(), 3);
    EXPECT_EQ(writer().getSectionCount(), 2);
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
    EXPECT_EQ(insertionPosition(), 6);
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
    EXPECT_EQ(insertionPosition(), 2);
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
    word_.failCall(5, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { writer().changeLastPageBreak(); }), isHresult(E_FAIL));
    EXPECT_EQ(writer().getSectionCount(), 1);
    EXPECT_EQ(insertionPosition(), 3);
    EXPECT_EQ(text(), u"ab");
    comErrorOf([&] { writer().changeLastPageBreak(); });
    EXPECT_EQ(firstOf(takeCalls()), "body.Start = 2") << "it is tried again";
    abandon();
}

TEST_F(ChangeLastPageBreakTest, AFailureToReturnComesAfterTheSectionHasBeenCounted)
{
    writer().insertText(L"ab");
    writer().insertPageBreak();
    word_.failCall(6, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { writer().changeLastPageBreak(); }), isHresult(E_FAIL));
    EXPECT_EQ(writer().getSectionCount(), 2);
    EXPECT_EQ(model().sectionCount(), 2);
    takeCalls();
    writer().changeLastPageBreak();
    EXPECT_LINES(takeCalls(), Calls{}) << "it is done with";
}

} // namespace
