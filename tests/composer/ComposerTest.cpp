#include "Composer.h"

#include "PenTest.h"

#include "Bookmarks.h"
#include "InlineShape.h"
#include "SamplePictures.h"
#include "ScratchFolder.h"
#include "Section.h"
#include "general/QdxException.h"

#include <algorithm>
#include <memory>

namespace compose {
namespace {

class ComposerTest : public PenTest
{
protected:
    explicit ComposerTest(const standin::model::Switches& switches = {}) : PenTest(switches) {}

    void SetUp() override
    {
        composer->begin(application, document);
        static_cast<void>(takeCalls());
    }
    void TearDown() override
    {
        composer.reset();
        PenTest::TearDown();
    }
    [[nodiscard]] std::u16string header() const
    {
        using standin::model::Section;
        const auto story =
            model().section(1)->story(Section::Part::header, standin::model::HeaderFooterIndex::primary);
        return std::u16string(story->text(0, story->length() - 1));
    }
    /// The length of the longest text in one call since the last question.
    std::size_t longestCall()
    {
        std::size_t longest = 0;
        for (const std::string& call : takeCalls())
            longest = std::max(longest, call.size());
        return longest;
    }

    [[nodiscard]] std::wstring pictureFile() const
    {
        constexpr char pixel[] = "BM\x3A\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0"
                                 "\0\0\0\0\4\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\xFF\xFF\xFF\0";
        const std::string file = folder.write("picture.bmp", {pixel, sizeof(pixel) - 1});
        return {file.begin(), file.end()};
    }
    /// Linked, a tag behind it; its file is gone then.
    void writePictureThatGoes()
    {
        composer = std::make_unique<Composer>(Composer::Pen::fragments, trace, L"", nullptr, look);
        composer->begin(application, document);
        const std::wstring file = pictureFile();
        word.clearTranscript();
        write(L"a");
        composer->insertImage(file.c_str(), L"http://a.example/");
        composer->insertTag(L"behind");
        write(L"b\r");
        DeleteFileW(file.c_str());
    }
    void expectPicture()
    {
        const standin::model::Story& story = *model().mainStory();
        const std::u16string written = text();
        const std::size_t picture = written.find(u'\x01');
        ASSERT_NE(picture, written.npos);
        EXPECT_EQ(written.find(u'X'), written.npos);
        EXPECT_EQ(story.runAt(static_cast<long>(picture)).format->shape->width, 0.75);
        EXPECT_EQ(document->GetHyperlinks()->GetCount(), 1);
        ASSERT_EQ(document->GetBookmarks()->GetCount(), 1);
        const long tag = document->GetBookmarks()->Item(Word::integer(1))->GetStart();
        // Or in front of the end of the link's field.
        EXPECT_EQ(written.find(u'b'), written.find_first_not_of(u'\x15', static_cast<std::size_t>(tag)));
    }
    /// Since the transcript was cleared.
    [[nodiscard]] std::ptrdiff_t callsOf(std::string_view member) const
    {
        return std::ranges::count_if(word.transcript(),
                                     [&](const std::string& call) { return call.find(member) != call.npos; });
    }
    /// What waits in the current story, which gets a paragraph's end behind it.
    void bringToWord()
    {
        const std::string file = folder.write("empty.txt", "");
        composer->insertFile(std::wstring(file.begin(), file.end()).c_str(), 0);
    }
    void write(const wchar_t* text) { composer->insertText(_bstr_t(text).GetBSTR()); }
    /// In its first cell.
    void startTable()
    {
        composer->startTable();
        composer->addRow();
        composer->addCell();
    }

    ScratchFolder folder;
    Trace trace;
    Composer::Look look;
    std::unique_ptr<Composer> composer =
        std::make_unique<Composer>(Composer::Pen::typed, trace, L"", nullptr, look);
};

TEST_F(ComposerTest, RefusesAnUnknownStyleAndGoesOnInTheOneBefore)
{
    composer->setStyle(L"Heading 1");
    composer->insertText(_bstr_t(L"a").GetBSTR());
    try {
        composer->setStyle(L"no such style");
        FAIL() << "it was accepted";
    } catch (const QdxException& exception) {
        EXPECT_STREQ(exception.reasonText(), "ERR Unknown style: no such style");
    }
    composer->insertText(_bstr_t(L"b").GetBSTR());
    composer->finish();
    EXPECT_TRUE(text().starts_with(u"a\rb"));
    EXPECT_EQ(model().mainStory()->paragraph(1).format->style->name(), u"Heading 1");
}

TEST_F(ComposerTest, KeepsWhatIsSaidUntilMuchWaits)
{
    const std::wstring piece(10'000, L'x');
    std::size_t said = 0;
    for (; said < 20; ++said)
        composer->insertText(_bstr_t(piece.c_str()).GetBSTR());
    EXPECT_EQ(takeCalls(), Calls()) << "little waits";
    for (; said < 400; ++said)
        composer->insertText(_bstr_t(piece.c_str()).GetBSTR());
    const std::size_t written = text().size();
    EXPECT_GT(written, 0U);
    EXPECT_LT((said * piece.size() - written) * sizeof(char16_t), Composer::mostWaiting + (64U << 10U));
    EXPECT_LT(longestCall() * sizeof(char16_t), 2 * Composer::mostWaiting);
    composer->finish();
    EXPECT_EQ(text().size(), said * piece.size());
}

TEST_F(ComposerTest, GoesOnBehindWhatAUserTypesIntoTheDocument)
{
    write(L"one");
    bringToWord();
    const Word::RangePtr beginning = document->Range(Word::integer(0), Word::integer(0));
    beginning->InsertAfter(L"zero");
    write(L"two");
    composer->finish();
    EXPECT_EQ(text(), u"zeroone\r\rtwo");
}

TEST_F(ComposerTest, WritesForASaveInBetweenWhenMuchWouldBeMissing)
{
    write(L"one");
    composer->prepareSave();
    EXPECT_EQ(takeCalls(), Calls()) << "little waits";
    const std::wstring piece(Composer::mostWaitingAtSave / sizeof(wchar_t), L'x');
    write(piece.c_str());
    EXPECT_EQ(takeCalls(), Calls()) << "no save comes";
    composer->prepareSave();
    EXPECT_EQ(text().size(), 3 + piece.size());
    static_cast<void>(takeCalls());
    composer->prepareSave();
    EXPECT_EQ(takeCalls(), Calls()) << "nothing waits";
    composer->finish();
    EXPECT_EQ(text().size(), 3 + piece.size());
}

TEST_F(ComposerTest, LeavesAnOpenTableForASaveInBetween)
{
    composer->startTable();
    composer->addRow();
    composer->addCell();
    const std::wstring piece(Composer::mostWaitingAtSave / sizeof(wchar_t) + 1, L'x');
    write(piece.c_str());
    composer->prepareSave();
    EXPECT_EQ(takeCalls(), Calls());
}

TEST_F(ComposerTest, WritesIntoAnEmptyPlainDocumentWhateverItsTemplateHolds)
{
    for (const Composer::Pen pen : {Composer::Pen::typed, Composer::Pen::fragments}) {
        const Word::RangePtr all = document->Range();
        all->InsertAfter(L"left by the template");
        all->GetParagraphFormat()->PutAlignment(2);
        all->PutBold(1);
        composer = std::make_unique<Composer>(pen, trace, L"", nullptr, look);
        composer->begin(application, document);
        EXPECT_EQ(text(), u"");
        for (int i = 0; i < 3; ++i) {
            write(L"a");
            composer->setFontAttribute(2, true);
            write(L"b\r");
            composer->setFontAttribute(2, false);
        }
        write(L"last");
        composer->insertTag(L"end"); // call by call, then
        composer->finish();
        EXPECT_EQ(text(), u"ab\rab\rab\rlast");
        const Word::RangePtr written =
            document->Range(Word::integer(0), Word::integer(model().mainStory()->length() - 1));
        EXPECT_EQ(written->GetBold(), 0);
        EXPECT_EQ(written->GetParagraphFormat()->GetAlignment(), 0);
    }
}

TEST_F(ComposerTest, GoesOnBehindWhatAUserTypesBeforeAnythingIsWritten)
{
    for (const Composer::Pen pen : {Composer::Pen::typed, Composer::Pen::fragments}) {
        composer = std::make_unique<Composer>(pen, trace, L"", nullptr, look);
        composer->begin(application, document);
        document->Range()->InsertBefore(L"zero");
        for (int i = 0; i < 5; ++i) {
            composer->setTextAlign(static_cast<short>(1 + i % 2));
            write(L"one\r");
        }
        composer->finish();
        EXPECT_EQ(text(), u"zeroone\rone\rone\rone\rone\r");
    }
}

TEST_F(ComposerTest, LeavesALinkAsTextWhoseTagNeverCameAlsoWhenItWasWrittenEarly)
{
    composer->insertXref(L"never", L"no tag");
    composer->insertXref(L"later", L"tag");
    bringToWord();
    EXPECT_EQ(document->GetHyperlinks()->GetCount(), 2);
    composer->insertTag(L"tag");
    composer->finish();
    ASSERT_EQ(document->GetHyperlinks()->GetCount(), 1);
    EXPECT_EQ(document->GetHyperlinks()->Item(Word::integer(1))->GetTextToDisplay(), _bstr_t(L"later"));
    EXPECT_TRUE(text().starts_with(u"never"));
}

TEST_F(ComposerTest, EndsALinkInFrontOfATableAndNotInIt)
{
    composer->insertXref(L"label\r", L"http://a.example/");
    startTable();
    write(L"a");
    composer->endTable();
    composer->finish();
    ASSERT_EQ(document->GetHyperlinks()->GetCount(), 1);
    EXPECT_EQ(document->GetHyperlinks()->Item(Word::integer(1))->GetTextToDisplay(), _bstr_t(L"label"));
    const Word::RangePtr cell = document->GetTables()->Item(1)->Cell(1, 1)->GetRange();
    EXPECT_EQ(cell->GetEnd() - cell->GetStart(), 2) << "a character and the cell's end";
}

TEST_F(ComposerTest, LeadsToASheetThatIsNotThereYet)
{
    composer->insertFile(L"no such sheet.xls", 4);
    composer->finish();
    ASSERT_EQ(document->GetHyperlinks()->GetCount(), 1);
    EXPECT_EQ(document->GetHyperlinks()->Item(Word::integer(1))->GetAddress(), _bstr_t(L"no such sheet.xls"));
}

TEST_F(ComposerTest, PutsAPictureIntoATableThatIsMadeWholeLater)
{
    const std::wstring file = pictureFile();
    write(L"front");
    startTable();
    write(L"a");
    composer->insertImage(file.c_str(), L"");
    EXPECT_EQ(document->GetTables()->GetCount(), 0);
    EXPECT_EQ(document->GetInlineShapes()->GetCount(), 1);
    EXPECT_TRUE(DeleteFileW(file.c_str()));
    static_cast<void>(takeCalls());
    composer->addRow();
    composer->addCell();
    write(L"b");
    composer->endTable();
    composer->finish();
    EXPECT_EQ(text(), u"front\ra\x01\a\ab\a\a");
    EXPECT_EQ(document->GetTables()->GetCount(), 1);
    EXPECT_THAT(takeCalls(), testing::Not(testing::Contains(testing::HasSubstr("Cell("))));
}

TEST_F(ComposerTest, PutsPicturesIntoTablesOneBehindTheOther)
{
    const std::wstring file = pictureFile();
    for (const wchar_t* const name : {L"a", L"b"}) {
        startTable();
        write(name);
        composer->insertImage(file.c_str(), L"");
        composer->endTable();
    }
    composer->finish();
    EXPECT_EQ(text(), u"a\x01\a\a\rb\x01\a\a");
}

TEST_F(ComposerTest, TellsOfAPictureThatWordRefusesAndGoesOnWithTheTable)
{
    const std::wstring file = pictureFile();
    startTable();
    write(L"a");
    constexpr long addPicture = 6;
    word.failCall(addPicture, E_FAIL);
    EXPECT_THROW(composer->insertImage(file.c_str(), L"http://a.example/"), _com_error);
    write(L"b");
    composer->endTable();
    composer->finish();
    EXPECT_EQ(text(), u"ab\a\a");
}

TEST_F(ComposerTest, WritesNothingTwiceWhenThePlaceOfAPictureCouldNotBeMade)
{
    const std::wstring file = pictureFile();
    startTable();
    write(L"a");
    constexpr long insertAfter = 3;
    word.failCall(insertAfter, E_FAIL);
    EXPECT_THROW(composer->insertImage(file.c_str(), L""), _com_error);
    const long end = model().mainStory()->length() - 1;
    document->Range(Word::integer(end), Word::integer(end))->InsertAfter(L"a"); // as if it had been
    write(L"b");
    composer->insertImage(file.c_str(), L"");
    composer->endTable();
    composer->finish();
    EXPECT_EQ(text(), u"ab\x01\a\a");
}

TEST_F(ComposerTest, LetsAPictureWaitWithFragmentsWhateverBecomesOfItsFile)
{
    writePictureThatGoes();
    EXPECT_EQ(callsOf("AddPicture"), 0);
    composer->finish();
    EXPECT_EQ(callsOf("AddPicture"), 0);
    expectPicture();
}

// Word makes it smaller; a fragment would let it stand out of the page.
TEST_F(ComposerTest, PutsAPictureThatIsWiderThanThePageInByItself)
{
    const auto little = [](std::size_t value) {
        std::string bytes;
        for (int i = 0; i < 4; ++i, value >>= 8U)
            bytes += static_cast<char>(value & 0xFFU);
        return bytes;
    };
    for (const std::size_t pixels : {500U, 1000U}) {
        const std::size_t size = 3 * pixels;
        const std::string bitmap = "BM" + little(54 + size) + little(0) + little(54) + little(40) +
                                   little(pixels) + little(1) + little(0x18'0001) + little(0) + little(size) +
                                   std::string(16 + size, '\0');
        const std::string file = folder.write("wide.bmp", bitmap);
        composer = std::make_unique<Composer>(Composer::Pen::fragments, trace, L"", nullptr, look);
        composer->begin(application, document);
        word.clearTranscript();
        write(L"a");
        composer->insertImage(std::wstring(file.begin(), file.end()).c_str(), L"");
        composer->finish();
        EXPECT_EQ(callsOf("PageWidth"), 1);
        EXPECT_EQ(callsOf("AddPicture"), pixels == 500 ? 0 : 1);
        EXPECT_EQ(text(), u"a\x01");
        composer.reset();
    }
}

/// With fragments, whose tables have to say how wide they are.
class PageOfTablesTest : public ComposerTest
{
protected:
    void SetUp() override
    {
        composer = std::make_unique<Composer>(Composer::Pen::fragments, trace, L"", nullptr, look);
        ComposerTest::SetUp();
    }
    [[nodiscard]] float widthOfTable(long number) const
    {
        return document->GetTables()->Item(number)->Cell(1, 1)->GetWidth();
    }
    static constexpr float padding = 10.8F; ///< of cells, which stand out of the text
    /// And has it brought to Word.
    void writeTable()
    {
        composer->startTable();
        composer->addRow();
        composer->addCell();
        for (const bool isBold : {true, false, true, false, true, false, true}) { // worth a fragment
            composer->setFontAttribute(1, isBold);
            write(L"a");
        }
        composer->endTable();
        write(L"b");
        composer->insertPageBreak();
        composer->startHeader();
        composer->endHeader();
        write(L"c");
        composer->setTextAlign(2);
        write(L"d");
        bringToWord();
    }
};

TEST_F(PageOfTablesTest, IsAskedForOnceWhateverSectionsAndFilesCome)
{
    writeTable();
    EXPECT_EQ(callsOf("PageWidth"), 1);
    const std::string file =
        folder.write("wide.rtf", R"({\rtf1\ansi\paperw20000\pard one\par\sect\sectd\pard two\par})");
    composer->insertFile(std::wstring(file.begin(), file.end()).c_str(), 0);
    EXPECT_EQ(document->GetSections()->GetCount(), 3);
    writeTable();
    composer->finish();
    EXPECT_EQ(callsOf("PageWidth"), 1);
    EXPECT_EQ(widthOfTable(1), 432 + padding);
    EXPECT_EQ(widthOfTable(2), 432 + padding) << "in the last section, which is as it was";
}

TEST_F(PageOfTablesTest, IsAskedForAgainWhenItHasChanged)
{
    writeTable();
    const Word::PageSetupPtr page = document->GetPageSetup();
    page->PutOrientation(1);
    composer->pageChanged();
    word.clearTranscript();
    writeTable();
    composer->finish();
    EXPECT_EQ(callsOf("PageWidth"), 1);
    EXPECT_EQ(widthOfTable(1), 432 + padding);
    EXPECT_EQ(widthOfTable(2), 648 + padding);
}

TEST_F(PageOfTablesTest, StretchesThatNoFragmentCarriesAreWrittenTogether)
{
    composer->setTextAlign(2);
    composer->insertEndl();
    composer->insertEndl();
    const std::string file = folder.write("picture.gif", sample::gif());
    composer->insertImage(std::wstring(file.begin(), file.end()).c_str(), L"");
    EXPECT_EQ(callsOf("AddPicture"), 1);
    EXPECT_EQ(callsOf(".Alignment = 1"), 1);
    composer->finish();
    EXPECT_EQ(text(), u"\r\r\x01");
}

/// Word does not read fragments in.
class RefusedFragmentsTest : public ComposerTest
{
protected:
    RefusedFragmentsTest() : ComposerTest({.insertFileTakesRtf = false}) {}
};

TEST_F(RefusedFragmentsTest, APictureThatWaitedStandsInItsPlaceAllTheSame)
{
    writePictureThatGoes();
    composer->finish();
    EXPECT_EQ(callsOf("AddPicture"), 1);
    expectPicture();
}

TEST_F(ComposerTest, ForgetsTheTagsOfAHeaderThatIsReplaced)
{
    composer->startHeader();
    composer->insertTag(L"tag");
    composer->insertText(_bstr_t(L"old").GetBSTR());
    bringToWord();
    composer->endHeader();
    EXPECT_EQ(model().bookmarks().all().size(), 1U);
    composer->startHeader();
    composer->insertText(_bstr_t(L"new").GetBSTR());
    composer->endHeader();
    composer->insertXref(L"to the tag", L"tag");
    composer->finish();
    EXPECT_EQ(header(), u"new");
    EXPECT_EQ(model().bookmarks().all().size(), 0U);
    EXPECT_EQ(document->GetHyperlinks()->GetCount(), 0);
    EXPECT_EQ(text(), u"to the tag");
}

} // namespace
} // namespace compose
