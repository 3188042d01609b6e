#include "WriterFixture.h"

namespace {

class MirovelSectionTextTest : public WriterTest
{
protected:
    void endParagraphs(int count)
    {
        for (int i = 0; i < count; ++i)
            writer().insertEndl();
    }
};

TEST_F(MirovelSectionTextTest, WritesTextWithOneCallAndCountsIt)
{
    writer().insertText(L"plain text");
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("plain text"))"});
    EXPECT_EQ(insertionPosition(), 10);
    EXPECT_EQ(text(), u"plain text");

    writer().insertText(L", more");
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter(", more"))"});
    EXPECT_EQ(text(), u"plain text, more");
    EXPECT_EQ(styleRunAtEnd(), std::pair(0, 16));
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
    EXPECT_EQ(text(), u"ab\rcd");
    EXPECT_EQ(styleRunAtEnd().second, 5);
}

TEST_F(MirovelSectionTextTest, ALineFeedInATextIsNoParagraphEndToTheWriter)
{
    writer().insertText(L"ab\r\n");
    takeCalls();
    writer().setTextAlign(2);
    EXPECT_EQ(firstOf(takeCalls()), R"(body.InsertAfter("\n"))") << "the paragraph counts as open";
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
    const long before = word_.callCount();
    writer().insertText(all.c_str());
    EXPECT_EQ(word_.callCount(), before + 1);
    EXPECT_EQ(text().size(), 65'536U * 16);
    EXPECT_EQ(styleRunAtEnd().second, 65'536 * 16);
}

TEST_F(MirovelSectionTextTest, WritesIntoTheCellOfAnOpenTable)
{
    writer().insertText(L"body");
    openCell();
    const std::int32_t position = insertionPosition();
    writer().insertText(L"ab\r\ncd");
    EXPECT_LINES(takeCalls(), Calls{firstCell + R"(.InsertAfter("ab\r\ncd"))"});
    EXPECT_EQ(insertionPosition(), position) << "text in cells is not counted";
    EXPECT_EQ(cellTexts(), u"ab\rcd");
}

/// What the field of the entry that ends now says, in quotation marks.
std::string entryIn(const Calls& calls)
{
    for (const std::string& call : calls)
        if (const auto begin = call.find(R"(, 9, "\")"); begin != call.npos)
            return call.substr(begin + 8, call.find(R"(\" \\fC)") - begin - 8);
    return "(none)";
}

TEST_F(MirovelSectionTextTest, CollectsTheTextOfATocEntry)
{
    writer().insertTOC(1);
    writer().startTOCEntry();
    writer().insertText(L"left over");
    writer().startTOCEntry();
    writer().insertText(L"one ");
    writer().insertEndl();
    writer().insertText(L"\u4e2d\u00e4");
    takeCalls();
    writer().endTOCEntry();
    EXPECT_EQ(entryIn(takeCalls()), "one \\n?\\u00e4");
    writer().insertText(L"not this");
    takeCalls();
    writer().endTOCEntry();
    EXPECT_EQ(entryIn(takeCalls()), "one \\n?\\u00e4") << "it is kept until the next start";
}

TEST_F(MirovelSectionTextTest, CollectsTheTextOfATocEntryInATableToo)
{
    writer().insertTOC(1);
    openCell();
    writer().startTOCEntry();
    writer().insertText(L"cell");
    takeCalls();
    writer().endTOCEntry();
    EXPECT_EQ(entryIn(takeCalls()), "cell");
    abandon();
}

TEST_F(MirovelSectionTextTest, EndsAParagraph)
{
    writer().insertText(L"ab");
    takeCalls();
    writer().insertEndl();
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("\n"))"});
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), Calls{"body.End -> 3"}) << "no paragraph is open";
    EXPECT_EQ(text(), u"ab\r");
    EXPECT_EQ(styleRunAtEnd(), std::pair(0, 3));
}

TEST_F(MirovelSectionTextTest, AnEmptyParagraphInNormalLeavesTheStyleWhereItBegan)
{
    writer().insertEndl();
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("\n"))"});
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), Calls{"body.End -> 1"}) << "no paragraph is open";
    EXPECT_EQ(text(), u"\r");
    EXPECT_EQ(styleRunAtEnd(), std::pair(0, 1));
}

TEST_F(MirovelSectionTextTest, AParagraphEndRightBehindAStyleStaysOutsideItsRun)
{
    writer().setStyle("Heading 1", false);
    takeCalls();
    writer().insertEndl();
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("\n"))"});
    writer().insertText(L"Title");
    writer().insertEndl(); // text stands between the style and this paragraph end
    EXPECT_EQ(styleRunAtEnd(), std::pair(1, 7));
    EXPECT_EQ(text(), u"\rTitle\r");
    EXPECT_EQ(styleAt(0), u"Normal");
    EXPECT_EQ(styleAt(1), u"Heading 1");
}

TEST_F(MirovelSectionTextTest, OnlyTheExactNameOfNormalKeepsTheStyleInPlace)
{
    writer().setStyle("normal", false);
    writer().insertEndl();
    EXPECT_EQ(styleRunAtEnd(), std::pair(1, 1));
}

TEST_F(MirovelSectionTextTest, AParagraphEndInATableGoesIntoTheCell)
{
    openCell();
    writer().setStyle("Heading 1", false);
    const std::int32_t position = insertionPosition();
    writer().insertEndl();
    EXPECT_LINES(takeCalls(), Calls{firstCell + R"(.InsertAfter("\n"))"});
    EXPECT_EQ(insertionPosition(), position);
    EXPECT_EQ(cellTexts(), u"\r");
    writer().endTable();
    EXPECT_EQ(styleRunAtEnd().first, position) << "the style still begins where it did";
}

TEST_F(MirovelSectionTextTest, ClearsTheUndoListEvery101ParagraphEnds)
{
    const Calls endl = {R"(body.InsertAfter("\n"))"};
    const Calls lastEndl = join(endl, Calls{"document.UndoClear()"});
    for (int i = 1; i <= 303; ++i) {
        writer().insertEndl();
        ASSERT_EQ(takeCalls(), i % 101 == 0 ? lastEndl : endl) << "paragraph end number " << i;
    }
    EXPECT_EQ(styleRunAtEnd().second, 303);
}

TEST_F(MirovelSectionTextTest, CountsParagraphEndsInTablesForTheUndoListToo)
{
    endParagraphs(99);
    openCell();
    const Calls endl = {firstCell + R"(.InsertAfter("\n"))"};
    writer().insertEndl();
    EXPECT_LINES(takeCalls(), endl);
    writer().insertEndl();
    EXPECT_LINES(takeCalls(), join(endl, Calls{"document.UndoClear()"}));
    endParagraphs(100);
    EXPECT_EQ(takeCalls(), Calls(100, endl.front()));
    writer().insertEndl();
    EXPECT_LINES(takeCalls(), join(endl, Calls{"document.UndoClear()"}));
}

class CheckForEndlTest : public WriterTest
{
protected:
    Calls checked()
    {
        takeCalls();
        MirovelSectionProbe::checkForEndl(writer());
        return takeCalls();
    }
};

TEST_F(CheckForEndlTest, EndsAnOpenParagraph)
{
    writer().insertText(L"0123");
    writer().setStyle("Heading 1", false); // begins inside the paragraph
    writer().insertText(L"456789");
    EXPECT_LINES(checked(), Calls{R"(body.InsertAfter("\n"))"});
    EXPECT_LINES(checked(), Calls{});
    EXPECT_EQ(styleRunAtEnd(), std::pair(4, 11));
}

TEST_F(CheckForEndlTest, LeavesAParagraphThatIsEnded)
{
    writer().insertText(L"0123");
    writer().setStyle("Heading 1", false);
    writer().insertText(L"45678");
    writer().insertEndl();
    EXPECT_LINES(checked(), Calls{});
    EXPECT_EQ(styleRunAtEnd().second, 10);
}

TEST_F(CheckForEndlTest, LeavesAStyleWithoutText)
{
    writer().insertText(L"0123456789");
    writer().setStyle("Heading 1", false);
    EXPECT_LINES(checked(), Calls{});
    EXPECT_EQ(styleRunAtEnd().second, 10);
}

TEST_F(CheckForEndlTest, LeavesTextOfAStyleThatBeganBehindAParagraphEnd)
{
    writer().insertText(L"012");
    writer().insertEndl();
    writer().setStyle("Heading 1", false);
    writer().insertText(L"456789");
    EXPECT_LINES(checked(), Calls{});
    EXPECT_EQ(styleRunAtEnd().second, 10);
}

TEST_F(CheckForEndlTest, EndsAParagraphAlthoughNoStyleRunIsOpen)
{
    writer().insertText(L"0123456789");
    writer().applyStyle();
    EXPECT_LINES(checked(), Calls{R"(body.InsertAfter("\n"))"});
}

TEST_F(CheckForEndlTest, LeavesTablesAlone)
{
    openCell();
    writer().insertText(L"text");
    EXPECT_LINES(checked(), Calls{});
    EXPECT_EQ(cellTexts(), u"text");
}

using DeleteLastCharTest = WriterTest;

TEST_F(DeleteLastCharTest, RemovesTheLastCharacterWritten)
{
    writer().insertText(L"abcd");
    takeCalls();
    MirovelSectionProbe::deleteLastChar(writer());
    EXPECT_LINES(takeCalls(), (Calls{"body.Start = 3", "body.Delete(1, 1) -> 1"}));
    EXPECT_EQ(text(), u"abc");
    writer().insertText(L"x");
    EXPECT_EQ(text(), u"abcx");
    EXPECT_EQ(styleRunAtEnd().second, 4);
}

TEST_F(DeleteLastCharTest, InATableRemovesWhatFollowsTheCell)
{
    openCell();
    writer().insertText(L"ab");
    const std::int32_t position = insertionPosition();
    MirovelSectionProbe::deleteLastChar(writer());
    EXPECT_LINES(takeCalls(), (Calls{firstCell + ".End -> 3", firstCell + ".Start = 3",
                                     firstCell + ".Delete(1, 1) -> 0"}));
    EXPECT_EQ(insertionPosition(), position);
}

TEST_F(DeleteLastCharTest, AFailureLeavesThePositionMoved)
{
    writer().insertText(L"abcd");
    word_.failCall(1, E_FAIL);
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
    abandon(); // which still counts what has gone
}

TEST_F(MirovelSectionTextTest, WritesBehindAnyRange)
{
    writer().insertText(L"body");
    takeCalls();
    const Word::RangePtr header = headerRange();
    MirovelSectionProbe::setRange(writer(), header);
    MirovelSectionProbe::setRange(writer(), header);
    writer().insertText(L"head");
    EXPECT_LINES(takeCalls(), Calls{R"(document.Sections(1).Headers(1).Range.InsertAfter("head"))"});
    EXPECT_EQ(text(), u"body");
    EXPECT_EQ(std::wstring(header->GetText()), L"head\r");
    abandon();
}

TEST_F(MirovelSectionTextTest, AFailedInsertionPassesOnAndCountsNothing)
{
    word_.failCall(1, static_cast<HRESULT>(0x800706BA));
    EXPECT_THAT(comErrorOf([&] { writer().insertText(L"lost"); }),
                isHresult(static_cast<HRESULT>(0x800706BA)));
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("lost") !! 0x800706ba)"});
    writer().insertText(L"kept");
    EXPECT_EQ(text(), u"kept");
    EXPECT_EQ(styleRunAtEnd().second, 4);
}

TEST_F(MirovelSectionTextTest, AFailedParagraphEndIsNoneButTheStyleHasMoved)
{
    writer().setStyle("Heading 1", false);
    word_.failCall(1, E_OUTOFMEMORY);
    EXPECT_THAT(comErrorOf([&] { writer().insertEndl(); }), isHresult(E_OUTOFMEMORY));
    word_.clearFaults();
    EXPECT_EQ(insertionPosition(), 0);
    writer().insertText(L"Title");
    takeCalls();
    endParagraphs(100);
    EXPECT_EQ(takeCalls(), Calls(100, R"(body.InsertAfter("\n"))")) << "it is not one of 101 either";
    EXPECT_EQ(styleRunAtEnd(), std::pair(1, 105));
}

TEST_F(MirovelSectionTextTest, AFailureToClearTheUndoListKeepsTheParagraphEnd)
{
    endParagraphs(100);
    takeCalls();
    word_.failCall(2, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { writer().insertEndl(); }), isHresult(E_FAIL));
    EXPECT_LINES(takeCalls(), (Calls{R"(body.InsertAfter("\n"))", "document.UndoClear() !! 0x80004005"}));
    writer().setTextAlign(2);
    EXPECT_LINES(takeCalls(), Calls{"body.End -> 101"}) << "no paragraph is open";
    writer().insertEndl();
    EXPECT_LINES(takeCalls(), (Calls{R"(body.InsertAfter("\n"))", "document.UndoClear()"}))
        << "it is tried again";
    EXPECT_EQ(styleRunAtEnd().second, 102);
}

TEST_F(MirovelSectionTextTest, ANullRangeRaisesEPointer)
{
    MirovelSectionProbe::setRange(writer(), Word::RangePtr());
    EXPECT_THAT(comErrorOf([&] { writer().insertText(L"x"); }), isHresult(E_POINTER));
    EXPECT_THAT(comErrorOf([&] { writer().insertEndl(); }), isHresult(E_POINTER));
    EXPECT_THAT(comErrorOf([&] { writer().deleteRange(); }), isHresult(E_POINTER));
    EXPECT_LINES(takeCalls(), Calls{});
    abandon();
}

} // namespace
