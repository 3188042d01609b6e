#include "WriterFixture.h"

#include "OwnRegistry.h"
#include "SamplePictures.h"
#include "ScratchFolder.h"
#include "registry/RegisterDynamic.h"
#include "tracedll/Trace.h"

#include <functional>
#include <type_traits>
#include <utility>

namespace {

/// Makes and destroys its writers itself.
class MirovelSectionLifeTest : public DocumentTest
{
protected:
    MirovelSection* newWriter()
    {
        auto* const writer = new MirovelSection(application_, document_, range_);
        takeCalls();
        return writer;
    }

    /// A writer with work of every kind that waits for its end.
    MirovelSection* busyWriter()
    {
        MirovelSection* const writer = newWriter();
        writer->deleteRange();
        writer->setTextAlign(2);
        writer->setStyle("Heading 1", false);
        writer->insertText(L"Title");
        takeCalls();
        return writer;
    }

    const Calls busyWritersEnd_ =
        join(rangeLaid(0, 5), Calls{"body.Style = -2"}, rangeLaid(0, 5), fontWritten("body", heading1Font),
             rangeLaid(0, 5),
             Calls{"body.ParagraphFormat -> body.ParagraphFormat", "body.ParagraphFormat.Alignment = 1"},
             Calls{"document.UndoClear()"});
};

TEST_F(MirovelSectionLifeTest, TheConstructorAsksForStylesThenForThePage)
{
    auto* const writer = new MirovelSection(application_, document_, range_);
    EXPECT_LINES(
        takeCalls(),
        join(Calls{"document.Styles -> document.Styles"}, styleFontRead("-1", normalFont),
             Calls{"document.PageSetup -> document.PageSetup", "document.PageSetup.PageWidth -> 612f",
                   "document.PageSetup.RightMargin -> 90f", "document.PageSetup.LeftMargin -> 90f"}));
    endWriter(writer);
}

TEST_F(MirovelSectionLifeTest, ANewWriterStandsAtTheStart)
{
    MirovelSection* const writer = newWriter();
    EXPECT_EQ(writer->getFont(), normalFont.data());
    EXPECT_FALSE(writer->isTableOpen());
    EXPECT_EQ(writer->getSectionCount(), 1);
    EXPECT_TRUE(writer->unresolvedLinks().empty());
    writer->setStyle("Normal", false);
    writer->setFont(normalFont.data());
    writer->setTextAlign(0);
    writer->changeLastPageBreak();
    writer->startTOCEntry();
    writer->endTOCEntry();
    writer->addRow();
    writer->addCell();
    writer->setTableRowHeight(20);
    writer->endTable();
    EXPECT_LINES(takeCalls(), Calls{})
        << "all of this is so already, or needs something that is not there yet";
    writer->insertText(L"x");
    EXPECT_LINES(takeCalls(), Calls{R"(body.InsertAfter("x"))"});
    endWriter(writer);
    EXPECT_LINES(takeCalls(), join(styleRunApplied(0, 1, "-1", normalFont), Calls{"document.UndoClear()"}));
}

TEST_F(MirovelSectionLifeTest, TheTextWidthComesFromThePage)
{
    standin::model::PageSetup& page = model().section(1)->pageSetup;
    page.pageWidth = 595.25F;
    page.leftMargin = 70.5F;
    page.rightMargin = 40.0F;
    MirovelSection* const writer = newWriter();
    writer->startTable();
    writer->addRow();
    writer->addCell();
    writer->endTable();
    const float width = 595.25F - (40.0F + 70.5F + 2.0F);
    EXPECT_EQ(tables().front().row(1).format().cells.front().width, width);
    endWriter(writer);
}

TEST_F(MirovelSectionLifeTest, TheInstallationDirectoryComesFromTheRegistryAsItStands)
{
    const OwnRegistry registry;
    const ScratchFolder folder;
    for (const char* const name : {"one", "two"}) {
        const std::string logo = folder.write(std::string(name) + "\\pix\\no such logo.gif", sample::gif());
        RegisterDynamic::write("Settings", "InstallDir", RegEntry(QdxString(folder.file(name).c_str())));
        MirovelSection* const writer = newWriter();
        writer->insertImage("no such logo.gif", {}, 0, 0);
        EXPECT_TRUE(takeCalls().at(3).starts_with("body.InlineShapes.AddPicture(" + quoted(logo.c_str())));
        endWriter(writer);
        takeCalls();
    }
}

TEST_F(MirovelSectionLifeTest, AnUnusedWriterAppliesItsStyleAndItsFont)
{
    MirovelSection* const writer = newWriter();
    endWriter(writer);
    EXPECT_LINES(takeCalls(), join(rangeLaid(0, 0), Calls{"body.Style = -1"}, rangeLaid(0, 0),
                                   fontWritten("body", normalFont), Calls{"document.UndoClear()"}));
}

TEST_F(MirovelSectionLifeTest, TheEndDoesWhatWaitsInItsOrder)
{
    endWriter(busyWriter());
    EXPECT_EQ(takeCalls(), busyWritersEnd_);
    EXPECT_EQ(text(), u"Title");
    EXPECT_EQ(styleAt(0), u"Heading 1");
    EXPECT_EQ(alignmentAt(0), standin::model::Alignment::center);
    EXPECT_EQ(fontAt(4).name, u"Arial");
}

TEST_F(MirovelSectionLifeTest, TheEndAppliesFontsThatNoStyleRunWaitsFor)
{
    MirovelSection* const writer = newWriter();
    writer->insertText(L"ab");
    writer->applyStyle();
    writer->setFont(heading9Font.data());
    writer->insertText(L"cd");
    takeCalls();
    endWriter(writer);
    EXPECT_LINES(takeCalls(),
                 join(rangeLaid(2, 4), fontWritten("body", heading9Font), Calls{"document.UndoClear()"}));
}

TEST_F(MirovelSectionLifeTest, EveryFailureAtTheEndStopsTheRestAndLeaves)
{
    for (std::size_t call = 1; call <= busyWritersEnd_.size(); ++call) {
        MirovelSection::clearCache();
        standin::InProcessWord word;
        Word::_DocumentPtr document = word.application()->GetDocuments()->Add();
        auto* writer = new MirovelSection(word.application(), document, document->Range());
        writer->deleteRange();
        writer->setTextAlign(2);
        writer->setStyle("Heading 1", false);
        writer->insertText(L"Title");
        word.clearTranscript();

        word.failCall(static_cast<long>(call), static_cast<HRESULT>(0x800A16C1));
        EXPECT_THAT(comErrorOf([&] { endWriter(std::exchange(writer, nullptr)); }),
                    isHresult(static_cast<HRESULT>(0x800A16C1)));

        Calls expected(busyWritersEnd_.begin(), busyWritersEnd_.begin() + static_cast<std::ptrdiff_t>(call));
        std::string& last = expected.back();
        last = last.substr(0, last.find(" -> ")) + " !! 0x800a16c1";
        EXPECT_EQ(word.transcript(), expected);

        document = nullptr;
        EXPECT_EQ(word.liveObjects(), 0) << "call " << call;
    }
}

TEST_F(MirovelSectionLifeTest, AFailureIsToldWhateverIsBeingHandled)
{
    MirovelSection* writer = busyWriter();
    word_.failCall(2, E_FAIL);
    struct Ending
    {
        std::function<void()> work;
        ~Ending() { work(); }
    };
    HRESULT told = S_OK;
    try {
        const Ending ending{[&] { told = comErrorOf([&] { endWriter(std::exchange(writer, nullptr)); }); }};
        throw 42;
    } catch (int number) {
        EXPECT_EQ(number, 42);
    }
    EXPECT_THAT(told, isHresult(E_FAIL));
    EXPECT_LINES(takeCalls(), (Calls{"body.Start = 0", "body.End = 5 !! 0x80004005"}))
        << "the first failure stops the rest";
}

static_assert(std::is_nothrow_destructible_v<MirovelSection>);

TEST_F(MirovelSectionLifeTest, TheDestructorOnlyReleases)
{
    const long held = word_.liveObjects();
    delete busyWriter();
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_EQ(word_.liveObjects(), held);
}

TEST_F(MirovelSectionLifeTest, AWordThatHasGoneIsReportedByTheEnd)
{
    MirovelSection* writer = busyWriter();
    application_->Quit();
    EXPECT_THAT(comErrorOf([&] { endWriter(std::exchange(writer, nullptr)); }),
                isHresult(RPC_E_DISCONNECTED));
}

TEST_F(MirovelSectionLifeTest, AClosedDocumentIsReportedByTheEnd)
{
    MirovelSection* writer = busyWriter();
    document_->Close();
    takeCalls();
    EXPECT_THAT(comErrorOf([&] { endWriter(std::exchange(writer, nullptr)); }),
                isHresult(static_cast<HRESULT>(0x800A16C1)));
    EXPECT_LINES(takeCalls(), Calls{"body.Start = 0 !! 0x800a16c1"});
}

TEST_F(MirovelSectionLifeTest, AFailedConstructionHoldsNothing)
{
    const long held = word_.liveObjects();
    word_.failCall(1, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { newWriter(); }), isHresult(E_FAIL));
    word_.failCall(2, E_FAIL);
    EXPECT_EQ(reasonOf([&] { newWriter(); }), "ERR Unknown style: Normal");
    for (int pageCall = 10; pageCall <= 13; ++pageCall) {
        MirovelSection::clearCache();
        takeCalls();
        word_.failCall(pageCall, E_FAIL);
        EXPECT_THAT(comErrorOf([&] { newWriter(); }), isHresult(E_FAIL)) << "call " << pageCall;
        EXPECT_EQ(takeCalls().size(), static_cast<std::size_t>(pageCall)) << "nothing is applied";
    }
    EXPECT_EQ(word_.liveObjects(), held);
}

TEST_F(MirovelSectionLifeTest, WithoutADocumentThereIsNoWriter)
{
    EXPECT_THAT(comErrorOf([&] { new MirovelSection(application_, Word::_DocumentPtr(), range_); }),
                isHresult(E_POINTER));
    EXPECT_LINES(takeCalls(), Calls{});
}

TEST_F(MirovelSectionLifeTest, ACopySharesTheStateAndLeavesTheWorkToItsOriginal)
{
    MirovelSection* const writer = busyWriter();
    {
        MirovelSection copy(*writer);
        MirovelSection copyOfCopy(copy);
        copyOfCopy.insertText(L"s");
        takeCalls();
    }
    EXPECT_LINES(takeCalls(), Calls{}) << "copies go without work";
    endWriter(writer);
    EXPECT_EQ(takeCalls().at(1), "body.End = 6");
    EXPECT_EQ(text(), u"Titles");
}

TEST_F(MirovelSectionLifeTest, AssignmentCompletesOnesOwnWorkFirst)
{
    MirovelSection* const writer = busyWriter();
    const Word::RangePtr header = headerRange();
    auto* const other = new MirovelSection(application_, document_, header);
    other->insertText(L"head");
    takeCalls();

    *writer = *other;
    EXPECT_EQ(takeCalls(), busyWritersEnd_);
    writer->insertText(L"er");
    EXPECT_LINES(takeCalls(), Calls{R"(document.Sections(1).Headers(1).Range.InsertAfter("er"))"});
    endWriter(writer);
    EXPECT_LINES(takeCalls(), Calls{}) << "it has become a copy";
    endWriter(other);
    EXPECT_EQ(takeCalls().at(1), "document.Sections(1).Headers(1).Range.End = 6");
}

TEST_F(MirovelSectionLifeTest, AssignmentToItselfChangesNothing)
{
    MirovelSection* const writer = busyWriter();
    const MirovelSection& same = *writer;
    *writer = same;
    MirovelSection copy(*writer);
    *writer = copy;
    EXPECT_LINES(takeCalls(), Calls{});
    endWriter(writer);
    EXPECT_EQ(takeCalls(), busyWritersEnd_);
}

TEST_F(MirovelSectionLifeTest, AFailureOfOnesOwnWorkLeavesTheAssignment)
{
    MirovelSection* const writer = busyWriter();
    auto* const other = new MirovelSection(application_, document_, headerRange());
    takeCalls();
    word_.failCall(3, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { *writer = *other; }), isHresult(E_FAIL));
    EXPECT_EQ(takeCalls().size(), 3U);
    endWriter(writer);
    EXPECT_LINES(takeCalls(), Calls{});
    endWriter(other);
}

TEST_F(MirovelSectionLifeTest, TakesACopyOfATrace)
{
    const ScratchFolder folder;
    MirovelSection* const writer = newWriter();
    Trace trace;
    trace.open(folder.file("trace.log").c_str());
    trace.setLevel(10);
    writer->setTrace(trace);
    trace.setLevel(0);
    writer->insertFile("no such.txt", 0);
    EXPECT_EQ(contentOf(folder.file("trace.log")), "ERR File not found: no such.txt\r\n");
    EXPECT_LINES(takeCalls(), Calls{});
    endWriter(writer);
}

} // namespace
