#include "DocumentFixture.h"

#include "Hresult.h"

#include <WordConstants.h>
#include <gmock/gmock.h>

namespace {
using testing::ElementsAre;

class DocumentParts : public standin_test::DocumentFixture
{
protected:
    void write(const wchar_t* what) const { document->Range()->InsertAfter(what); }
};

using Fields = DocumentParts;

TEST_F(Fields, AFieldAddedInFrontOfAPlaceholderMovesIt)
{
    const Word::RangePtr output = document->Range();
    output->InsertAfter(L"page ");
    output->Collapse(Word::integer(Word::wdCollapseEnd));
    output->InsertAfter(L"X");
    const Word::RangePtr place = output->GetDuplicate();
    place->PutEnd(5);
    word.clearTranscript();
    output->GetFields()->Add(place, Word::integer(Word::wdFieldPage));
    EXPECT_EQ(text(), u"page \x13 PAGE \x14"
                      u"1\x15X\r");
    EXPECT_EQ(output->GetEnd(), 16);
    EXPECT_EQ(place->GetEnd(), 5);
    EXPECT_EQ(output->GetText(), _bstr_t(L"1X"));
    EXPECT_THAT(word.transcript(),
                ElementsAre("body.Fields -> body.Fields",
                            "body.Fields.Add(body.Duplicate, 33, missing, missing) -> field",
                            "body.End -> 16", "body.Duplicate.End -> 5", "body.Text -> \"1X\""));
}

TEST_F(Fields, TheTypeMayBeLeftOutInEveryWay)
{
    write(L"ab");
    const Word::FieldsPtr fields = document->GetFields();
    fields->Add(range(1, 1), _variant_t());
    EXPECT_EQ(text(), u"a\x13 \x15"
                      u"b\r");
    fields->Add(range(0, 0), Word::missing, Word::text(L"QUOTE \"q\""));
    EXPECT_EQ(text(), u"\x13 QUOTE \"q\" \x14q\x15"
                      u"a\x13 \x15"
                      u"b\r");
    fields->Add(range(0, 0), Word::integer(Word::wdFieldEmpty), Word::text(L"PAGE"), Word::boolean(true));
    EXPECT_EQ(fields->Item(1)->GetCode()->GetText(), _bstr_t(L" PAGE \\* MERGEFORMAT "));
    EXPECT_EQ(fields->GetCount(), 3);
}

TEST_F(Fields, DatesComeFromTheOptionsClock)
{
    const Word::FieldPtr date = document->GetFields()->Add(range(0, 0), Word::integer(Word::wdFieldDate));
    EXPECT_EQ(date->GetResult()->GetText(), _bstr_t(L"1/31/2000"));
    const Word::FieldPtr time = document->GetFields()->Add(range(0, 0), Word::integer(Word::wdFieldTime));
    EXPECT_EQ(time->GetResult()->GetText(), _bstr_t(L"1:05 PM"));
    standin::InProcessWordOptions options;
    options.clock = [] { return standin::model::LocalTime{2024, 12, 24, 18, 0, 0}; };
    const standin::InProcessWord later(options);
    const Word::_DocumentPtr other = later.application()->GetDocuments()->Add();
    EXPECT_EQ(
        other->GetFields()->Add(other->Range(), Word::integer(Word::wdFieldDate))->GetResult()->GetText(),
        _bstr_t(L"12/24/2024"));
}

TEST_F(Fields, AFieldTellsAndChangesItsParts)
{
    write(L"ab");
    const Word::FieldsPtr fields = document->GetFields();
    fields->Add(range(2, 2), Word::integer(Word::wdFieldPage));
    fields->Add(range(0, 0), Word::integer(Word::wdFieldFileName));
    const Word::FieldPtr first = fields->Item(1);
    EXPECT_EQ(first->GetType(), Word::wdFieldFileName);
    EXPECT_EQ(fields->Item(2)->GetType(), Word::wdFieldPage);
    first->GetCode()->PutText(L" QUOTE z ");
    EXPECT_EQ(first->Update(), VARIANT_TRUE);
    EXPECT_EQ(first->GetResult()->GetText(), _bstr_t(L"z"));
    document->Range()->Delete();
    EXPECT_EQ(fields->GetCount(), 0);
    EXPECT_THAT(comErrorOf([&] { first->GetCode(); }), isHresult(wordError(5825)));
    EXPECT_THAT(comErrorOf([&] { fields->Item(1); }), isHresult(wordError(5941)));
}

TEST_F(Fields, UpdatingAllTellsTheFirstThatIsWrong)
{
    const Word::FieldsPtr fields = document->GetFields();
    fields->Add(range(0, 0), Word::missing, Word::text(L"REF nothing"));
    fields->Add(range(0, 0), Word::integer(Word::wdFieldPage));
    EXPECT_EQ(fields->Update(), 2);
    const Word::RangePtr wrong = fields->Item(2)->GetCode();
    wrong->PutText(L" QUOTE x ");
    EXPECT_EQ(fields->Update(), 0);
}

TEST_F(Fields, OfARangeAreThoseThatStartInIt)
{
    write(L"ab");
    document->GetFields()->Add(range(1, 1), Word::integer(Word::wdFieldPage));
    EXPECT_EQ(range(0, 1)->GetFields()->GetCount(), 0);
    EXPECT_EQ(range(1, 2)->GetFields()->GetCount(), 1);
    const Word::RangePtr header =
        document->GetSections()->Item(1)->GetHeaders()->Item(Word::wdHeaderFooterPrimary)->GetRange();
    header->GetFields()->Add(header, Word::integer(Word::wdFieldPage));
    EXPECT_EQ(header->GetFields()->GetCount(), 1);
    EXPECT_EQ(document->GetFields()->GetCount(), 1);
}

TEST_F(Fields, WhatIsNoRangeAndWhatCannotBeComputedIsRefused)
{
    const Word::FieldsPtr fields = document->GetFields();
    EXPECT_THAT(comErrorOf([&] { fields->Add(nullptr, Word::integer(Word::wdFieldPage)); }),
                isHresult(wordError(4218)));
    EXPECT_THAT(comErrorOf([&] { fields->Add(range(0, 0), Word::integer(4711)); }),
                isHresult(wordError(5843)));
    EXPECT_THAT(comErrorOf([&] { fields->Add(range(0, 0), Word::integer(12)); }), isHresult(E_NOTIMPL));
    EXPECT_EQ(text(), u"\r");
    EXPECT_THAT(comErrorOf([&] { fields->ToggleShowCodes(); }), isHresult(E_NOTIMPL));
}

using Hyperlinks = DocumentParts;

TEST_F(Hyperlinks, AreDrawnOverARange)
{
    write(L"see here");
    const Word::RangePtr anchor = range(4, 8);
    word.clearTranscript();
    const Word::HyperlinkPtr link =
        document->GetHyperlinks()->Add(anchor, Word::text(L""), Word::text(L"b1"));
    EXPECT_EQ(text(), u"see \x13 HYPERLINK  \\l \"b1\" \x14here\x15\r");
    EXPECT_THAT(
        word.transcript(),
        ElementsAre(
            "document.Hyperlinks -> document.Hyperlinks",
            "document.Hyperlinks.Add(document.Range(4, 8), \"\", \"b1\", missing, missing, missing) -> "
            "hyperlink"));
    EXPECT_EQ(link->GetAddress(), _bstr_t(L""));
    EXPECT_EQ(link->GetSubAddress(), _bstr_t(L"b1"));
    EXPECT_EQ(link->GetTextToDisplay(), _bstr_t(L"here"));
    EXPECT_EQ(link->GetRange()->GetFields()->Item(1)->GetType(), Word::wdFieldHyperlink);
    EXPECT_EQ(Word::StylePtr(link->GetRange()->GetFields()->Item(1)->GetResult()->GetStyle())->GetNameLocal(),
              _bstr_t(L"Hyperlink"));
}

TEST_F(Hyperlinks, CanBeListedAndRemoved)
{
    write(L"one two");
    const Word::HyperlinksPtr links = document->GetHyperlinks();
    links->Add(range(4, 7), Word::text(L"http://b"));
    links->Add(range(0, 3), Word::text(L"http://a"), Word::missing, Word::text(L"tip"), Word::text(L"shown"),
               Word::text(L"frame"));
    EXPECT_EQ(links->GetCount(), 2);
    const Word::HyperlinkPtr first = links->Item(Word::integer(1));
    EXPECT_EQ(first->GetAddress(), _bstr_t(L"http://a"));
    EXPECT_EQ(first->GetRange()->GetFields()->Item(1)->GetCode()->GetText(),
              _bstr_t(L" HYPERLINK \"http://a\" \\o \"tip\" \\t \"frame\" "));
    EXPECT_EQ(document->Range()->GetText(), _bstr_t(L"shown two\r"));
    first->Delete();
    EXPECT_EQ(links->GetCount(), 1);
    EXPECT_EQ(document->Range()->GetText(), _bstr_t(L"shown two\r"));
    EXPECT_THAT(comErrorOf([&] { links->Item(Word::integer(2)); }), isHresult(wordError(5941)));
    EXPECT_THAT(comErrorOf([&] { links->Add(range(0, 1), Word::text(L"")); }), isHresult(wordError(4198)));
    EXPECT_EQ(range(0, 2)->GetHyperlinks()->GetCount(), 0);
}

TEST_F(Hyperlinks, OfAHeaderAreItsOwn)
{
    const Word::RangePtr header =
        document->GetSections()->Item(1)->GetHeaders()->Item(Word::wdHeaderFooterPrimary)->GetRange();
    header->InsertAfter(L"see there");
    document->GetBookmarks()->Add(L"here", Word::object(header));
    EXPECT_EQ(document->GetBookmarks()->Exists(L"here"), VARIANT_TRUE);
    const Word::BookmarkPtr mark = document->GetBookmarks()->Item(Word::text(L"here"));
    EXPECT_EQ(mark->GetRange()->GetStoryType(), 7);
    const Word::RangePtr anchor = header->GetDuplicate();
    anchor->SetRange(4, 9);
    header->GetHyperlinks()->Add(anchor, Word::missing, Word::text(L"here"));
    EXPECT_EQ(header->GetHyperlinks()->GetCount(), 1);
    EXPECT_EQ(document->GetHyperlinks()->GetCount(), 0);
    const Word::HyperlinkPtr link = header->GetHyperlinks()->Item(Word::integer(1));
    EXPECT_EQ(link->GetSubAddress(), _bstr_t(L"here"));
    EXPECT_EQ(link->GetAddress(), _bstr_t(L""));
    const Word::RangePtr shown = link->GetRange();
    EXPECT_EQ(shown->GetText(), _bstr_t(L"there"));
    EXPECT_EQ(shown->GetFields()->Item(1)->GetResult()->GetUnderline(), 1);
    link->Delete();
    EXPECT_EQ(header->GetText(), _bstr_t(L"see there\r"));
    EXPECT_EQ(shown->GetText(), _bstr_t(L"there"));
    EXPECT_EQ(shown->GetUnderline(), 0);
    mark->Delete();
    EXPECT_EQ(document->GetBookmarks()->Exists(L"here"), VARIANT_FALSE);
}

TEST_F(Hyperlinks, InsideAnotherFieldAreMadeAndRemarkedOn)
{
    write(L"one two three");
    const Word::HyperlinksPtr links = document->GetHyperlinks();
    links->Add(range(0, 3), Word::text(L"http://a"));
    const Word::RangePtr anchor = range(8, 13);
    word.clearTranscript();
    links->Add(anchor, Word::text(L"http://b"));
    EXPECT_THAT(word.transcript(),
                ElementsAre("# crosses a field",
                            "document.Hyperlinks.Add(document.Range(8, 13), \"http://b\", missing, missing, "
                            "missing, missing) -> hyperlink2"));
    EXPECT_EQ(links->GetCount(), 2);
    EXPECT_EQ(document->Range()->GetText(), _bstr_t(L"one two three\r"));
}

using BookmarksOfADocument = DocumentParts;

TEST_F(BookmarksOfADocument, StartAtTheBeginningAndGetTheirBorders)
{
    write(L"one two");
    word.clearTranscript();
    const Word::BookmarkPtr bookmark = document->GetBookmarks()->Add(L"b1");
    EXPECT_EQ(bookmark->GetEmpty(), VARIANT_TRUE);
    bookmark->PutStart(4);
    EXPECT_EQ(bookmark->GetEnd(), 4);
    bookmark->PutEnd(7);
    EXPECT_THAT(word.transcript(),
                ElementsAre("document.Bookmarks -> document.Bookmarks",
                            "document.Bookmarks.Add(\"b1\", missing) -> bookmark", "bookmark.Empty -> true",
                            "bookmark.Start = 4", "bookmark.End -> 4", "bookmark.End = 7"));
    EXPECT_EQ(bookmark->GetStart(), 4);
    EXPECT_EQ(bookmark->GetRange()->GetText(), _bstr_t(L"two"));
    EXPECT_EQ(bookmark->GetName(), _bstr_t(L"b1"));
    EXPECT_EQ(bookmark->GetRange()->GetStoryType(), 1);
    EXPECT_THAT(comErrorOf([&] { bookmark->PutStart(99); }), isHresult(wordError(4608)));
}

TEST_F(BookmarksOfADocument, AreFoundByNameAndNumber)
{
    write(L"one two");
    const Word::BookmarksPtr bookmarks = document->GetBookmarks();
    bookmarks->Add(L"b", Word::object(range(0, 1)));
    bookmarks->Add(L"a", Word::object(range(4, 5)));
    bookmarks->Add(L"_hidden", Word::object(range(4, 5)));
    EXPECT_EQ(bookmarks->GetCount(), 2);
    EXPECT_EQ(bookmarks->Item(Word::integer(1))->GetName(), _bstr_t(L"a"));
    EXPECT_EQ(bookmarks->Exists(L"_hidden"), VARIANT_TRUE);
    EXPECT_EQ(bookmarks->Exists(L"B"), VARIANT_TRUE);
    EXPECT_EQ(bookmarks->Exists(L"c"), VARIANT_FALSE);
    EXPECT_THAT(comErrorOf([&] { bookmarks->Item(Word::text(L"c")); }), isHresult(wordError(5941)));
    EXPECT_THAT(comErrorOf([&] { bookmarks->Add(L"not good"); }), isHresult(wordError(5828)));
    const Word::BookmarkPtr gone = bookmarks->Item(Word::text(L"a"));
    gone->Delete();
    EXPECT_EQ(bookmarks->Exists(L"a"), VARIANT_FALSE);
    EXPECT_THAT(comErrorOf([&] { gone->GetStart(); }), isHresult(wordError(5825)));
}

using TablesOfContents = DocumentParts;

TEST_F(TablesOfContents, AreBuiltFromHeadingsAndEntries)
{
    write(L"\rFirst\rtext\rSecond\r");
    range(1, 2)->PutStyle(Word::integer(Word::wdStyleHeading1));
    range(12, 13)->PutStyle(Word::text(L"Heading 2"));
    document->GetFields()->Add(range(7, 7), Word::integer(Word::wdFieldTOCEntry),
                               Word::text(L"\"Marked\" \\fC \\l \"2\""));
    const Word::TablesOfContentsPtr tables = document->GetTablesOfContents();
    const Word::RangePtr place = range(0, 0);
    word.clearTranscript();
    const short upper = 1;
    const short lower = 9;
    const Word::TableOfContentsPtr table =
        tables->Add(place, Word::boolean(true), _variant_t(upper), _variant_t(lower), Word::boolean(true),
                    Word::missing, Word::boolean(true), Word::boolean(true), Word::text(L""));
    table->PutTabLeader(Word::wdTabLeaderDots);
    EXPECT_THAT(word.transcript(), ElementsAre("document.TablesOfContents.Add(document.Range(0, 0), true, "
                                               "1s, 9s, true, missing, true, true, \"\", "
                                               "missing, missing) -> tableOfContents",
                                               "tableOfContents.TabLeader = 1"));
    EXPECT_EQ(table->GetRange()->GetText(), _bstr_t(L"First\t1\rMarked\t1\rSecond\t1\r"));
    EXPECT_EQ(document->GetFields()->Item(1)->GetCode()->GetText(),
              _bstr_t(L" TOC \\o \"1-9\" \\f \\h \\z "));
    EXPECT_EQ(tables->GetCount(), 1);
    EXPECT_EQ(tables->Item(1)->GetLowerHeadingLevel(), 9);
    EXPECT_THAT(comErrorOf([&] { tables->Item(2); }), isHresult(wordError(5941)));
    EXPECT_EQ(tables->Item(1)->GetUpperHeadingLevel(), 1);
    EXPECT_EQ(table->GetTabLeader(), Word::wdTabLeaderDots);
    EXPECT_THAT(comErrorOf([&] { table->PutTabLeader(6); }), isHresult(wordError(4608)));
    document->Range(Word::integer(document->Range()->GetEnd() - 1))->InsertAfter(L"Third");
    document->GetSections();
    document->Range(Word::integer(document->Range()->GetEnd() - 1))
        ->PutStyle(Word::integer(Word::wdStyleHeading1));
    table->Update();
    EXPECT_EQ(table->GetRange()->GetText(), _bstr_t(L"First\t1\rMarked\t1\rSecond\t1\rThird\t1\r"));
}

TEST_F(TablesOfContents, SayWhenTheyFindNothing)
{
    const Word::TableOfContentsPtr table = document->GetTablesOfContents()->Add(range(0, 0));
    EXPECT_EQ(table->GetRange()->GetText(), _bstr_t(L"Error! No table of contents entries found."));
    EXPECT_THAT(comErrorOf([&] { table->UpdatePageNumbers(); }), isHresult(E_NOTIMPL));
    EXPECT_THAT(comErrorOf([&] {
                    document->GetTablesOfContents()->Add(range(0, 0), Word::boolean(true), Word::integer(1),
                                                         Word::integer(0));
                }),
                isHresult(wordError(4608)));
}

TEST_F(DocumentParts, AreGoneWithTheDocument)
{
    write(L"one");
    const Word::FieldPtr field = document->GetFields()->Add(range(0, 0), Word::integer(Word::wdFieldPage));
    const Word::HyperlinkPtr link = document->GetHyperlinks()->Add(range(11, 12), Word::text(L"a"));
    const Word::BookmarkPtr bookmark = document->GetBookmarks()->Add(L"b");
    const Word::TableOfContentsPtr table = document->GetTablesOfContents()->Add(range(0, 0));
    const Word::BookmarksPtr bookmarks = document->GetBookmarks();
    document->Close(Word::integer(Word::wdDoNotSaveChanges));
    for (const HRESULT failure :
         {comErrorOf([&] { field->GetType(); }), comErrorOf([&] { link->GetAddress(); }),
          comErrorOf([&] { bookmark->GetStart(); }), comErrorOf([&] { table->Update(); }),
          comErrorOf([&] { bookmarks->GetCount(); }), comErrorOf([&] { document->GetFields(); }),
          comErrorOf([&] { table->GetTabLeader(); }), comErrorOf([&] { field->Update(); })})
        EXPECT_THAT(failure, isHresult(wordError(5825)));
}
} // namespace
