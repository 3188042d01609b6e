#include "DocumentFixture.h"

#include "Hresult.h"
#include "RtfWriter.h"
#include "TableFormats.h"

#include <WordConstants.h>
#include <gmock/gmock.h>

namespace {
using standin::model::FontProperties;
using testing::ElementsAre;
using testing::MatchesRegex;

/// Files that go into documents, and templates that documents are made from.
class InsertFile : public standin_test::FilesFixture
{
protected:
    Word::_DocumentPtr addFrom(const std::wstring& file) const
    {
        return word.application()->GetDocuments()->Add(Word::text(file.c_str()));
    }
};

TEST_F(InsertFile, PutsTheContentInPlaceOfTheRange)
{
    document->Range()->InsertAfter(L"abc");
    const Word::RangePtr place = range(1, 2);
    place->InsertFile(write(L"a.txt", "one\r\ntwo").c_str(), Word::text(L""), Word::boolean(false),
                      Word::boolean(false), Word::boolean(false));
    EXPECT_EQ(text(document), u"aone\rtwo\rc\r");
    EXPECT_EQ(place->GetStart(), 1);
    EXPECT_EQ(place->GetEnd(), 9);
}

TEST_F(InsertFile, KeepsWhatLiesBehindInItsOwnRange)
{
    document->Range()->InsertAfter(L"X");
    const Word::RangePtr all = document->Range();
    range(0, 0)->InsertFile(write(L"a.rtf", "{\\rtf1\\pard\\qc\\b one\\par}").c_str());
    EXPECT_EQ(text(document), u"one\rX\r");
    EXPECT_EQ(all->GetEnd(), 6);
    EXPECT_EQ(range(0, 3)->GetBold(), -1);
    EXPECT_EQ(range(0, 3)->GetParagraphFormat()->GetAlignment(), Word::wdAlignParagraphCenter);
    EXPECT_EQ(range(4, 5)->GetBold(), 0);
}

constexpr char fragment[] =
    "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Courier New;}}{\\stylesheet{\\s0 Normal;}{\\s1\\sbasedon0 heading "
    "1;}}"
    "\\pard\\plain\\s1 {\\*\\bkmkstart tag}one{\\*\\bkmkend tag}\\par\\pard\\plain\\qc\\b two\\par}";

TEST_F(InsertFile, AFragmentLeavesTheLookToTheDocument)
{
    document->Range()->InsertAfter(L"#behind");
    range(0, 0)->InsertFile(write(L"a.rtf", fragment).c_str());
    EXPECT_EQ(text(), u"one\rtwo\r#behind\r");
    EXPECT_EQ(document->GetBookmarks()->Item(Word::text(L"tag"))->GetRange()->GetText(), _bstr_t(L"one"));
    const auto story = word.model(document)->mainStory();
    EXPECT_EQ(story->directFont(0), FontProperties());
    EXPECT_EQ(story->directFont(4), FontProperties{.bold = true});
    EXPECT_EQ(range(0, 3)->GetFont()->GetName(), _bstr_t(L"Arial"));
    EXPECT_EQ(range(0, 3)->GetFont()->GetSize(), 16);
    EXPECT_EQ(range(8, 9)->GetBold(), 0);
    const Word::RangePtr header =
        document->GetSections()->Item(1)->GetHeaders()->Item(Word::wdHeaderFooterPrimary)->GetRange();
    const Word::RangePtr start = header->GetDuplicate();
    start->SetRange(0, 0);
    start->InsertFile(folder.file(L"a.rtf").c_str());
    EXPECT_EQ(header->GetText(), _bstr_t(L"one\rtwo\r\r"));
}

TEST_F(InsertFile, IsReadAsTheSwitchesSay)
{
    const std::wstring file = write(L"a.rtf", fragment);
    const auto addWith = [this](const standin::model::Switches& switches) {
        word.model().setSwitches(switches);
        return word.application()->GetDocuments()->Add();
    };
    const Word::_DocumentPtr joined =
        addWith({.insertFileLastParagraph = standin::model::LastParagraph::dropped});
    joined->Range()->InsertFile(file.c_str());
    EXPECT_EQ(text(joined), u"one\rtwo\r");
    const Word::_DocumentPtr refused = addWith({.insertFileTakesRtf = false});
    EXPECT_THAT(comErrorOf([&] { refused->Range()->InsertFile(file.c_str()); }),
                isHresult(static_cast<HRESULT>(0x800A1066)));
    EXPECT_EQ(text(refused), u"\r");
}

TEST_F(InsertFile, GoesIntoACell)
{
    const Word::RangePtr start = range(0, 0);
    const Word::RangePtr cell = start->GetTables()->Add(start, 1, 1)->Cell(1, 1)->GetRange();
    cell->InsertAfter(L"a");
    range(cell->GetEnd() - 1, cell->GetEnd() - 1)->InsertFile(write(L"a.txt", "b").c_str());
    EXPECT_EQ(text(document), u"ab\r\a\a\r");
    EXPECT_EQ(cell->GetEnd(), 4);
}

TEST_F(InsertFile, RefusesWhatItCannotRead)
{
    EXPECT_THAT(comErrorOf([&] { range(0, 0)->InsertFile(folder.file(L"none.txt").c_str()); }),
                isHresult(wordError(5174)));
    EXPECT_THAT(comErrorOf([&] { range(0, 0)->InsertFile(L""); }), isHresult(wordError(5152)));
    const std::wstring damaged = write(L"a.rtf", "{\\rtf1 ");
    EXPECT_THAT(comErrorOf([&] { range(0, 0)->InsertFile(damaged.c_str()); }), isHresult(wordError(5273)));
    const std::wstring whole = write(L"a.txt", "x");
    EXPECT_THAT(comErrorOf([&] { range(0, 0)->InsertFile(whole.c_str(), Word::text(L"mark")); }),
                isHresult(E_NOTIMPL));
    EXPECT_THAT(comErrorOf([&] {
                    range(0, 0)->InsertFile(whole.c_str(), Word::missing, Word::missing, Word::boolean(true));
                }),
                isHresult(E_NOTIMPL));
    EXPECT_EQ(text(document), u"\r");
}

TEST_F(InsertFile, ADocumentTakesAllOfItsTemplate)
{
    const std::wstring file = write(
        L"letter.dot",
        "{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\stylesheet{\\s0 Normal;}{\\s20\\f0\\fs60\\sbasedon0 Letterhead;}}"
        "\\sectd\\pgwsxn11906\\pghsxn16838{\\header\\pard from the template\\par}"
        "\\pard\\s20\\f0\\fs60 Dear\\par}");
    const Word::_DocumentPtr made = addFrom(file);
    EXPECT_EQ(made->GetName(), _bstr_t(L"Document2"));
    EXPECT_EQ(made->GetPath(), _bstr_t(L""));
    EXPECT_EQ(made->GetSaved(), VARIANT_TRUE);
    EXPECT_EQ(text(made), u"Dear\r");
    EXPECT_NEAR(made->GetPageSetup()->GetPageWidth(), 595.3f, 0.01f);
    EXPECT_FLOAT_EQ(made->GetStyles()->Item(Word::text(L"Letterhead"))->GetFont()->GetSize(), 30);
    const Word::HeadersFootersPtr headers = made->GetSections()->Item(1)->GetHeaders();
    EXPECT_EQ(headers->Item(Word::wdHeaderFooterPrimary)->GetRange()->GetText(),
              _bstr_t(L"from the template\r"));
    made->Range()->InsertAfter(L"Sir");
    EXPECT_EQ(text(addFrom(file)), u"Dear\r");
}

TEST_F(InsertFile, ATemplateMayBringTablesPicturesAndFields)
{
    const Word::_DocumentPtr made = addFrom(write(
        L"full.dot", "{\\rtf1\\trowd\\cellx2000\\pard\\intbl a\\cell\\row\\pard {\\pict\\emfblip\\picwgoal20"
                     "\\pichgoal20 00}{\\field{\\*\\fldinst PAGE}{\\fldrslt 1}}\\par}"));
    EXPECT_EQ(made->GetTables()->GetCount(), 1);
    EXPECT_EQ(made->GetInlineShapes()->GetCount(), 1);
}

TEST_F(InsertFile, TablesKeepTheStyleThatATemplateHasForThem)
{
    const std::wstring file = write(L"ruled.dot", "{\\rtf1{\\stylesheet{\\s0 Normal;}{\\*\\ts300\\tsrowd"
                                                  "\\trbrdrh\\brdrs\\brdrw30 Ruled;}}\\pard\\par}");
    const Word::_DocumentPtr made = addFrom(file);
    EXPECT_EQ(made->GetStyles()->Item(Word::text(L"Ruled"))->GetType(), Word::wdStyleTypeTable);
    EXPECT_EQ(made->GetStyles()->Item(Word::text(L"Hyperlink"))->GetType(), Word::wdStyleTypeCharacter);
    EXPECT_EQ(made->GetStyles()->Item(Word::text(L"Title"))->GetType(), Word::wdStyleTypeParagraph);
    const Word::TablePtr table = made->GetTables()->Add(made->Range(), 1, 1);
    table->GetRange()->PutStyle(Word::text(L"Ruled"));
    const std::string bytes = standin::rtf::writeRtf(*word.model(made));
    document->Range()->InsertFile(write(L"with-table.rtf", bytes).c_str());
    for (const Word::_DocumentPtr& each : {made, document}) {
        const auto model = word.model(each);
        const auto row = model->mainStory()->paragraph(1).format->row;
        ASSERT_TRUE(row && row->style);
        EXPECT_EQ(row->style, model->styles().byName(u"Ruled").get());
        EXPECT_FLOAT_EQ(row->style->table.insideHorizontal.width, 1.5F);
    }
}

TEST_F(InsertFile, ATemplateThatCannotBeReadMakesNoDocument)
{
    const Word::DocumentsPtr documents = word.application()->GetDocuments();
    EXPECT_THAT(comErrorOf([&] { addFrom(folder.file(L"none.dot")); }), isHresult(wordError(5174)));
    EXPECT_THAT(comErrorOf([&] { addFrom(write(L"text.dot", "just text")); }), isHresult(wordError(5273)));
    EXPECT_THAT(comErrorOf([&] { addFrom(write(L"cut.dot", "{\\rtf1 cut")); }), isHresult(wordError(5273)));
    EXPECT_EQ(documents->GetCount(), 1);
    EXPECT_EQ(documents->Add()->GetName(), _bstr_t(L"Document2"));
}

TEST_F(InsertFile, IsWrittenDown)
{
    const std::wstring file = write(L"a.txt", "x");
    const Word::RangePtr place = range(0, 0);
    word.clearTranscript();
    place->InsertFile(file.c_str(), Word::text(L""), Word::boolean(false), Word::boolean(false),
                      Word::boolean(false));
    EXPECT_THAT(
        word.transcript(),
        ElementsAre(MatchesRegex("document.Range.0, 0..InsertFile.*a\\.txt\", \"\", false, false, false.")));
}
} // namespace
