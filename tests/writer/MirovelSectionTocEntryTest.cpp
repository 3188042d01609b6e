// Entries that a client marks itself, as hidden fields in the text.
#include "WriterFixture.h"

#include <array>
#include <string>

namespace {

class MirovelSectionTocEntryTest : public WriterTest
{
protected:
    void SetUp() override
    {
        WriterTest::SetUp();
        writer().insertTOC(3);
        takeCalls();
    }
};

constexpr std::size_t headingLength = 20; // "Table of Contents" and three paragraph ends

TEST_F(MirovelSectionTocEntryTest, StandsBehindItsText)
{
    writer().startTOCEntry();
    EXPECT_LINES(takeCalls(), Calls{});
    writer().insertText(L"Over");
    writer().insertText(L"view");
    takeCalls();
    writer().endTOCEntry();
    // The code: ` TC "Overview" \fC \l "0" `, between two field characters.
    EXPECT_LINES(
        takeCalls(),
        (Calls{"document.TablesOfContents -> document.TablesOfContents", "body.Collapse(0)",
               R"(body.InsertAfter("X"))", "body.Duplicate -> body.Duplicate", "body.Duplicate.End = 29",
               "body.Fields -> body.Fields",
               R"(body.Fields.Add(body.Duplicate, 9, "\"Overview\" \\fC \\l \"0\"", missing) -> field)",
               "body.End -> 57", "body.Start = 56", "body.Delete(1, 1) -> 1"}));
    EXPECT_EQ(insertionPosition(), 56);
    EXPECT_EQ(text().substr(headingLength), u"Overview\x13 TC \"Overview\" \\fC \\l \"0\" \x15");
    EXPECT_EQ(fontAt(30).hidden, true);
    writer().insertText(L" goes on");
    EXPECT_TRUE(text().ends_with(u"\x15 goes on"));
    writer().endTOCEntry();
    EXPECT_TRUE(text().ends_with(u"\x15 goes on\x13 TC \"Overview\" \\fC \\l \"0\" \x15"))
        << "what was written behind it is no part of it";
}

TEST_F(MirovelSectionTocEntryTest, HasTheNumberOfTheStyleForItsLevel)
{
    struct Case
    {
        const char* style;
        const char* level;
    };
    addStyle(u"My style12");
    addStyle(u"Short");
    for (const Case& c : std::array{Case{"Heading 2", "2"}, Case{"Heading 3", "3"}, Case{"Heading 10", "10"},
                                    Case{"My style12", "12"}, Case{"Short", "0"}, Case{"Normal", "0"}}) {
        writer().setStyle(c.style, false);
        writer().startTOCEntry();
        writer().insertText(L"E");
        takeCalls();
        writer().endTOCEntry();
        EXPECT_NE(
            takeCalls()[6].find(std::string(R"(, 9, "\"E\" \\fC \\l \")") + c.level + R"(\"", missing))"),
            std::string::npos)
            << c.style;
    }
}

TEST_F(MirovelSectionTocEntryTest, WithoutTextLeavesNothing)
{
    const std::u16string before = text();
    writer().startTOCEntry();
    writer().endTOCEntry();
    EXPECT_LINES(takeCalls(), Calls{"document.TablesOfContents -> document.TablesOfContents"});
    EXPECT_EQ(text(), before);
    EXPECT_EQ(styleRunAtEnd().second, static_cast<std::int32_t>(headingLength));
}

TEST_F(MirovelSectionTocEntryTest, WithoutWordsTablesLeavesNothing)
{
    writer().startTOCEntry();
    writer().insertText(L"Overview");
    const std::u16string before = text();
    takeCalls();
    word_.failCall(1, S_FALSE);
    writer().endTOCEntry();
    EXPECT_LINES(takeCalls(), Calls{"document.TablesOfContents"});
    EXPECT_EQ(text(), before);
}

TEST_F(MirovelSectionTocEntryTest, EndedTwiceIsMarkedTwice)
{
    writer().startTOCEntry();
    writer().insertText(L"E");
    writer().endTOCEntry();
    const std::u16string once = text();
    writer().endTOCEntry();
    EXPECT_EQ(text(), once + once.substr(headingLength + 1)) << "the text is kept until the next start";
}

TEST_F(MirovelSectionTocEntryTest, StartedTwiceHoldsTheTextBehindTheSecondStart)
{
    writer().startTOCEntry();
    writer().insertText(L"one ");
    writer().startTOCEntry();
    writer().insertText(L"two");
    writer().endTOCEntry();
    EXPECT_NE(text().find(u"\"two\""), std::u16string::npos);
    EXPECT_EQ(text().find(u"\"one "), std::u16string::npos);
}

TEST_F(MirovelSectionTocEntryTest, LabelsOfLinksAreNoPartOfIt)
{
    writer().startTOCEntry();
    writer().insertText(L"see ");
    writer().insertHyperLink("item", toBookmark("b1", false));
    writer().endTOCEntry();
    EXPECT_NE(text().find(u"\"see \""), std::u16string::npos);
}

// The placeholder goes behind the table, the field where the count stands, which knows nothing of text in
// cells, and what is then removed is looked for behind the cell.
TEST_F(MirovelSectionTocEntryTest, EndedInATableLeavesItsPlaceholderBehindTheTable)
{
    writer().startTable();
    writer().addRow();
    writer().addCell();
    writer().startTOCEntry();
    writer().insertText(L"cell");
    EXPECT_EQ(insertionPosition(), 23);
    writer().endTOCEntry();
    EXPECT_LINES(
        takeCalls(),
        (Calls{"document.TablesOfContents -> document.TablesOfContents", "body.Collapse(0)",
               R"(body.InsertAfter("X"))", "body.Duplicate -> body.Duplicate#2", "body.Duplicate#2.End = 24",
               "body.Fields -> body.Fields",
               R"(body.Fields.Add(body.Duplicate#2, 9, "\"cell\" \\fC \\l \"0\"", missing) -> field)",
               "body.End -> 52", "table.Rows(1).Cells(1).Range.End -> 49",
               "table.Rows(1).Cells(1).Range.Start = 49", "table.Rows(1).Cells(1).Range.Delete(1, 1) -> 0"}));
    EXPECT_EQ(insertionPosition(), 52);
    EXPECT_EQ(cellTexts(), u"cell\x13 TC \"cell\" \\fC \\l \"0\" \x15");
    EXPECT_TRUE(text().ends_with(u"\a\a X"));
}

TEST_F(MirovelSectionTocEntryTest, ALongOneIsCutToWhatAFieldHolds)
{
    writer().startTOCEntry();
    writer().insertText(std::wstring(5000, L'x').c_str());
    takeCalls();
    writer().endTOCEntry();
    const std::string call = takeCalls()[6];
    EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(call, 'x')),
              1007 - std::string(R"("" \fC \l "0")").size());
}

TEST_F(MirovelSectionTocEntryTest, AFailureLeavesThePlaceholder)
{
    writer().startTOCEntry();
    writer().insertText(L"E");
    takeCalls();
    word_.failCall(7, E_ACCESSDENIED);
    EXPECT_THAT(comErrorOf([&] { writer().endTOCEntry(); }), isHresult(E_ACCESSDENIED));
    EXPECT_TRUE(text().ends_with(u"EX"));
    word_.clearFaults();
    EXPECT_EQ(insertionPosition(), static_cast<std::int32_t>(headingLength) + 2);
    writer().insertText(L"!");
    EXPECT_TRUE(text().ends_with(u"EX!"));
    writer().endTOCEntry();
    EXPECT_NE(text().find(u" TC \"E\" "), std::u16string::npos) << "the entry was ended";
}

} // namespace
