#include "WriterFixture.h"

namespace {

using MirovelSectionTocTest = ClientWriterTest;

TEST_F(MirovelSectionTocTest, WritesTheHeadingAndRemembersThePlace)
{
    writer().insertTOC(3);
    EXPECT_LINES(
        takeCalls(),
        join(rangeLaid(0, 0), Calls{"body.Style = -1"}, rangeLaid(0, 0), fontWritten("body", normalFont),
             Calls{"body.End -> 0", R"(body.InsertAfter("Table of Contents"))", R"(body.InsertAfter("\n"))",
                   R"(body.InsertAfter("\n"))", "body.End -> 19", R"(body.InsertAfter("\n"))"},
             rangeLaid(0, 20), Calls{"body.Style = -1"}, rangeLaid(0, 20), fontWritten("body", normalFont)));
    EXPECT_EQ(data().tocPos, 19);
    EXPECT_EQ(data().tocStartPos, 19);
    EXPECT_EQ(data().tocLevel, 3);
    EXPECT_EQ(data().pos, 20);
    EXPECT_EQ(data().alignment, 0);
    EXPECT_EQ(data().alignRuns.size(), 2U);
    EXPECT_STREQ(data().styleName.data(), "Normal");
    EXPECT_EQ(text(), u"Table of Contents\r\r\r");

    MirovelSectionProbe::applyAlign(writer());
    EXPECT_EQ(alignmentAt(0), standin::model::Alignment::center);
    EXPECT_EQ(alignmentAt(19), standin::model::Alignment::left);
}

TEST_F(MirovelSectionTocTest, ReturnsToTheStyleAndTheAlignmentInForce)
{
    writer().setStyle("Heading 2", false);
    writer().setTextAlign(4);
    writer().insertTOC(1);
    EXPECT_STREQ(data().styleName.data(), "Heading 2");
    EXPECT_EQ(data().stylePos, data().pos);
    EXPECT_EQ(data().alignment, 4);
    EXPECT_EQ(writer().getFont(), heading2Font.data());
    EXPECT_EQ(styleAt(0), u"Normal");
}

TEST_F(MirovelSectionTocTest, ALaterOneMovesThePlaceAndTheLevel)
{
    writer().insertTOC(1);
    writer().insertTOC(12);
    EXPECT_EQ(data().tocPos, 39);
    EXPECT_EQ(data().tocStartPos, 39);
    EXPECT_EQ(data().tocLevel, 12);
}

TEST_F(MirovelSectionTocTest, InATableIsNotHeard)
{
    writer().startTable();
    takeCalls();
    writer().insertTOC(3);
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_EQ(data().tocPos, 0);
    EXPECT_EQ(data().tocStartPos, 0);
    EXPECT_EQ(data().tocLevel, 0);
    EXPECT_EQ(text(), u"\a\a ");
}

TEST_F(MirovelSectionTocTest, EntriesWithoutATableOfContentsAreNotHeard)
{
    writer().startTOCEntry();
    EXPECT_FALSE(data().collectingTocEntry);
    writer().insertText(L"entry");
    takeCalls();
    writer().endTOCEntry();
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_TRUE(data().tocText.isEmpty());
    EXPECT_EQ(text(), u"entry");
}

TEST_F(MirovelSectionTocTest, AnEntryEndsEvenIfWordHasNoTablesOfContents)
{
    data().tocPos = 1;
    writer().startTOCEntry();
    EXPECT_TRUE(data().collectingTocEntry);
    writer().insertText(L"entry");
    takeCalls();
    session_.failCall(1, E_FAIL);
    EXPECT_THAT(comErrorOf([&] { writer().endTOCEntry(); }), isHresult(E_FAIL));
    EXPECT_LINES(takeCalls(), Calls{"document.TablesOfContents !! 0x80004005"});
    EXPECT_FALSE(data().collectingTocEntry);
    EXPECT_EQ(text(), u"entry");
}

} // namespace
