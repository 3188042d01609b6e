#include "WriterFixture.h"

namespace {

using MirovelSectionTextTest = WriterTest;

TEST_F(MirovelSectionTextTest, WritesTextWithOneCallAndCountsIt)
{
    writer().insertText(L"plain text");
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("plain text"))"});
    EXPECT_EQ(data().pos, 10);
    EXPECT_EQ(data().lastEndlPos, 0);
    EXPECT_EQ(data().stylePos, 0);
    EXPECT_EQ(text(), u"plain text");

    writer().insertText(L", more");
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter(", more"))"});
    EXPECT_EQ(text(), u"plain text, more");
    EXPECT_EQ(styleRunAtEnd().second, 16);
}

TEST_F(MirovelSectionTextTest, WritesMarkupAsItStands)
{
    writer().insertText(L"<a href=\"x\">y</a>");
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("<a href=\"x\">y</a>"))"});
    EXPECT_EQ(text(), u"<a href=\"x\">y</a>");
}

TEST_F(MirovelSectionTextTest, CountsCarriageReturnAndLineFeedAsOne)
{
    writer().insertText(L"ab\r\ncd");
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("ab\r\ncd"))"});
    EXPECT_EQ(data().lastEndlPos, 0) << "only insertEndl notes a paragraph end";
    EXPECT_EQ(text(), u"ab\rcd");
    EXPECT_EQ(styleRunAtEnd().second, 5);
}

TEST_F(MirovelSectionTextTest, CountsALineFeedAtTheStartInFull)
{
    writer().insertText(L"\n\nx");
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("\n\nx"))"});
    EXPECT_EQ(text(), u"\r\rx");
    EXPECT_EQ(styleRunAtEnd().second, 3);
}

TEST_F(MirovelSectionTextTest, StopsSubtractingAtASecondLineFeedInARow)
{
    writer().insertText(L"a\n\nb");
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("a\n\nb"))"});
    EXPECT_EQ(text(), u"a\r\rb");
    EXPECT_EQ(styleRunAtEnd().second, 3);
}

TEST_F(MirovelSectionTextTest, CountsUtf16UnitsWhateverTheCodePage)
{
    writer().insertText(L"\u00e4\u4e2d\U0001F600");
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("\u00e4\u4e2d\ud83d\ude00"))"});
    EXPECT_EQ(text(), u"\u00e4\u4e2d\U0001F600");
    EXPECT_EQ(styleRunAtEnd().second, 4);
}

TEST_F(MirovelSectionTextTest, KeepsUnpairedSurrogates)
{
    const wchar_t unpaired[] = {L'a', 0xD83D, L'b', 0};
    writer().insertText(unpaired);
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("a\ud83db"))"});
    EXPECT_EQ(styleRunAtEnd().second, 3);
}

TEST_F(MirovelSectionTextTest, AnEmptyTextMovesNothing)
{
    writer().insertText(L"");
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter(""))"});
    EXPECT_EQ(text(), u"");
    EXPECT_EQ(styleRunAtEnd().second, 0);
}

TEST_F(MirovelSectionTextTest, EndsATextAtItsFirstNul)
{
    writer().insertText(L"ab\0cd\n");
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("ab"))"});
    EXPECT_EQ(styleRunAtEnd().second, 2);
}

TEST_F(MirovelSectionTextTest, WritesAMegabyteWithOneCall)
{
    const std::wstring line = L"0123456789abcde\r\n";
    std::wstring all;
    for (int i = 0; i < 65'536; ++i)
        all += line;
    const long before = session_.callCount();
    writer().insertText(all.c_str());
    EXPECT_EQ(session_.callCount(), before + 1);
    EXPECT_EQ(static_cast<std::int32_t>(text().size()), data().pos);
    EXPECT_EQ(styleRunAtEnd().second, 65'536 * 16);
}

TEST_F(MirovelSectionTextTest, WritesIntoTheCellOfAnOpenTable)
{
    writer().insertText(L"body");
    takeCalls();
    openCell(headerRange());
    writer().insertText(L"ab\r\ncd");
    EXPECT_LINES(takeCalls(), Calls{R"(document.Sections(1).Headers(1).Range.InsertAfter("ab\r\ncd"))"});
    EXPECT_EQ(data().pos, 4);
    EXPECT_EQ(text(), u"body");
    closeCell();
}

TEST_F(MirovelSectionTextTest, CollectsTheTextOfATocEntry)
{
    data().tocPos = 1;
    data().tocText = "left over";
    writer().startTOCEntry();
    writer().insertText(L"one ");
    writer().insertEndl();
    writer().insertText(L"\u4e2d\u00e4");
    EXPECT_STREQ(data().tocText.data(), "one \n?\xe4");
    data().collectingTocEntry = false;
    writer().insertText(L"not this");
    EXPECT_STREQ(data().tocText.data(), "one \n?\xe4");
    EXPECT_EQ(text(), u"one \r\u4e2d\u00e4not this");
    data().tocPos = 0;
}

TEST_F(MirovelSectionTextTest, CollectsTheTextOfATocEntryInATableToo)
{
    data().tocPos = 1;
    writer().startTOCEntry();
    openCell(headerRange());
    writer().insertText(L"cell");
    EXPECT_STREQ(data().tocText.data(), "cell");
    closeCell();
    data().tocPos = 0;
}

TEST_F(MirovelSectionTextTest, EndsAParagraph)
{
    writer().insertText(L"ab");
    takeCalls();
    writer().insertEndl();
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("\n"))"});
    EXPECT_EQ(data().lastEndlPos, 3);
    EXPECT_EQ(data().endlCount, 1);
    EXPECT_EQ(text(), u"ab\r");
    EXPECT_EQ(styleRunAtEnd(), std::pair(0, 3));
}

TEST_F(MirovelSectionTextTest, AnEmptyParagraphInNormalLeavesTheStyleWhereItBegan)
{
    writer().insertEndl();
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("\n"))"});
    EXPECT_EQ(data().lastEndlPos, 1);
    EXPECT_EQ(text(), u"\r");
    EXPECT_EQ(styleRunAtEnd(), std::pair(0, 1));
}

TEST_F(MirovelSectionTextTest, AParagraphEndRightBehindAStyleStaysOutsideItsRun)
{
    writer().setStyle("Heading 1", false);
    takeCalls();
    writer().insertEndl();
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("\n"))"});
    EXPECT_EQ(data().pos, 1);
    EXPECT_EQ(data().stylePos, 1);
    EXPECT_EQ(data().lastEndlPos, 1);

    writer().insertText(L"Title");
    EXPECT_EQ(data().stylePos, 1);
    writer().insertEndl();
    EXPECT_EQ(data().stylePos, 1) << "text stands between the style and this paragraph end";
    finish();
    EXPECT_EQ(text(), u"\rTitle\r");
    EXPECT_EQ(styleAt(0), u"Normal");
    EXPECT_EQ(styleAt(1), u"Heading 1");
}

TEST_F(MirovelSectionTextTest, OnlyTheExactNameOfNormalKeepsTheStyleInPlace)
{
    writer().setStyle("normal", false);
    EXPECT_EQ(data().stylePos, 0);
    writer().insertEndl();
    EXPECT_EQ(data().stylePos, 1);
}

TEST_F(MirovelSectionTextTest, AParagraphEndInATableGoesIntoTheCell)
{
    writer().setStyle("Heading 1", false);
    takeCalls();
    openCell(headerRange());
    writer().insertEndl();
    EXPECT_LINES(takeCalls(), Calls{R"(document.Sections(1).Headers(1).Range.InsertAfter("\n"))"});
    EXPECT_EQ(data().pos, 0);
    EXPECT_EQ(data().stylePos, 0);
    EXPECT_EQ(data().lastEndlPos, 0);
    EXPECT_EQ(data().endlCount, 1);
    EXPECT_EQ(text(), u"");
    closeCell();
}

TEST_F(MirovelSectionTextTest, ClearsTheUndoListEvery101ParagraphEnds)
{
    const Calls endl = {R"(body.InsertAfter("\n"))"};
    const Calls lastEndl = join(endl, Calls{"document.UndoClear()"});
    for (int i = 1; i <= 303; ++i) {
        writer().insertEndl();
        ASSERT_EQ(takeCalls(), i % 101 == 0 ? lastEndl : endl) << "paragraph end number " << i;
        ASSERT_EQ(data().endlCount, i % 101);
    }
    EXPECT_EQ(data().lastEndlPos, 303);
    EXPECT_EQ(styleRunAtEnd().second, 303);
}

TEST_F(MirovelSectionTextTest, CountsParagraphEndsInTablesForTheUndoListToo)
{
    data().endlCount = 100;
    openCell(headerRange());
    writer().insertEndl();
    EXPECT_LINES(takeCalls(), (Calls{R"(document.Sections(1).Headers(1).Range.InsertAfter("\n"))",
                                     "document.UndoClear()"}));
    EXPECT_EQ(data().endlCount, 0);
    closeCell();
}

class CheckForEndlTest : public WriterTest
{
protected:
    Calls checked(std::int32_t pos, std::int32_t lastEndlPos, std::int32_t stylePos)
    {
        data().pos = pos;
        data().lastEndlPos = lastEndlPos;
        data().stylePos = stylePos;
        MirovelSectionProbe::checkForEndl(writer());
        return takeCalls();
    }

    void SetUp() override
    {
        WriterTest::SetUp();
        writer().insertText(L"0123456789");
        takeCalls();
    }
};

TEST_F(CheckForEndlTest, EndsAnOpenParagraph)
{
    EXPECT_LINES(checked(10, 2, 4), Calls{R"(body.InsertAfter("\n"))"});
    EXPECT_EQ(data().lastEndlPos, 11);
    EXPECT_EQ(data().endlCount, 1);
    EXPECT_LINES(checked(data().pos, data().lastEndlPos, data().stylePos), Calls{});
    EXPECT_EQ(styleRunAtEnd(), std::pair(4, 11));
}

TEST_F(CheckForEndlTest, LeavesAParagraphThatIsEnded)
{
    EXPECT_LINES(checked(10, 10, 4), Calls{});
    EXPECT_EQ(styleRunAtEnd().second, 10);
}

TEST_F(CheckForEndlTest, LeavesAStyleWithoutText)
{
    EXPECT_LINES(checked(10, 2, 10), Calls{});
    EXPECT_EQ(styleRunAtEnd().second, 10);
}

TEST_F(CheckForEndlTest, LeavesTextOfAStyleThatBeganBehindAParagraphEnd)
{
    EXPECT_LINES(checked(10, 4, 4), Calls{});
    EXPECT_EQ(styleRunAtEnd().second, 10);
}

TEST_F(CheckForEndlTest, EndsAParagraphAlthoughNoStyleRunIsOpen)
{
    EXPECT_LINES(checked(10, 0, -1), Calls{R"(body.InsertAfter("\n"))"});
}

TEST_F(CheckForEndlTest, LeavesTablesAlone)
{
    openCell(headerRange());
    EXPECT_LINES(checked(10, 2, 4), Calls{});
    EXPECT_EQ(data().pos, 10);
    closeCell();
}

using DeleteLastCharTest = WriterTest;

TEST_F(DeleteLastCharTest, RemovesTheLastCharacterWritten)
{
    writer().insertText(L"abcd");
    takeCalls();
    MirovelSectionProbe::deleteLastChar(writer());
    EXPECT_LINES(takeCalls(), (Calls{"body.Start = 3", "body.Delete(1, 1) -> 1"}));
    EXPECT_EQ(data().pos, 3);
    EXPECT_EQ(text(), u"abc");
    writer().insertText(L"x");
    EXPECT_EQ(text(), u"abcx");
}

TEST_F(DeleteLastCharTest, InATableRemovesWhatFollowsTheCell)
{
    writer().insertText(L"abcd");
    const Word::RangePtr cell = document_->Range(0L, 2L);
    takeCalls();
    openCell(cell);
    MirovelSectionProbe::deleteLastChar(writer());
    EXPECT_LINES(takeCalls(), (Calls{"document.Range(0, 2).End -> 2", "document.Range(0, 2).Start = 2",
                                     "document.Range(0, 2).Delete(1, 1) -> 1"}));
    EXPECT_EQ(data().pos, 4);
    EXPECT_EQ(text(), u"abd");
    closeCell();
    data().pos = 3;
}

TEST_F(DeleteLastCharTest, AFailureLeavesThePositionMoved)
{
    writer().insertText(L"abcd");
    session_.failCall(1, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { MirovelSectionProbe::deleteLastChar(writer()); }), isHresult(E_FAIL));
    EXPECT_EQ(text(), u"abcd");
    EXPECT_EQ(styleRunAtEnd().second, 3);
}

TEST_F(MirovelSectionTextTest, DeletesTheContentOfTheOutputRange)
{
    writer().insertText(L"what the template held\nin two lines");
    takeCalls();
    writer().deleteRange();
    EXPECT_LINES(takeCalls(), Calls{"body.Delete(missing, missing) -> 1"});
    EXPECT_EQ(text(), u"");
    data().pos = 0;
}

TEST_F(MirovelSectionTextTest, WritesBehindAnyRange)
{
    writer().insertText(L"body");
    takeCalls();
    const Word::RangePtr header = headerRange();
    MirovelSectionProbe::setRange(writer(), header);
    MirovelSectionProbe::setRange(writer(), header);
    EXPECT_EQ(data().range.GetInterfacePtr(), header.GetInterfacePtr());
    writer().insertText(L"head");
    EXPECT_LINES(takeCalls(), Calls{R"(document.Sections(1).Headers(1).Range.InsertAfter("head"))"});
    EXPECT_EQ(text(), u"body");
    MirovelSectionProbe::setRange(writer(), range_);
    data().pos = 4;
}

TEST_F(MirovelSectionTextTest, AFailedInsertionPassesOnAndCountsNothing)
{
    session_.failCall(1, static_cast<HRESULT>(0x800706BA));
    EXPECT_THAT(comErrorOf([&] { writer().insertText(L"lost"); }),
                isHresult(static_cast<HRESULT>(0x800706BA)));
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("lost") !! 0x800706ba)"});
    EXPECT_EQ(data().pos, 0);
    writer().insertText(L"kept");
    EXPECT_EQ(text(), u"kept");
    EXPECT_EQ(styleRunAtEnd().second, 4);
}

TEST_F(MirovelSectionTextTest, AFailedParagraphEndIsNoneButTheStyleHasMoved)
{
    writer().setStyle("Heading 1", false);
    session_.failCall(1, E_OUTOFMEMORY);
    EXPECT_THAT(comErrorOf([&] { writer().insertEndl(); }), isHresult(E_OUTOFMEMORY));
    EXPECT_EQ(data().pos, 0);
    EXPECT_EQ(data().lastEndlPos, 0);
    EXPECT_EQ(data().endlCount, 0);
    EXPECT_EQ(data().stylePos, 1);
    data().stylePos = 0;
}

TEST_F(MirovelSectionTextTest, AFailureToClearTheUndoListKeepsTheParagraphEnd)
{
    data().endlCount = 100;
    session_.failCall(2, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { writer().insertEndl(); }), isHresult(E_FAIL));
    EXPECT_LINES(takeCalls(), (Calls{R"(body.InsertAfter("\n"))", "document.UndoClear() !! 0x80004005"}));
    EXPECT_EQ(data().lastEndlPos, 1);
    EXPECT_EQ(styleRunAtEnd().second, 1);
}

TEST_F(MirovelSectionTextTest, ANullRangeRaisesEPointer)
{
    data().range = nullptr;
    EXPECT_THAT(comErrorOf([&] { writer().insertText(L"x"); }), isHresult(E_POINTER));
    EXPECT_THAT(comErrorOf([&] { writer().insertEndl(); }), isHresult(E_POINTER));
    EXPECT_THAT(comErrorOf([&] { writer().deleteRange(); }), isHresult(E_POINTER));
    EXPECT_LINES(takeCalls(), Calls{});
    data().range = range_;
}

} // namespace
