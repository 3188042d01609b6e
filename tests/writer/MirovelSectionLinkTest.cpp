#include "WriterFixture.h"

#include "TextConversion.h"

#include <string>

namespace {

using MirovelSectionLinkTest = ClientWriterTest;

TEST_F(MirovelSectionLinkTest, WritesTheTextAndRecordsTheLink)
{
    writer().insertText(L"see ");
    takeCalls();
    writer().insertHyperLink("item", toBookmark("b7", false));
    EXPECT_LINES(takeCalls(), (Calls{"body.End -> 4", R"(body.InsertAfter("item"))", "body.End -> 8"}));
    EXPECT_EQ(text(), u"see item");
    ASSERT_EQ(data().links.size(), 1U);
    const HyperLink& link = data().links.front();
    EXPECT_STREQ(link.destination.bookmark.data(), "b7");
    EXPECT_TRUE(link.destination.address.isEmpty());
    EXPECT_EQ(link.start, 4);
    EXPECT_EQ(link.end, 8);
    EXPECT_FALSE(link.destination.resolved);
    EXPECT_EQ(link.range.GetInterfacePtr(), range_.GetInterfacePtr());
    EXPECT_EQ(styleRunAtEnd().second, 8);
}

TEST_F(MirovelSectionLinkTest, WithoutADestinationOnlyWritesTheText)
{
    writer().insertHyperLink("item", {});
    EXPECT_LINES(takeCalls(), (Calls{"body.End -> 0", R"(body.InsertAfter("item"))", "body.End -> 4"}));
    EXPECT_TRUE(data().links.empty());
    EXPECT_EQ(styleRunAtEnd().second, 4);
}

TEST_F(MirovelSectionLinkTest, LiesWhereWordSaysAndCountsTheTextsFullLength)
{
    writer().insertText(L"a\n\nb"); // three by the writer's count, four in Word
    takeCalls();
    writer().insertHyperLink("c\r\nd", toBookmark("b1", true));
    EXPECT_LINES(takeCalls(), (Calls{"body.End -> 4", R"(body.InsertAfter("c\r\nd"))", "body.End -> 7"}));
    EXPECT_EQ(data().links.front().start, 4);
    EXPECT_EQ(data().links.front().end, 7);
    EXPECT_EQ(styleRunAtEnd().second, 7) << "line feeds are not subtracted here";
}

TEST_F(MirovelSectionLinkTest, LeadsWhereItIsToldWhateverTheTextSays)
{
    wchar_t program[MAX_PATH] = {};
    ASSERT_NE(GetModuleFileNameW(nullptr, program, MAX_PATH), 0U);
    const QdxString file = toNarrow(program);
    for (const QdxString& name : {QdxString("http://example.org/a"), file, QdxString("no such file")}) {
        writer().insertHyperLink("x", toAddress(name));
        EXPECT_STREQ(data().links.back().destination.address.data(), name.data());
        EXPECT_TRUE(data().links.back().destination.bookmark.isEmpty());
        EXPECT_TRUE(data().links.back().destination.resolved);
        writer().insertHyperLink("x", toBookmark(name, false));
        EXPECT_STREQ(data().links.back().destination.bookmark.data(), name.data());
        EXPECT_TRUE(data().links.back().destination.address.isEmpty());
        EXPECT_FALSE(data().links.back().destination.resolved);
    }
}

TEST_F(MirovelSectionLinkTest, ResolveFindsEveryLinkToABookmark)
{
    writer().insertHyperLink("1", toBookmark("b1", false));
    writer().insertHyperLink("2", toBookmark("b2", false));
    writer().insertHyperLink("3", toBookmark("b1", false));
    writer().insertHyperLink("4", toBookmark("B1", false));
    writer().insertHyperLink("5", toBookmark("b11", false));
    takeCalls();
    writer().resolve("b1");
    EXPECT_LINES(takeCalls(), Calls{});
    std::string resolved;
    for (const HyperLink& link : data().links)
        resolved += link.destination.resolved ? '1' : '0';
    EXPECT_EQ(resolved, "10100");
}

TEST_F(MirovelSectionLinkTest, LinksThatAreNeverResolvedStayPlainText)
{
    writer().insertText(L"see ");
    writer().insertHyperLink("item", toBookmark("b1", false));
    const Calls calls = finish();
    EXPECT_LINES(calls, join(rangeLaid(0, 8), Calls{"body.Style = -1"}, rangeLaid(0, 8),
                             fontWritten("body", normalFont), Calls{"document.UndoClear()"}));
    EXPECT_EQ(text(), u"see item");
}

TEST_F(MirovelSectionLinkTest, TheTableOfContentsMovesForALinkInFrontOfItAlone)
{
    struct Case
    {
        std::int32_t tocStartPos;
        std::int32_t expectedPos;
    };
    for (const Case& c : {Case{5, 42 + 3}, Case{4, 3}, Case{3, 3}}) {
        data().links.clear();
        data().pos = 0;
        writer().deleteRange();
        writer().insertHyperLink("item", toBookmark("b1", true));
        data().tocStartPos = c.tocStartPos;
        data().tocPos = 3;
        takeCalls();
        session_.failCall(4, E_FAIL);
        EXPECT_THAT(comErrorOf([&] { MirovelSectionProbe::drawHyperLinks(writer()); }), isHresult(E_FAIL));
        EXPECT_LINES(takeCalls(), (Calls{"document.UndoClear()", "body.Start = 0", "body.End = 4",
                                         "document.Hyperlinks !! 0x80004005"}));
        EXPECT_EQ(data().tocPos, c.expectedPos) << "for a table of contents at " << c.tocStartPos;
        EXPECT_EQ(data().links.size(), 1U) << "what could not be drawn stays";
    }
    data().tocPos = 0;
}

} // namespace
