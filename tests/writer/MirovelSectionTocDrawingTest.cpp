// Word builds the table of contents when the writer ends.
#include "WriterFixture.h"

#include "TableOfContents.h"

#include <string>

namespace {

namespace model = standin::model;

class MirovelSectionTocDrawingTest : public WriterTest
{
protected:
    std::vector<model::TableOfContents> tablesOfContents() const
    {
        const std::shared_ptr<model::Story> story = model().mainStory();
        return model::tablesOfContentsIn(model::LiveRange(story, 0, story->length()));
    }

    /// The calls of the end from the table of contents on.
    Calls drawn()
    {
        const Calls calls = finish();
        const auto first = std::ranges::find_if(
            calls, [](const std::string& call) { return call.find(".TablesOfContents ->") != call.npos; });
        return {first, calls.end()};
    }
};

Calls tocDrawn(std::int32_t at, const std::string& useHeadings, int level)
{
    const std::string place = "body.Duplicate";
    const std::string collection = "document.TablesOfContents";
    return {"document.TablesOfContents -> " + collection,
            "body.Duplicate -> " + place,
            place + ".End = " + std::to_string(at),
            place + ".Start = " + std::to_string(at),
            collection + ".Add(" + place + ", " + useHeadings + ", 1s, " + std::to_string(level) +
                "s, true, missing, true, true, \"\", missing, missing) -> tableOfContents",
            "tableOfContents.TabLeader = 1"};
}

TEST_F(MirovelSectionTocDrawingTest, ListsTheHeadingsBehindTheTitle)
{
    writer().insertTOC(2);
    writer().setStyle("Heading 1", false);
    writer().insertText(L"One");
    writer().insertEndl();
    writer().setStyle("Heading 3", false);
    writer().insertText(L"Too deep");
    writer().insertEndl();
    writer().setStyle("Heading 2", false);
    writer().insertText(L"Two");
    writer().insertEndl();
    EXPECT_LINES(drawn(), tocDrawn(19, "true", 2));
    ASSERT_EQ(tablesOfContents().size(), 1U);
    const model::TableOfContents table = tablesOfContents().front();
    EXPECT_EQ(table.range().start(), 19);
    const std::u16string entries = table.field().result().text();
    EXPECT_NE(entries.find(u"One"), std::u16string::npos);
    EXPECT_NE(entries.find(u"Two"), std::u16string::npos);
    EXPECT_EQ(entries.find(u"Too deep"), std::u16string::npos);
    EXPECT_EQ(table.tabLeader(), model::TabStop::Leader::dots);
    EXPECT_TRUE(text().starts_with(u"Table of Contents\r\r\x13"));
}

TEST_F(MirovelSectionTocDrawingTest, LevelZeroListsMarkedEntriesAlone)
{
    writer().insertTOC(0);
    writer().setStyle("Heading 1", false);
    writer().insertText(L"Heading");
    writer().insertEndl();
    EXPECT_LINES(drawn(), tocDrawn(19, "false", 0));
    EXPECT_EQ(tablesOfContents().front().field().result().text().find(u"Heading"), std::u16string::npos);
}

TEST_F(MirovelSectionTocDrawingTest, LevelsBeyondNineAreNine)
{
    writer().insertTOC(12);
    EXPECT_LINES(drawn(), tocDrawn(19, "true", 9));
}

TEST_F(MirovelSectionTocDrawingTest, ANegativeLevelIsRefusedByWordAtTheEnd)
{
    writer().insertTOC(-1);
    EXPECT_THAT(comErrorOf([&] { finish(); }), isHresult(static_cast<HRESULT>(0x800A1200)));
    EXPECT_NE(lastOf(takeCalls()).find(", true, 1s, -1s, true, "), std::string::npos);
}

TEST_F(MirovelSectionTocDrawingTest, WithoutARequestNothingIsDrawn)
{
    writer().insertText(L"x");
    EXPECT_LINES(drawn(), Calls{});
}

TEST_F(MirovelSectionTocDrawingTest, OnlyTheLastRequestIsDrawn)
{
    writer().insertTOC(1);
    writer().insertTOC(3);
    EXPECT_LINES(drawn(), tocDrawn(39, "true", 3));
    EXPECT_EQ(tablesOfContents().size(), 1U);
}

TEST_F(MirovelSectionTocDrawingTest, LinksInFrontMoveItBy42EachAndLinksBehindDoNot)
{
    writer().insertHyperLink("one", toBookmark("b1", true));
    writer().insertEndl();
    writer().insertTOC(1);
    writer().setStyle("Heading 1", false);
    writer().insertText(L"A heading of some length");
    writer().insertEndl();
    writer().setStyle("Normal", false);
    writer().insertHyperLink("two", toBookmark("b2", true));
    EXPECT_EQ(drawn()[2], "body.Duplicate.End = 65") << "23 and 42, although the link has added 23 alone";
}

TEST_F(MirovelSectionTocDrawingTest, AFailureOfAnyStepLeavesTheEnd)
{
    for (long call = 1; call <= 6; ++call) {
        SCOPED_TRACE(call);
        standin::InProcessWord word;
        Word::_DocumentPtr document = word.application()->GetDocuments()->Add();
        auto* writer = new MirovelSection(word.application(), document, document->Range());
        writer->deleteRange();
        writer->insertTOC(1);
        writer->applyStyle();
        MirovelSectionProbe::applyAlign(*writer);
        word.failCall(call + 1, E_ACCESSDENIED); // behind UndoClear
        EXPECT_THAT(comErrorOf([&] { endWriter(std::exchange(writer, nullptr)); }),
                    isHresult(E_ACCESSDENIED));
        document = nullptr;
        EXPECT_EQ(word.liveObjects(), 0);
    }
}

} // namespace
