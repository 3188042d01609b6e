#include <InProcessWord.h>

#include "LiveRange.h"
#include "TestSupport.h"

#include <WordConstants.h>
#include <cstring>
#include <gmock/gmock.h>

namespace {
using standin_test::bytesOf;
using standin_test::ScratchFolder;
using testing::ElementsAre;
using testing::IsEmpty;

std::u16string textOf(const std::shared_ptr<standin::model::Document>& document)
{
    return document->mainStory()->text(0, document->mainStory()->length());
}

class InProcessWord : public testing::Test
{
protected:
    Word::_DocumentPtr addDocument() const { return word.application()->GetDocuments()->Add(); }

    standin_test::Apartment apartment;
    standin::InProcessWord word;
};

TEST_F(InProcessWord, TextGoesIntoTheModel)
{
    const Word::_DocumentPtr document = addDocument();
    const Word::RangePtr range = document->Range();
    range->InsertAfter(L"ab\r\ncd");
    EXPECT_EQ(textOf(word.model(document)), u"ab\rcd\r");
    EXPECT_EQ(range->GetEnd(), 6);
    EXPECT_EQ(range->GetStoryLength(), 6);
    range->InsertBefore(L"x");
    EXPECT_EQ(range->GetText(), _bstr_t(L"xab\rcd\r"));
    range->SetRange(0, 1);
    EXPECT_EQ(range->Delete(), 1);
    EXPECT_EQ(textOf(word.model(document)), u"ab\rcd\r");
}

TEST_F(InProcessWord, TheTranscriptHasOneLineForEachCall)
{
    {
        const Word::_ApplicationPtr application = word.application();
        const Word::DocumentsPtr documents = application->GetDocuments();
        const Word::_DocumentPtr document = documents->Add();
        const Word::RangePtr range = document->Range();
        range->InsertAfter(L"a\"b\n");
        range->PutStart(1);
        range->PutStyle(Word::integer(Word::wdStyleHeading1));
        range->Delete(Word::integer(Word::wdCharacter), Word::integer(1));
        const Word::_FontPtr font = range->GetFont();
        font->PutSize(12.5f);
        font->PutBold(1);
        document->GetStyles()->Item(Word::integer(Word::wdStyleHeading1));
        application->PutVisible(true);
        comErrorOf([&] { document->GetStyles()->Item(Word::text(L"Nope")); });
        comErrorOf([&] { range->Sort(); });
        document->Close(Word::integer(Word::wdDoNotSaveChanges));
    }
    EXPECT_THAT(
        word.transcript(),
        ElementsAre(
            "application.Documents -> application.Documents",
            "application.Documents.Add(missing, missing, missing, missing) -> document",
            "document.Range(missing, missing) -> body", "body.InsertAfter(\"a\\\"b\\n\")", "body.Start = 1",
            "body.Style = -2", "body.Delete(1, 1) -> 1", "body.Font -> body.Font", "body.Font.Size = 12.5f",
            "body.Font.Bold = 1", "document.Styles -> document.Styles",
            "document.Styles.Item(-2) -> document.Styles(-2)", "application.Visible = true",
            "document.Styles -> document.Styles", "document.Styles.Item(\"Nope\") !! 0x800a1735",
            "body.Sort(missing, missing, missing, missing, missing, missing, missing, missing, missing, "
            "missing, missing, missing, missing, missing, missing, missing, missing, missing, missing) "
            "!! 0x80004001",
            "document.Close(0, missing, missing)"));
}

TEST_F(InProcessWord, ObjectsAsArgumentsShowTheirName)
{
    const Word::_DocumentPtr document = addDocument();
    const Word::RangePtr first = document->Range();
    const Word::RangePtr second = first->GetDuplicate();
    word.clearTranscript();
    document->GetFields()->Add(second, Word::integer(Word::wdFieldPage));
    first->PutStyle(Word::object(document->GetStyles()->Item(Word::text(L"heading 2"))));
    EXPECT_THAT(word.transcript(),
                ElementsAre("document.Fields -> document.Fields",
                            "document.Fields.Add(body.Duplicate, 33, missing, missing) -> field",
                            "document.Styles -> document.Styles",
                            "document.Styles.Item(\"heading 2\") -> document.Styles(\"heading 2\")",
                            "body.Style = document.Styles(\"heading 2\")"));
}

TEST_F(InProcessWord, EachRangeHasANameOfItsOwn)
{
    const Word::_DocumentPtr document = addDocument();
    const Word::RangePtr first = document->Range();
    const Word::RangePtr second = document->Range();
    word.clearTranscript();
    second->GetFont();
    first->GetDuplicate();
    first->GetDuplicate();
    EXPECT_THAT(word.transcript(),
                ElementsAre("body#2.Font -> body#2.Font", "body.Duplicate -> body.Duplicate",
                            "body.Duplicate -> body.Duplicate#2"));
}

// A call that a client makes besides changes the lines of no other call.
TEST_F(InProcessWord, ACallMoreRenamesNothing)
{
    const auto lines = [this](bool more) {
        const Word::_DocumentPtr document = addDocument();
        word.clearTranscript();
        if (more)
            document->Range()->GetFont()->GetBold();
        document->GetStyles()->Item(Word::integer(-2))->GetFont()->PutBold(1);
        document->GetTables()->Add(document->GetContent(), 1, 1)->GetRows()->Item(1)->GetCells();
        std::vector<std::string> tail = word.transcript();
        document->Close(Word::integer(Word::wdDoNotSaveChanges));
        tail.erase(tail.begin(), tail.begin() + (more ? 3 : 0));
        return tail;
    };
    std::vector<std::string> plain = lines(false);
    std::vector<std::string> more = lines(true);
    for (std::string& line : more) // the second document and its table
        for (const char* kind : {"document", "table"})
            for (std::size_t at; (at = line.find(std::string(kind) + '2')) != line.npos;)
                line.erase(at + std::strlen(kind), 1);
    EXPECT_EQ(more, plain);
}

TEST_F(InProcessWord, TellsWhichMembersWereCalled)
{
    const Word::_DocumentPtr document = addDocument();
    word.clearTranscript();
    document->Range()->PutStart(0);
    ASSERT_EQ(word.calledMembers().size(), word.transcript().size());
    EXPECT_EQ(word.calledMembers()[0].name, "Document.Range");
    EXPECT_TRUE(word.calledMembers()[0].gaveObject);
    EXPECT_EQ(word.calledMembers()[1].name, "Range.Start =");
    EXPECT_FALSE(word.calledMembers()[1].gaveObject);
}

TEST_F(InProcessWord, NothingStaysAliveBehindAClient)
{
    {
        const Word::_DocumentPtr document = addDocument();
        const Word::RangePtr range = document->Range();
        range->InsertAfter(L"abc");
        const Word::_FontPtr font = range->GetFont();
        EXPECT_EQ(word.liveObjects(), 3);
        const Word::_ApplicationPtr application = range->GetApplication();
        EXPECT_EQ(word.liveObjects(), 4);
        EXPECT_EQ(application.GetInterfacePtr(), word.application().GetInterfacePtr());
    }
    EXPECT_EQ(word.liveObjects(), 0);
}

TEST_F(InProcessWord, ADocumentIsOneObjectWithOneName)
{
    const Word::DocumentsPtr documents = word.application()->GetDocuments();
    Word::_DocumentPtr first = documents->Add();
    const Word::_DocumentPtr second = documents->Add();
    EXPECT_EQ(documents->GetCount(), 2);
    EXPECT_EQ(documents->Item(Word::integer(1)).GetInterfacePtr(), second.GetInterfacePtr());
    EXPECT_EQ(documents->Item(Word::integer(2)).GetInterfacePtr(), first.GetInterfacePtr());
    EXPECT_EQ(documents->Item(Word::text(L"document1")).GetInterfacePtr(), first.GetInterfacePtr());
    first = nullptr;
    word.clearTranscript();
    first = documents->Item(Word::integer(2));
    EXPECT_THAT(word.transcript(), ElementsAre("application.Documents.Item(2) -> document"));
}

TEST_F(InProcessWord, WordsErrorsComeWithTheirText)
{
    const Word::DocumentsPtr documents = word.application()->GetDocuments();
    EXPECT_THAT(comErrorOf([&] { documents->Item(Word::integer(1)); }), isHresult(wordError(5941)));
    EXPECT_THAT(comErrorOf([&] { documents->Item(Word::text(L"x")); }), isHresult(wordError(4160)));
    EXPECT_THAT(comErrorOf([&] { documents->Add(Word::text(L"c:\\none.dot")); }), isHresult(wordError(5174)));
    EXPECT_THAT(comErrorOf([&] { word.application()->GetActiveDocument(); }), isHresult(wordError(4248)));
    const Word::_DocumentPtr document = addDocument();
    EXPECT_THAT(comErrorOf([&] { document->Range(Word::integer(1), Word::integer(1)); }),
                isHresult(wordError(4608)));
    EXPECT_THAT(comErrorOf([&] { document->Range(Word::integer(-1)); }), isHresult(wordError(4608)));
    EXPECT_THAT(comErrorOf([&] { document->Range()->PutEnd(2); }), isHresult(wordError(4608)));
    EXPECT_THAT(comErrorOf([&] { document->Range()->PutStyle(Word::text(L"Nope")); }),
                isHresult(wordError(5834)));
    EXPECT_THAT(comErrorOf([&] { document->Range()->InsertBreak(Word::integer(99)); }),
                isHresult(wordError(4608)));
    try {
        document->GetStyles()->Item(Word::text(L"Nope"));
        FAIL() << "no error";
    } catch (const _com_error& error) {
        EXPECT_EQ(error.Source(), _bstr_t(L"Microsoft Word"));
        EXPECT_GT(error.Description().length(), 0u);
        EXPECT_EQ(error.HelpContext(), 5941u + 19480u);
        EXPECT_EQ(error.HelpFile(), _bstr_t(L"wdmain9.chm"));
    }
}

TEST_F(InProcessWord, WhatIsNotThereFailsLoudly)
{
    const Word::_DocumentPtr document = addDocument();
    word.clearTranscript();
    EXPECT_THAT(comErrorOf([&] { document->GetVBProject(); }), isHresult(E_NOTIMPL));
    EXPECT_THAT(word.transcript(), ElementsAre("document.VBProject !! 0x80004001"));
    const Word::TableOfContentsPtr contents = document->GetTablesOfContents()->Add(document->Range());
    const Word::RangePtr range = document->Range(Word::integer(0), Word::integer(0));
    const Word::TablePtr table = range->GetTables()->Add(range, 1, 1);
    const Word::RowPtr row = table->GetRows()->Item(1);
    const Word::BookmarksPtr bookmarks = document->GetBookmarks();
    for (const HRESULT failure :
         {comErrorOf([&] { word.application()->GetScreenUpdating(); }),
          comErrorOf([&] { word.application()->PutScreenUpdating(false); }),
          comErrorOf([&] { document->Save(); }), comErrorOf([&] { range->Move(); }),
          comErrorOf([&] { range->GetBookmarkID(); }), comErrorOf([&] { range->InRange(range); }),
          comErrorOf([&] { bookmarks->PutDefaultSorting(1); }), comErrorOf([&] { table->Delete(); }),
          comErrorOf([&] { row->GetNext(); }), comErrorOf([&] { row->PutHeight(5); }),
          comErrorOf([&] { row->GetCells()->PutWidth(5); }), comErrorOf([&] { contents->Delete(); }),
          comErrorOf([&] { contents->PutUseFields(true); }),
          comErrorOf([&] { document->GetStyles()->Add(L"a"); }),
          comErrorOf([&] { document->GetPageSetup()->PutTopMargin(5); }),
          comErrorOf([&] { document->GetSections()->Item(1)->GetIndex(); })})
        EXPECT_THAT(failure, isHresult(E_NOTIMPL));
}

TEST_F(InProcessWord, AFailedCallLeavesNothingInItsResult)
{
    const Word::_DocumentPtr document = addDocument();
    Word::Range* range = reinterpret_cast<Word::Range*>(0x10);
    _variant_t beyond = Word::integer(99);
    EXPECT_THAT(document->raw_Range(&beyond, &beyond, &range), isHresult(wordError(4608)));
    EXPECT_EQ(range, nullptr);
    EXPECT_THAT(document->get_Content(nullptr), isHresult(E_POINTER));
    EXPECT_THAT(document->raw_Range(nullptr, nullptr, &range),
                isHresult(S_OK)); // no pointer counts as no argument
    ASSERT_NE(range, nullptr);
    range->Release();
}

TEST_F(InProcessWord, AClosedDocumentsObjectsAreDeleted)
{
    const Word::_DocumentPtr document = addDocument();
    const Word::RangePtr range = document->Range();
    const Word::_FontPtr font = range->GetFont();
    const Word::StylesPtr styles = document->GetStyles();
    const Word::PageSetupPtr setup = document->GetPageSetup();
    document->Close();
    EXPECT_THAT(comErrorOf([&] { range->InsertAfter(L"x"); }), isHresult(wordError(5825)));
    EXPECT_THAT(comErrorOf([&] { range->GetEnd(); }), isHresult(wordError(5825)));
    EXPECT_THAT(comErrorOf([&] { font->PutBold(1); }), isHresult(wordError(5825)));
    EXPECT_THAT(comErrorOf([&] { styles->GetCount(); }), isHresult(wordError(5825)));
    EXPECT_THAT(comErrorOf([&] { setup->GetPageWidth(); }), isHresult(wordError(5825)));
    EXPECT_THAT(comErrorOf([&] { document->Range(); }), isHresult(wordError(5825)));
    EXPECT_THAT(comErrorOf([&] { document->Close(); }), isHresult(wordError(5825)));
    EXPECT_EQ(word.application()->GetDocuments()->GetCount(), 0);
}

TEST_F(InProcessWord, CallsFailOnDemand)
{
    const Word::_DocumentPtr document = addDocument();
    const Word::RangePtr range = document->Range();
    word.clearTranscript();
    word.failCall(2, static_cast<HRESULT>(0x80010001));
    range->InsertAfter(L"a");
    EXPECT_THAT(comErrorOf([&] { range->InsertAfter(L"b"); }), isHresult(static_cast<HRESULT>(0x80010001)));
    range->InsertAfter(L"c");
    EXPECT_EQ(textOf(word.model(document)), u"ac\r");
    EXPECT_THAT(word.transcript(),
                ElementsAre("body.InsertAfter(\"a\")", "body.InsertAfter(\"b\") !! 0x80010001",
                            "body.InsertAfter(\"c\")"));
    word.clearTranscript();
    word.failCall(1, S_FALSE);
    EXPECT_FALSE(range->GetFont());
    EXPECT_TRUE(range->GetFont());
    EXPECT_THAT(word.transcript(), ElementsAre("body.Font", "body.Font -> body.Font"));
    word.failFromCall(1, wordError(4605));
    EXPECT_THAT(comErrorOf([&] { range->GetEnd(); }), isHresult(wordError(4605)));
    EXPECT_THAT(comErrorOf([&] { range->GetStart(); }), isHresult(wordError(4605)));
    word.clearFaults();
    EXPECT_EQ(range->GetStart(), 0);
}

TEST_F(InProcessWord, CallsAreRejectedOnDemandAndThenRun)
{
    const Word::_DocumentPtr document = addDocument();
    const Word::RangePtr range = document->Range();
    word.clearTranscript();
    const long before = word.callCount();
    word.rejectCall(1, RPC_E_CALL_REJECTED, 2);
    EXPECT_THAT(comErrorOf([&] { range->InsertAfter(L"a"); }), isHresult(RPC_E_CALL_REJECTED));
    EXPECT_THAT(comErrorOf([&] { range->InsertAfter(L"a"); }), isHresult(RPC_E_CALL_REJECTED));
    EXPECT_EQ(word.callCount(), before);
    range->InsertAfter(L"a");
    EXPECT_EQ(word.callCount(), before + 1);
    EXPECT_EQ(textOf(word.model(document)), u"a\r");
    EXPECT_THAT(word.transcript(),
                ElementsAre("body.InsertAfter(\"a\") !! 0x80010001", "body.InsertAfter(\"a\") !! 0x80010001",
                            "body.InsertAfter(\"a\")"));
}

TEST_F(InProcessWord, FontsReadAndWriteARangesText)
{
    const Word::_DocumentPtr document = addDocument();
    const Word::RangePtr range = document->Range();
    range->InsertAfter(L"abcd");
    range->SetRange(1, 3);
    const Word::_FontPtr font = range->GetFont();
    EXPECT_EQ(font->GetName(), _bstr_t(L"Times New Roman"));
    EXPECT_EQ(font->GetSize(), 12.0f);
    EXPECT_EQ(font->GetBold(), 0);
    font->PutName(L"Arial");
    font->PutSize(20.0f);
    font->PutBold(1);
    font->PutItalic(Word::wdToggle);
    font->PutUnderline(Word::wdUnderlineSingle);
    font->PutStrikeThrough(1);
    EXPECT_EQ(font->GetName(), _bstr_t(L"Arial"));
    EXPECT_EQ(font->GetSize(), 20.0f);
    EXPECT_EQ(font->GetBold(), -1);
    EXPECT_EQ(font->GetItalic(), -1);
    EXPECT_EQ(font->GetUnderline(), Word::wdUnderlineSingle);
    EXPECT_EQ(font->GetStrikeThrough(), -1);
    const Word::_FontPtr mixed = document->Range()->GetFont();
    EXPECT_EQ(mixed->GetName(), _bstr_t(L""));
    EXPECT_EQ(mixed->GetSize(), static_cast<float>(Word::wdUndefined));
    EXPECT_EQ(mixed->GetBold(), Word::wdUndefined);
    EXPECT_EQ(mixed->GetUnderline(), Word::wdUndefined);
    EXPECT_THAT(comErrorOf([&] { font->PutSize(0.0f); }), isHresult(wordError(4608)));
}

TEST_F(InProcessWord, ResettingTakesDirectFormattingOnly)
{
    const Word::_DocumentPtr document = addDocument();
    document->Range()->InsertAfter(L"one two");
    document->Range()->PutStyle(Word::integer(-2));
    const Word::RangePtr one = document->Range(Word::integer(0), Word::integer(3));
    one->PutStyle(Word::integer(-86));
    one->GetFont()->PutSize(40);
    one->PutItalic(-1);
    one->GetParagraphFormat()->PutAlignment(Word::wdAlignParagraphRight);
    EXPECT_EQ(document->Range()->GetItalic(), 9999999);
    EXPECT_EQ(document->Range()->GetUnderline(), 9999999);
    document->Range()->GetFont()->Reset();
    EXPECT_EQ(document->Range()->GetItalic(), 0);
    EXPECT_EQ(document->Range()->GetBold(), -1);
    EXPECT_EQ(one->GetFont()->GetSize(), 16);
    EXPECT_EQ(one->GetUnderline(), 1);
    document->Range()->GetParagraphFormat()->Reset();
    EXPECT_EQ(one->GetParagraphFormat()->GetAlignment(), Word::wdAlignParagraphLeft);
    EXPECT_THAT(comErrorOf([&] { document->GetStyles()->Item(Word::integer(-1))->GetFont()->Reset(); }),
                isHresult(E_NOTIMPL));
}

TEST_F(InProcessWord, StylesAreFoundByNumberNameAndIndex)
{
    const Word::_DocumentPtr document = addDocument();
    const Word::StylesPtr styles = document->GetStyles();
    EXPECT_EQ(styles->Item(Word::integer(-2))->GetNameLocal(), _bstr_t(L"Heading 1"));
    EXPECT_EQ(styles->Item(Word::text(L"HEADING 1"))->GetNameLocal(), _bstr_t(L"Heading 1"));
    EXPECT_EQ(styles->Item(Word::integer(-2))->GetFont()->GetSize(), 16.0f);
    EXPECT_THAT(comErrorOf([&] { styles->Item(Word::integer(styles->GetCount() + 1)); }),
                isHresult(wordError(5941)));
    word.model(document)->styles().add(u"Mine", standin::model::StyleType::paragraph);
    const Word::StylePtr own = styles->Item(Word::text(L"Mine"));
    own->GetFont()->PutSize(9.0f);
    own->GetParagraphFormat()->PutAlignment(Word::wdAlignParagraphRight);
    EXPECT_EQ(own->GetType(), Word::wdStyleTypeParagraph);
    const Word::RangePtr range = document->Range();
    range->InsertAfter(L"text");
    range->PutStyle(Word::text(L"mine"));
    EXPECT_EQ(range->GetFont()->GetSize(), 9.0f);
    EXPECT_EQ(range->GetParagraphFormat()->GetAlignment(), Word::wdAlignParagraphRight);
    const _variant_t style = range->GetStyle();
    ASSERT_EQ(style.vt, VT_DISPATCH);
    EXPECT_EQ(Word::StylePtr(style.pdispVal)->GetNameLocal(), _bstr_t(L"Mine"));
}

TEST_F(InProcessWord, AlignmentReachesTheParagraphsTouched)
{
    const Word::_DocumentPtr document = addDocument();
    const Word::RangePtr range = document->Range();
    range->InsertAfter(L"one\ntwo");
    range->SetRange(0, 1);
    range->GetParagraphFormat()->PutAlignment(Word::wdAlignParagraphCenter);
    EXPECT_EQ(range->GetParagraphFormat()->GetAlignment(), Word::wdAlignParagraphCenter);
    EXPECT_EQ(document->Range()->GetParagraphFormat()->GetAlignment(), Word::wdUndefined);
    EXPECT_THAT(comErrorOf([&] { range->GetParagraphFormat()->PutAlignment(17); }),
                isHresult(wordError(4608)));
    range->GetParagraphFormat()->Reset();
    EXPECT_EQ(range->GetParagraphFormat()->GetAlignment(), Word::wdAlignParagraphLeft);
}

TEST_F(InProcessWord, SectionsHavePagesHeadersAndFooters)
{
    const Word::_DocumentPtr document = addDocument();
    EXPECT_EQ(document->GetPageSetup()->GetPageWidth(), 612.0f);
    EXPECT_EQ(document->GetPageSetup()->GetLeftMargin(), 90.0f);
    const Word::RangePtr range = document->Range();
    range->InsertAfter(L"ab");
    range->SetRange(1, 1);
    range->InsertBreak(Word::integer(Word::wdSectionBreakNextPage));
    ASSERT_EQ(document->GetSections()->GetCount(), 2);
    const Word::SectionPtr second = document->GetSections()->Item(2);
    second->GetPageSetup()->PutOrientation(Word::wdOrientLandscape);
    EXPECT_EQ(second->GetPageSetup()->GetPageWidth(), 792.0f);
    EXPECT_EQ(document->GetPageSetup()->GetPageWidth(), static_cast<float>(Word::wdUndefined));
    EXPECT_EQ(document->GetPageSetup()->GetOrientation(), Word::wdUndefined);
    const Word::HeaderFooterPtr header = second->GetHeaders()->Item(Word::wdHeaderFooterPrimary);
    EXPECT_EQ(header->GetLinkToPrevious(), VARIANT_TRUE);
    header->PutLinkToPrevious(false);
    header->GetRange()->InsertAfter(L"head");
    EXPECT_EQ(header->GetRange()->GetText(), _bstr_t(L"head\r"));
    const Word::SectionPtr first = document->GetSections()->Item(1);
    EXPECT_EQ(first->GetHeaders()->Item(Word::wdHeaderFooterPrimary)->GetRange()->GetText(), _bstr_t(L"\r"));
    EXPECT_THAT(comErrorOf([&] { document->GetSections()->Item(3); }), isHresult(wordError(5941)));
    EXPECT_THAT(comErrorOf([&] { second->GetHeaders()->Item(4); }), isHresult(wordError(5941)));
}

TEST_F(InProcessWord, SaveAsWritesAndNamesTheDocument)
{
    const ScratchFolder folder;
    const Word::_DocumentPtr document = addDocument();
    EXPECT_EQ(document->GetFullName(), _bstr_t(L"Document1"));
    EXPECT_EQ(document->GetPath(), _bstr_t(L""));
    EXPECT_EQ(document->GetSaved(), VARIANT_TRUE);
    document->Range()->InsertAfter(L"content");
    EXPECT_EQ(document->GetSaved(), VARIANT_FALSE);
    document->SaveAs(Word::text(folder.file(L"report").c_str()));
    EXPECT_EQ(document->GetSaved(), VARIANT_TRUE);
    EXPECT_EQ(document->GetName(), _bstr_t(L"report.doc"));
    EXPECT_EQ(document->GetPath(), _bstr_t(folder.path().c_str()));
    EXPECT_EQ(document->GetFullName(), _bstr_t(folder.file(L"report.doc").c_str()));
    const std::string bytes = bytesOf(folder.file(L"report.doc"));
    EXPECT_EQ(bytes.rfind("{\\rtf1", 0), 0u);
    EXPECT_NE(bytes.find("content"), std::string::npos);
    EXPECT_EQ(folder.fileCount(), 1); // the temporary file is gone
    document->Range()->InsertAfter(L"more");
    document->Close(Word::integer(Word::wdSaveChanges));
    EXPECT_NE(bytesOf(folder.file(L"report.doc")).find("contentmore"), std::string::npos);
}

TEST_F(InProcessWord, EveryFormatThatKeepsFormattingIsRtf)
{
    const ScratchFolder folder;
    const Word::_DocumentPtr document = addDocument();
    const std::pair<long, const wchar_t*> formats[] = {{0, L".doc"},   {1, L".dot"},   {6, L".rtf"},
                                                       {12, L".docx"}, {16, L".docx"}, {17, L".pdf"}};
    for (const auto& [format, extension] : formats) {
        document->SaveAs(Word::text(folder.file(L"a").c_str()), Word::integer(format));
        EXPECT_EQ(document->GetName(), _bstr_t(L"a") + extension);
        EXPECT_EQ(bytesOf(folder.file(std::wstring(L"a") + extension)).rfind("{\\rtf1", 0), 0u);
    }
    EXPECT_THAT(comErrorOf([&] { document->SaveAs(Word::text(L"a"), Word::integer(2)); }),
                isHresult(E_NOTIMPL));
    document->UndoClear();
}

TEST_F(InProcessWord, ASavedDocumentOpensAgain)
{
    const ScratchFolder folder;
    const Word::DocumentsPtr documents = word.application()->GetDocuments();
    Word::_DocumentPtr document = documents->Add();
    document->Range()->InsertAfter(L"one\ntwo");
    document->SaveAs(Word::text(folder.file(L"a.doc").c_str()));
    const Word::_DocumentPtr again = documents->Open(Word::text(folder.file(L"A.DOC").c_str()));
    EXPECT_EQ(again.GetInterfacePtr(), document.GetInterfacePtr()); // it was open already
    document->Close();
    document = documents->Open(Word::text(folder.file(L"a.doc").c_str()));
    EXPECT_EQ(document->Range()->GetText(), _bstr_t(L"one\rtwo\r"));
    EXPECT_EQ(document->GetSaved(), VARIANT_TRUE);
    const Word::_DocumentPtr fromTemplate = documents->Add(Word::text(folder.file(L"a.doc").c_str()));
    EXPECT_EQ(fromTemplate->Range()->GetText(), _bstr_t(L"one\rtwo\r"));
    EXPECT_EQ(fromTemplate->GetPath(), _bstr_t(L""));
}

TEST(InProcessWordOptions, MaySaveWithoutFiles)
{
    const ScratchFolder folder;
    standin::InProcessWordOptions options;
    options.writesFiles = false;
    const standin::InProcessWord word(options);
    const Word::_DocumentPtr document = word.application()->GetDocuments()->Add();
    document->SaveAs(Word::text(folder.file(L"report").c_str()));
    EXPECT_EQ(document->GetFullName(), _bstr_t(folder.file(L"report.doc").c_str()));
    document->Range()->InsertAfter(L"more");
    document->Close(Word::integer(Word::wdSaveChanges));
    EXPECT_EQ(folder.fileCount(), 0);
}

TEST_F(InProcessWord, AFileThatItsCallerKeepsIsNotRead)
{
    const ScratchFolder folder;
    const std::wstring kept = folder.file(L"kept.txt");
    standin::InProcessWordOptions options;
    options.keptFiles = [&](const std::wstring& file) {
        return file == kept ? std::optional<std::string>("what is kept") : std::nullopt;
    };
    const standin::InProcessWord keeping(options);
    const Word::RangePtr body = keeping.application()->GetDocuments()->Add()->Range();
    body->InsertFile(kept.c_str());
    EXPECT_STREQ(body->GetText(), L"what is kept\r");
    EXPECT_THAT(comErrorOf([&] { body->InsertFile(folder.file(L"other.txt").c_str()); }),
                isHresult(wordError(5174)));
}

TEST_F(InProcessWord, AFileThatCannotBeWrittenKeepsTheOldName)
{
    const ScratchFolder folder;
    const Word::_DocumentPtr document = addDocument();
    EXPECT_THAT(comErrorOf([&] { document->SaveAs(Word::text(folder.file(L"no\\such\\x.doc").c_str())); }),
                isHresult(wordError(5273)));
    EXPECT_THAT(comErrorOf([&] { document->SaveAs(Word::text(L"c:\\a*b.doc")); }),
                isHresult(wordError(5152)));
    EXPECT_THAT(comErrorOf([&] { document->SaveAs(Word::text(L"")); }), isHresult(wordError(5152)));
    CloseHandle(CreateFileW(folder.file(L"locked.doc").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                            FILE_ATTRIBUTE_READONLY, nullptr));
    EXPECT_THAT(comErrorOf([&] { document->SaveAs(Word::text(folder.file(L"locked.doc").c_str())); }),
                isHresult(wordError(5155)));
    SetFileAttributesW(folder.file(L"locked.doc").c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(document->GetFullName(), _bstr_t(L"Document1"));
    document->Range()->InsertAfter(L"x");
    EXPECT_THAT(comErrorOf([&] { document->Close(Word::integer(Word::wdSaveChanges)); }),
                isHresult(wordError(4198)));
    document->SaveAs(Word::text(folder.file(L"mine.doc").c_str()));
    const Word::_DocumentPtr other = addDocument();
    EXPECT_THAT(comErrorOf([&] { other->SaveAs(Word::text(folder.file(L"MINE.doc").c_str())); }),
                isHresult(wordError(5356)));
}

TEST_F(InProcessWord, OptionsLastAsLongAsTheApplication)
{
    const Word::_ApplicationPtr application = word.application();
    EXPECT_EQ(application->GetOptions()->GetCheckSpellingAsYouType(), VARIANT_TRUE);
    application->GetOptions()->PutCheckSpellingAsYouType(false);
    EXPECT_EQ(application->GetOptions()->GetCheckSpellingAsYouType(), VARIANT_FALSE);
    EXPECT_EQ(application->GetOptions()->GetCheckGrammarAsYouType(), VARIANT_TRUE);
    EXPECT_FALSE(word.model().options.checkSpellingAsYouType);
    EXPECT_EQ(application->GetDisplayAlerts(), -1);
    application->PutDisplayAlerts(0);
    EXPECT_EQ(application->GetDisplayAlerts(), 0);
    EXPECT_EQ(application->GetVisible(), VARIANT_FALSE);
    EXPECT_EQ(application->GetName(), _bstr_t(L"Microsoft Word"));
    EXPECT_EQ(application->GetVersion(), _bstr_t(L"9.0"));
}

TEST_F(InProcessWord, AfterQuitNothingAnswers)
{
    const Word::_ApplicationPtr application = word.application();
    const Word::_DocumentPtr document = addDocument();
    application->Quit(Word::integer(Word::wdDoNotSaveChanges));
    EXPECT_TRUE(word.hasQuit());
    word.clearTranscript();
    EXPECT_THAT(comErrorOf([&] { application->GetDocuments(); }), isHresult(RPC_E_DISCONNECTED));
    EXPECT_THAT(comErrorOf([&] { document->GetName(); }), isHresult(RPC_E_DISCONNECTED));
    EXPECT_THAT(word.transcript(), IsEmpty());
}

TEST(InProcessWordOptions, DocumentsEnterTheRunningObjectTable)
{
    const standin_test::Apartment apartment;
    const ScratchFolder folder;
    const std::wstring file = folder.file(L"running.doc");
    standin::InProcessWord word({.switches = {}, .documentsInRunningObjectTable = true});
    const Word::_DocumentPtr document = word.application()->GetDocuments()->Add();
    document->SaveAs(Word::text(file.c_str()));
    EXPECT_TRUE(standin_test::isRunning(file));
    document->Close();
    EXPECT_FALSE(standin_test::isRunning(file));
}

TEST(InProcessWordOptions, ADocWithoutAFormatIsWhatItsNameSaysOrNot)
{
    using standin::model::DocWithoutFormat;
    const standin_test::Apartment apartment;
    const ScratchFolder folder;
    const auto formatOf = [&](DocWithoutFormat reading, const wchar_t* name, const _variant_t& format) {
        standin::model::Switches switches;
        switches.docWithoutFormat = reading;
        const standin::InProcessWord word({.switches = switches, .documentsInRunningObjectTable = false});
        const Word::_DocumentPtr document = word.application()->GetDocuments()->Add();
        document->SaveAs(Word::text(folder.file(name).c_str()), format);
        return document->GetSaveFormat();
    };
    constexpr long docx = 12;
    EXPECT_EQ(formatOf(DocWithoutFormat::document97, L"a.doc", Word::missing), 0);
    EXPECT_EQ(formatOf(DocWithoutFormat::machineDefault, L"a.DOC", Word::missing), docx);
    EXPECT_EQ(formatOf(DocWithoutFormat::machineDefault, L"a.doc", Word::integer(0)), 0);
    EXPECT_EQ(formatOf(DocWithoutFormat::machineDefault, L"a.rtf", Word::missing), 0);
    EXPECT_THAT(comErrorOf([&] { formatOf(DocWithoutFormat::refused, L"a.doc", Word::missing); }),
                isHresult(wordError(4198)));
    EXPECT_EQ(formatOf(DocWithoutFormat::refused, L"a.doc", Word::integer(0)), 0);
}

TEST(InProcessWordOptions, ChangesAreDroppedOrTheCloseIsCancelled)
{
    const standin_test::Apartment apartment;
    standin::model::Switches switches;
    switches.closeDropsChanges = false;
    const standin::InProcessWord word({.switches = switches, .documentsInRunningObjectTable = false});
    const Word::_DocumentPtr document = word.application()->GetDocuments()->Add();
    document->Range()->InsertAfter(L"x");
    EXPECT_THAT(comErrorOf([&] { document->Close(); }), isHresult(wordError(4198)));
    EXPECT_EQ(word.application()->GetDocuments()->GetCount(), 1);
    document->Close(Word::integer(Word::wdDoNotSaveChanges));
    EXPECT_EQ(word.application()->GetDocuments()->GetCount(), 0);
}
} // namespace
