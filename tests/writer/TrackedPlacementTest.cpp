// What differs in the mode in which the document equals what the client said.
#include "WriterFixture.h"

#include "Bookmarks.h"
#include "Hyperlink.h"
#include "Placement.h"
#include "ScratchFolder.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <utility>

namespace {

namespace model = standin::model;

constexpr FontLook courier{"Courier New", 9};
constexpr FontLook bold{"Courier New", 9, true};

class TrackedPlacementTest : public DocumentTest
{
protected:
    void SetUp() override
    {
        writer_ = new MirovelSection(application_, document_, range_, Placement::tracked());
        writer().deleteRange();
        takeCalls();
    }
    void TearDown() override
    {
        session_.clearFaults();
        endWriter(std::exchange(writer_, nullptr));
        DocumentTest::TearDown();
    }

    MirovelSection& writer() { return *writer_; }
    MirovelSectionData& data() { return MirovelSectionProbe::data(*writer_); }
    void finish() { endWriter(std::exchange(writer_, nullptr)); }

    void writeLine(const wchar_t* text)
    {
        writer().insertText(text);
        writer().insertEndl();
    }
    void openTable()
    {
        writer().startTable();
        writer().addRow();
    }
    void addCell(const wchar_t* text)
    {
        writer().addCell();
        writer().insertText(text);
    }

    /// The text, with a sign for each mark: / paragraph, # cell or row, ^ break, { | } field, * picture.
    std::string shown() const
    {
        std::string shown;
        for (const char16_t unit : text())
            shown += sign(unit);
        return shown;
    }
    std::string linkTexts() const
    {
        std::string texts;
        for (const model::Hyperlink& link :
             model::hyperlinksIn(model::LiveRange(model().mainStory(), 0, end()))) {
            const std::u16string label = link.textToDisplay();
            texts.append(label.begin(), label.end()).append(" ");
        }
        return texts;
    }
    std::string bookmark(const char16_t* name) const
    {
        const model::BookmarkPtr found = model().bookmarks().find(name);
        if (!found || !found->exists())
            return "none";
        return std::to_string(found->range().start()) + "-" + std::to_string(found->range().end());
    }
    std::int32_t end() const { return static_cast<std::int32_t>(text().size()) + 1; }
    /// For each character of a cell's text its font: + Courier New, - any other; cells divided as in
    /// cellTexts.
    std::string cellsIn(const char16_t* face) const
    {
        std::string marks;
        for (const model::TableRow& row : tables().front().rows()) {
            marks += marks.empty() ? "" : "/";
            for (const model::TableCell& cell : row.cells()) {
                marks += '[';
                for (std::int32_t at = cell.range().start(); at < cell.range().end() - 1; ++at)
                    marks += fontAt(at).name == face ? '+' : '-';
                marks += ']';
            }
        }
        return marks;
    }
    std::vector<model::Alignment> cellAlignments() const
    {
        std::vector<model::Alignment> alignments;
        for (const model::TableRow& row : tables().front().rows())
            for (const model::TableCell& cell : row.cells())
                alignments.push_back(alignmentAt(cell.range().end() - 1));
        return alignments;
    }

private:
    static char sign(char16_t unit)
    {
        switch (unit) {
        case 1:
            return '*';
        case 7:
            return '#';
        case 12:
            return '^';
        case 13:
            return '/';
        case 19:
            return '{';
        case 20:
            return '|';
        case 21:
            return '}';
        default:
            return unit < 127 ? static_cast<char>(unit) : '~';
        }
    }

    MirovelSection* writer_ = nullptr; // deleted where a failure can pass
};

TEST_F(TrackedPlacementTest, DrawsEveryLinkOverItsOwnText)
{
    writer().insertHyperLink("one", toBookmark("b1", true));
    writer().insertText(L" and ");
    writer().insertHyperLink("two", toAddress("http://a.example/long/address"));
    writer().insertHyperLink("three", toBookmark("b2", true));
    openTable();
    addCell(L"in ");
    writer().insertHyperLink("four", toBookmark("b1", true));
    writer().endTable();
    writer().insertHyperLink("five", toBookmark("b3", true));
    finish();
    EXPECT_EQ(linkTexts(), "one two three four five ");
    EXPECT_EQ(shown(),
              R"({ HYPERLINK  \l "b1" |one} and { HYPERLINK "http://a.example/long/address" |two})"
              R"({ HYPERLINK  \l "b2" |three}/in { HYPERLINK  \l "b1" |four}##{ HYPERLINK  \l "b3" |five})");
}

TEST_F(TrackedPlacementTest, LeavesUnresolvedLinksAsText)
{
    writer().insertHyperLink("one", toBookmark("b1", false));
    writer().insertHyperLink("two", toBookmark("b2", true));
    EXPECT_TRUE(writer().awaitsTags());
    finish();
    EXPECT_EQ(linkTexts(), "two ");
    EXPECT_EQ(shown(), R"(one{ HYPERLINK  \l "b2" |two})");
}

TEST_F(TrackedPlacementTest, DrawsLinksOnceTheyAreResolvedAfterSettling)
{
    writer().insertHyperLink("one", toBookmark("b1", false));
    writer().settle();
    writer().resolve("b1");
    EXPECT_FALSE(writer().awaitsTags());
    finish();
    EXPECT_EQ(linkTexts(), "one ");
}

TEST_F(TrackedPlacementTest, ForgetsWhatItWasToDraw)
{
    writer().insertHyperLink("one", toBookmark("b1", true));
    writer().insertTOC(2);
    writer().abandonDrawing();
    finish();
    EXPECT_EQ(linkTexts(), "");
    EXPECT_EQ(shown(), "one/Table of Contents///");
}

TEST_F(TrackedPlacementTest, BuildsTheTableOfContentsWhereItWasAskedForBetweenLinks)
{
    writer().insertHyperLink("before", toBookmark("b1", true));
    writer().insertTOC(2);
    writer().insertHyperLink("behind", toAddress("http://a.example/"));
    finish();
    EXPECT_EQ(linkTexts(), "before behind ");
    EXPECT_TRUE(shown().starts_with(R"({ HYPERLINK  \l "b1" |before}/Table of Contents//{ TOC )"));
    EXPECT_TRUE(shown().ends_with(R"(}/{ HYPERLINK "http://a.example/" |behind})"));
}

TEST_F(TrackedPlacementTest, CountsEveryKindOfParagraphEnd)
{
    writer().insertText(L"\n\r\n\ra\r\n\r\nb\n\nc");
    EXPECT_EQ(data().pos, 10);
    EXPECT_EQ(shown(), "///a//b//c");
    writer().setFont(courier.data());
    writer().insertText(L"d");
    finish();
    EXPECT_EQ(fontAt(9).name, u"Times New Roman");
    EXPECT_EQ(fontAt(10).name, u"Courier New");
}

TEST_F(TrackedPlacementTest, AsksWordHowFarOtherControlCharactersReach)
{
    writer().insertText(L"a\x1e"
                        L"b\t\v");
    EXPECT_EQ(data().pos, 5);
    EXPECT_THAT(takeCalls(), testing::Contains(testing::HasSubstr(".End -> 5")));
}

TEST_F(TrackedPlacementTest, EndsNoParagraphThatTheTextHasEnded)
{
    writer().insertText(L"a\n");
    writer().setStyle("Heading 1", false);
    writer().insertText(L"b\r\n");
    writer().setTextAlign(2);
    writer().insertText(L"c");
    finish();
    EXPECT_EQ(shown(), "a/b/c");
    EXPECT_EQ(styleAt(0), u"Normal");
    EXPECT_EQ(styleAt(2), u"Heading 1");
    EXPECT_EQ(alignmentAt(2), model::Alignment::left);
    EXPECT_EQ(alignmentAt(4), model::Alignment::center);
}

TEST_F(TrackedPlacementTest, GivesEachStyleAParagraphOfItsOwn)
{
    writeLine(L"a");
    writer().setStyle("Heading 1", false);
    writer().insertText(L"b");
    writer().setStyle("Heading 2", false);
    writer().insertText(L"c");
    finish();
    EXPECT_EQ(shown(), "a/b/c");
    EXPECT_EQ(styleAt(2), u"Heading 1");
    EXPECT_EQ(styleAt(4), u"Heading 2");
}

TEST_F(TrackedPlacementTest, LeavesParagraphEndsOutOfAStyleThatBeginsWithThem)
{
    writer().setStyle("Heading 1", false);
    writer().insertText(L"\r\n\na");
    finish();
    EXPECT_EQ(shown(), "//a");
    EXPECT_EQ(styleAt(1), u"Normal");
    EXPECT_EQ(styleAt(2), u"Heading 1");
}

TEST_F(TrackedPlacementTest, LeavesNoTraceOfAStyleWithoutText)
{
    writer().setStyle("Heading 1", false);
    writer().setStyle("Heading 2", false);
    openTable();
    addCell(L"a");
    writer().endTable();
    writer().insertText(L"b");
    finish();
    EXPECT_EQ(styleAt(0), u"Normal");
    EXPECT_EQ(shown(), "a##b");
    EXPECT_EQ(styleAt(3), u"Normal");
}

TEST_F(TrackedPlacementTest, LeavesNoTraceOfAFontWithoutText)
{
    writer().setFont(bold.data());
    writer().insertTOC(0);
    writer().setStyle("Heading 1", false);
    writer().setFont(FontData());
    writer().insertText(L"a");
    writer().setFont(bold.data());
    openTable();
    addCell(L"b");
    writer().endTable();
    finish();
    EXPECT_EQ(shown().substr(shown().size() - 5), "a/b##");
    EXPECT_EQ(fontAt(end() - 6).name, u"Arial");
    EXPECT_EQ(fontAt(end() - 6).size, 16);
    EXPECT_EQ(fontAt(end() - 4).name, u"Times New Roman");
    EXPECT_EQ(fontAt(end() - 4).size, 12);
}

TEST_F(TrackedPlacementTest, LeavesTheAlignmentOfStylesBehindTheTableOfContents)
{
    writer().insertTOC(0);
    writer().setStyle("Title", false);
    writer().insertText(L"a");
    finish();
    const model::LiveRange last(model().mainStory(), end() - 2, end() - 1);
    EXPECT_EQ(last.paragraphFormat().alignment, model::Alignment::center);
}

TEST_F(TrackedPlacementTest, KeepsAnAlignmentThatWasSaidBehindTheTableOfContents)
{
    writer().setTextAlign(2);
    writer().setTextAlign(0);
    writer().insertTOC(0);
    writer().setStyle("Title", false);
    writer().insertText(L"a");
    finish();
    const model::LiveRange last(model().mainStory(), end() - 2, end() - 1);
    EXPECT_EQ(last.paragraphFormat().alignment, model::Alignment::left);
}

TEST_F(TrackedPlacementTest, TakesOnlyHeadingsForHeadings)
{
    addStyle(u"Chapter 12");
    writer().setStyle("Chapter 12", false);
    writeLine(L"a");
    writer().setStyle("Heading 12", false);
    writer().insertText(L"b");
    finish();
    EXPECT_EQ(styleAt(0), u"Chapter 12");
    EXPECT_EQ(styleAt(2), u"Heading 9");
}

TEST_F(TrackedPlacementTest, GoesOnBehindAPageBreakAsBefore)
{
    writer().setStyle("Heading 1", false);
    writeLine(L"a");
    writer().insertText(L"b");
    writer().setFont(courier.data());
    writer().insertPageBreak();
    writer().insertText(L"c");
    finish();
    EXPECT_EQ(shown(), "a/b^c");
    EXPECT_EQ(styleAt(4), u"Heading 1");
    EXPECT_EQ(fontAt(4).name, u"Courier New");
}

TEST_F(TrackedPlacementTest, KeepsATagBehindTheSectionBreakBehindIt)
{
    writer().insertText(L"a");
    writer().insertTag("b1");
    writer().insertPageBreak();
    writer().insertTag("b2");
    writer().changeLastPageBreak();
    EXPECT_EQ(data().lastEndlPos, data().pos);
    writer().insertText(L"b");
    finish();
    EXPECT_EQ(model().sectionCount(), 2);
    EXPECT_EQ(shown(), "a^b");
    EXPECT_EQ(bookmark(u"b1"), "1-1");
    EXPECT_EQ(bookmark(u"b2"), "2-2");
}

TEST_F(TrackedPlacementTest, GivesEachCellTheFontInForce)
{
    openTable();
    writer().addCell();
    writer().insertText(L"ab");
    writer().setFont(courier.data());
    writer().insertText(L"c");
    addCell(L"d");
    writer().addRow();
    addCell(L"e");
    addCell(L"f");
    writer().addRow();
    writer().addCell();
    writer().insertText(L"g");
    writer().setFont(normalFont.data());
    writer().insertText(L"h");
    addCell(L"i");
    writer().endTable();
    finish();
    EXPECT_EQ(cellsIn(u"Courier New"), "[--+][+]/[+][+]/[+-][-]");
}

TEST_F(TrackedPlacementTest, FormatsWholeRowsTogether)
{
    const auto callsFor = [&](int rows) {
        writer().startTable();
        for (int row = 0; row < rows; ++row) {
            writer().addRow();
            writer().addCell();
            if (row == 1)
                writer().setFont(courier.data());
            addCell(L"a");
        }
        writer().endTable();
        writer().insertEndl();
        takeCalls();
        writer().applyFont();
        return takeCalls().size();
    };
    const std::size_t three = callsFor(3);
    EXPECT_EQ(cellsIn(u"Courier New"), "[][-]/[][+]/[][+]");
    EXPECT_EQ(callsFor(9), three);
}

TEST_F(TrackedPlacementTest, LeavesACellAloneThatTheNextFontTakesWhole)
{
    openTable();
    writer().addCell();
    writer().setFont(courier.data());
    addCell(L"a");
    writer().setFont(bold.data());
    writer().insertText(L"b");
    writer().addRow();
    addCell(L"c");
    writer().addCell();
    writer().setFont(courier.data());
    writer().setFont(bold.data());
    writer().insertText(L"d");
    writer().endTable();
    takeCalls();
    writer().applyFont();
    // Two cells in the first font, two and the last one in the second; nothing for runs that end where they
    // begin.
    EXPECT_THAT(takeCalls(), testing::Contains(testing::HasSubstr(".Font -> ")).Times(5));
}

TEST_F(TrackedPlacementTest, StopsAFontInTheMiddleOfACell)
{
    openTable();
    writer().addCell();
    writer().setFont(courier.data());
    writer().insertText(L"ab");
    addCell(L"c");
    writer().addRow();
    addCell(L"d");
    writer().addCell();
    writer().insertText(L"e");
    writer().setFont(bold.data());
    writer().insertText(L"f");
    writer().setFont(normalFont.data());
    writer().insertText(L"g");
    writer().addRow();
    addCell(L"h");
    addCell(L"i");
    writer().endTable();
    finish();
    EXPECT_EQ(cellsIn(u"Courier New"), "[++][+]/[+][++-]/[-][-]");
    EXPECT_FALSE(fontAt(tables().front().rows()[1].cells()[1].range().start()).bold.value());
    EXPECT_TRUE(fontAt(tables().front().rows()[1].cells()[1].range().start() + 1).bold.value());
}

TEST_F(TrackedPlacementTest, KeepsATablesLastFontWhenTextWithAStyleFollows)
{
    openTable();
    addCell(L"a");
    addCell(L"b");
    writer().addRow();
    writer().addCell();
    writer().setFont(courier.data());
    writer().insertText(L"c");
    addCell(L"d");
    writer().endTable();
    writer().insertText(L"e");
    writer().setStyle("Heading 1", false);
    writer().insertText(L"f");
    finish();
    EXPECT_EQ(cellsIn(u"Courier New"), "[-][-]/[+][+]");
    EXPECT_EQ(shown(), "a#b##c#d##e/f");
    EXPECT_EQ(fontAt(10).name, u"Times New Roman");
    EXPECT_EQ(styleAt(10), u"Normal");
    EXPECT_EQ(styleAt(12), u"Heading 1");
}

TEST_F(TrackedPlacementTest, TakesAFontSetBeforeTheFirstCell)
{
    writer().startTable();
    writer().setFont(courier.data());
    writer().addRow();
    addCell(L"a");
    addCell(L"b");
    writer().endTable();
    finish();
    EXPECT_EQ(cellsIn(u"Courier New"), "[+][+]");
}

TEST_F(TrackedPlacementTest, TakesAFontInATableWithoutCells)
{
    writer().startTable();
    writer().addRow();
    writer().setFont(courier.data());
    writer().insertText(L"a");
    writer().endTable();
    finish();
    EXPECT_EQ(cellsIn(u"Courier New"), "[+]");
}

TEST_F(TrackedPlacementTest, TakesAFontSetInACellTooMuch)
{
    openTable();
    addCell(L"a");
    addCell(L"b");
    writer().addRow();
    addCell(L"c");
    addCell(L"d");
    writer().addCell();
    writer().setFont(courier.data());
    writer().insertText(L"e");
    writer().endTable();
    writer().setStyle("Heading 1", false);
    finish();
    EXPECT_EQ(cellTexts(), u"a|b/c|de");
    EXPECT_EQ(cellsIn(u"Courier New"), "[-][-]/[-][-+]");
}

TEST_F(TrackedPlacementTest, BeginsATableInNormalWhateverStandsBefore)
{
    writer().setStyle("Heading 1", false);
    writer().setTextAlign(2);
    writer().setFont(bold.data());
    writer().insertText(L"a");
    openTable();
    addCell(L"b");
    writer().setFont(courier.data());
    writer().insertText(L"c");
    writer().endTable();
    writer().insertText(L"d");
    finish();
    EXPECT_EQ(shown(), "a/bc##d");
    EXPECT_EQ(styleAt(0), u"Heading 1");
    EXPECT_EQ(alignmentAt(0), model::Alignment::center);
    EXPECT_EQ(cellsIn(u"Courier New"), "[-+]");
    EXPECT_EQ(styleAt(2), u"Normal");
    EXPECT_THAT(cellAlignments(), testing::Each(model::Alignment::left));
    EXPECT_EQ(styleAt(6), u"Normal");
    EXPECT_EQ(fontAt(6).name, u"Times New Roman");
    EXPECT_EQ(alignmentAt(6), model::Alignment::left);
}

TEST_F(TrackedPlacementTest, KeepsTablesApart)
{
    openTable();
    addCell(L"a");
    writer().endTable();
    openTable();
    addCell(L"b");
    writer().endTable();
    finish();
    EXPECT_EQ(tables().size(), 2U);
    EXPECT_EQ(shown(), "a##/b##");
}

TEST_F(TrackedPlacementTest, WritesOnInTheTextWhenATableCannotBeMade)
{
    writeLine(L"a");
    openTable();
    writer().endTable();
    writeLine(L"b");
    takeCalls();
    openTable();
    const Calls calls = takeCalls();
    const auto add = std::ranges::find_if(
        calls, [](const std::string& call) { return call.find(".Add(") != std::string::npos; });
    ASSERT_NE(add, calls.end());
    writer().endTable();
    writeLine(L"c");
    session_.failCall(static_cast<long>(add - calls.begin()) + 1, E_FAIL);
    EXPECT_EQ(comErrorOf([&] { writer().startTable(); }), E_FAIL);
    writer().addRow();
    addCell(L"d");
    finish();
    EXPECT_EQ(shown(), "a/##b/##c/d");
}

TEST_F(TrackedPlacementTest, AlignsCells)
{
    using enum model::Alignment;
    openTable();
    addCell(L"a");
    writer().setTextAlign(3);
    addCell(L"b");
    writer().addRow();
    writer().addCell();
    writer().setTextAlign(2);
    writer().insertText(L"c");
    addCell(L"d");
    writer().addRow();
    writer().addCell();
    addCell(L"e");
    writer().endTable();
    writer().insertText(L"f");
    finish();
    EXPECT_THAT(cellAlignments(), testing::ElementsAre(right, right, center, center, center, center));
    EXPECT_EQ(alignmentAt(end() - 2), left);
}

TEST_F(TrackedPlacementTest, PutsFieldsIntoCellsWithoutPlaceholder)
{
    openTable();
    addCell(L"a");
    writer().insertField(4);
    writer().insertText(L"b");
    writer().endTable();
    finish();
    EXPECT_EQ(shown(), "a{ PAGE |1}b##");
}

TEST_F(TrackedPlacementTest, PlacesTagsAnywhere)
{
    writer().insertTag("b1");
    writer().insertTag("b2");
    writer().insertText(L"abc");
    writer().insertTag("b3");
    writer().insertTag("b4");
    openTable();
    addCell(L"d");
    writer().insertTag("b5");
    writer().insertText(L"e");
    writer().endTable();
    writer().insertTag("b6");
    writer().insertText(L"fg");
    writer().insertTag("b7");
    finish();
    EXPECT_EQ(shown(), "abc/de##fg");
    EXPECT_EQ(bookmark(u"b1"), "0-0");
    EXPECT_EQ(bookmark(u"b2"), "0-0");
    EXPECT_EQ(bookmark(u"b3"), "3-3");
    EXPECT_EQ(bookmark(u"b4"), "3-3");
    EXPECT_EQ(bookmark(u"b5"), "5-5");
    EXPECT_EQ(bookmark(u"b6"), "8-8");
    EXPECT_EQ(bookmark(u"b7"), "10-10");
}

TEST_F(TrackedPlacementTest, MovesATagThatIsPlacedAgain)
{
    writer().insertText(L"abc");
    writer().insertTag("b1");
    writer().insertText(L"def");
    writer().insertTag("b1");
    openTable();
    addCell(L"d");
    writer().insertTag("b1");
    writer().endTable();
    finish();
    EXPECT_EQ(bookmark(u"b1"), "8-8");
}

TEST_F(TrackedPlacementTest, MarksEntriesWithLabelsAndWithoutPlaceholders)
{
    writer().insertTOC(2);
    takeCalls();
    writer().startTOCEntry();
    writer().insertText(L"a \"b\" \\c\x3b1");
    writer().insertField(4);
    writer().insertHyperLink("d\xce\xb2", toBookmark("b1", true));
    writer().insertEndl();
    writer().insertText(L"e");
    writer().endTOCEntry();
    writer().endTOCEntry();
    EXPECT_THAT(shown(), testing::EndsWith(R"(d~/e{ TC "a \"b\" \\c~d~ e" \fC \l "1" })"));
}

TEST_F(TrackedPlacementTest, GivesEntriesTheLevelOfTheHeading)
{
    writer().insertTOC(2);
    writer().setStyle("Heading 12", false);
    writer().startTOCEntry();
    writer().insertText(L"a");
    writer().endTOCEntry();
    EXPECT_THAT(shown(), testing::EndsWith(R"(a{ TC "a" \fC \l "9" })"));
    writer().setStyle("Heading 3", false);
    writer().startTOCEntry();
    writer().insertText(L"b");
    writer().endTOCEntry();
    EXPECT_THAT(shown(), testing::EndsWith(R"(b{ TC "b" \fC \l "3" })"));
}

TEST_F(TrackedPlacementTest, KeepsALongEntryWhole)
{
    const std::wstring entry(3000, L'e');
    writer().insertTOC(2);
    writer().startTOCEntry();
    writer().insertText(entry.c_str());
    writer().endTOCEntry();
    EXPECT_THAT(shown(), testing::HasSubstr("\"" + std::string(3000, 'e') + "\""));
}

TEST_F(TrackedPlacementTest, PutsAnEntryIntoItsCell)
{
    writer().insertTOC(2);
    openTable();
    writer().addCell();
    writer().startTOCEntry();
    writer().insertText(L"a");
    writer().endTOCEntry();
    writer().endTable();
    finish();
    EXPECT_THAT(shown(), testing::EndsWith(R"(a{ TC "a" \fC \l "1" }##)"));
}

TEST_F(TrackedPlacementTest, KeepsTheFontInForceBehindTheTableOfContents)
{
    writer().setFont(courier.data());
    writer().insertText(L"a");
    writer().insertTOC(0);
    writer().insertText(L"b");
    finish();
    EXPECT_EQ(fontAt(2).name, u"Times New Roman");
    EXPECT_EQ(fontAt(end() - 2).name, u"Courier New");
}

TEST_F(TrackedPlacementTest, KeepsTheFontInForceWhenRunsAreApplied)
{
    writer().setFont(courier.data());
    writer().insertText(L"a");
    writer().applyFont();
    EXPECT_EQ(writer().getFont(), courier.data());
}

TEST_F(TrackedPlacementTest, WritesOnBehindAFileAsBefore)
{
    const ScratchFolder folder;
    const QdxString file = folder.write("notes.txt", "one\r\ntwo").c_str();
    writer().setStyle("Heading 1", false);
    writer().setTextAlign(2);
    writer().setFont(courier.data());
    writer().insertText(L"a");
    writer().insertFile(file, 0);
    writer().insertText(L"b");
    finish();
    EXPECT_EQ(shown(), "a/one/two/b");
    EXPECT_EQ(styleAt(2), u"Normal");
    EXPECT_EQ(styleAt(10), u"Heading 1");
    EXPECT_EQ(fontAt(10).name, u"Courier New");
    EXPECT_EQ(alignmentAt(10), model::Alignment::center);
    EXPECT_EQ(alignmentAt(2), model::Alignment::left);
}

TEST_F(TrackedPlacementTest, LeavesNothingBehindOfAPictureThatWordRefuses)
{
    const ScratchFolder folder;
    const QdxString file = folder.write("broken.bmp", "no picture").c_str();
    writer().insertText(L"a");
    EXPECT_NE(comErrorOf([&] { writer().insertImage(file, {}, 0, 0); }), std::nullopt);
    writer().insertText(L"b");
    EXPECT_EQ(shown(), "ab");
    EXPECT_EQ(data().pos, 2);
}

TEST_F(TrackedPlacementTest, ClosesATableThatTheClientLeftOpen)
{
    openTable();
    addCell(L"a");
    writer().setTextAlign(3);
    writer().setFont(courier.data());
    writer().insertText(L"b");
    finish();
    EXPECT_EQ(cellsIn(u"Courier New"), "[-+]");
    EXPECT_THAT(cellAlignments(), testing::Each(model::Alignment::right));
}

/// What Word is asked to do for a session in which nothing needs mending.
Calls callsOfOrdinarySession(const Placement& placement)
{
    const standin::Session session;
    const Word::_DocumentPtr document = session.application()->GetDocuments()->Add();
    auto* const writer = new MirovelSection(session.application(), document, document->Range(), placement);
    writer->deleteRange();
    writer->insertText(L"Intro");
    writer->insertEndl();
    writer->setStyle("Heading 1", false);
    writer->insertText(L"Title");
    writer->insertEndl();
    writer->setStyle("Normal", false);
    writer->insertText(L"Text ");
    writer->setFont(courier.data());
    writer->insertText(L"with ");
    writer->insertField(4);
    writer->insertEndl();
    writer->setTextAlign(2);
    writer->insertText(L"more");
    writer->insertHyperLink(" link", toAddress("http://a.example/"));
    writer->insertEndl();
    endWriter(writer);
    return session.transcript();
}

TEST(TrackedCallsTest, AreTheSameWhereNothingNeedsMending)
{
    const Apartment apartment;
    MirovelSection::clearCache();
    const Calls counted = callsOfOrdinarySession(Placement::counted());
    MirovelSection::clearCache();
    EXPECT_EQ(callsOfOrdinarySession(Placement::tracked()), counted);
}

} // namespace
