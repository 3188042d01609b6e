#include "WriterFixture.h"

#include <string>
#include <string_view>

namespace {

class MirovelSectionTocTest : public WriterTest
{
protected:
    /// Where the end builds the table of contents and down to which level, as in "19, level 3". Finishes.
    std::string contentsAtEnd()
    {
        constexpr std::string_view levels = ", true, 1s, ";
        std::string place;
        for (const std::string& call : finish()) {
            const auto end = call.find(".End = ");
            if (call.starts_with("body.Duplicate") && end != call.npos)
                place = call.substr(end + 7);
            const auto level = call.find(levels);
            if (call.starts_with("document.TablesOfContents.Add(") && level != call.npos)
                return place + ", level " + call.substr(level + levels.size(), 1);
        }
        return "nowhere";
    }
};

TEST_F(MirovelSectionTocTest, WritesTheHeadingAndRemembersThePlace)
{
    writer().insertTOC(3);
    EXPECT_LINES(
        takeCalls(),
        join(rangeLaid(0, 0), Calls{"body.Style = -1"}, rangeLaid(0, 0), fontWritten("body", normalFont),
             Calls{"body.End -> 0", R"(body.InsertAfter("Table of Contents"))", R"(body.InsertAfter("\n"))",
                   R"(body.InsertAfter("\n"))", "body.End -> 19", R"(body.InsertAfter("\n"))"},
             rangeLaid(0, 20), Calls{"body.Style = -1"}, rangeLaid(0, 20), fontWritten("body", normalFont)));
    EXPECT_EQ(insertionPosition(), 20);
    writer().setTextAlign(0);
    writer().setStyle("Normal", false);
    EXPECT_LINES(takeCalls(), Calls{}) << "both are in force again";
    EXPECT_EQ(text(), u"Table of Contents\r\r\r");

    MirovelSectionProbe::applyAlign(writer());
    EXPECT_EQ(alignmentAt(0), standin::model::Alignment::center);
    EXPECT_EQ(alignmentAt(19), standin::model::Alignment::left);
    EXPECT_EQ(contentsAtEnd(), "19, level 3");
}

TEST_F(MirovelSectionTocTest, ReturnsToTheStyleAndTheAlignmentInForce)
{
    writer().setStyle("Heading 2", false);
    writer().setTextAlign(4);
    writer().insertTOC(1);
    takeCalls();
    writer().setTextAlign(4);
    writer().setStyle("Heading 2", false);
    EXPECT_LINES(takeCalls(), Calls{}) << "both are in force again";
    EXPECT_EQ(writer().getFont(), heading2Font.data());
    EXPECT_EQ(styleAt(0), u"Normal");
    EXPECT_EQ(styleRunAtEnd(), std::pair(20, 20));
}

TEST_F(MirovelSectionTocTest, ALaterOneMovesThePlaceAndTheLevel)
{
    writer().insertTOC(1);
    writer().insertTOC(12);
    EXPECT_EQ(contentsAtEnd(), "39, level 9");
}

TEST_F(MirovelSectionTocTest, ALinkBetweenTwoMovesTheLaterOne)
{
    writer().insertTOC(1);
    writer().insertHyperLink("one", toBookmark("b1", true));
    writer().insertTOC(2);
    writer().insertText(L"as much text as the end's idea of a link's length takes");
    EXPECT_EQ(contentsAtEnd(), "85, level 2") << "43, and 42 for the link";
}

TEST_F(MirovelSectionTocTest, InATableIsNotHeard)
{
    writer().startTable();
    takeCalls();
    writer().insertTOC(3);
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_EQ(text(), u"\a\a ");
    writer().startTOCEntry();
    writer().insertText(L"entry");
    takeCalls();
    writer().endTOCEntry();
    EXPECT_LINES(takeCalls(), Calls{}) << "there is none";
    EXPECT_EQ(contentsAtEnd(), "nowhere");
}

TEST_F(MirovelSectionTocTest, EntriesWithoutATableOfContentsAreNotHeard)
{
    writer().startTOCEntry();
    writer().insertText(L"entry");
    takeCalls();
    writer().endTOCEntry();
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_EQ(text(), u"entry");
    writer().insertTOC(1);
    takeCalls();
    writer().endTOCEntry();
    EXPECT_LINES(takeCalls(), Calls{"document.TablesOfContents -> document.TablesOfContents"})
        << "nothing has been collected";
}

TEST_F(MirovelSectionTocTest, AnEntryEndsEvenIfWordHasNoTablesOfContents)
{
    writer().insertTOC(1);
    writer().startTOCEntry();
    writer().insertText(L"entry");
    takeCalls();
    word_.failCall(1, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { writer().endTOCEntry(); }), isHresult(E_FAIL));
    EXPECT_LINES(takeCalls(), Calls{"document.TablesOfContents !! 0x80004005"});
    word_.clearFaults();
    EXPECT_TRUE(text().ends_with(u"\rentry"));
    writer().insertText(L", not this");
    writer().endTOCEntry();
    EXPECT_NE(text().find(u" TC \"entry\" "), std::u16string::npos);
}

} // namespace
