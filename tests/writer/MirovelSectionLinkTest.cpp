#include "WriterFixture.h"

#include "TextConversion.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

using MirovelSectionLinkTest = WriterTest;

TEST_F(MirovelSectionLinkTest, WritesTheTextAndRecordsTheLink)
{
    writer().insertText(L"see ");
    takeCalls();
    writer().insertHyperLink("item", toBookmark("b7", false));
    EXPECT_LINES(takeCalls(), (Calls{"body.End -> 4", R"(body.InsertAfter("item"))", "body.End -> 8"}));
    EXPECT_EQ(text(), u"see item");
    EXPECT_EQ(insertionPosition(), 8);
    EXPECT_EQ(writer().unresolvedLinks(), std::vector<QdxString>{"b7"});
    writer().resolve("b7");
    EXPECT_EQ(writer().unresolvedLinks(), std::vector<QdxString>{});
    EXPECT_LINES(linksAtEnd(), Calls{R"(body 4-8: "", "b7")"});
}

TEST_F(MirovelSectionLinkTest, WithoutADestinationOnlyWritesTheText)
{
    writer().insertHyperLink("item", {});
    EXPECT_LINES(takeCalls(), (Calls{"body.End -> 0", R"(body.InsertAfter("item"))", "body.End -> 4"}));
    EXPECT_EQ(insertionPosition(), 4);
    EXPECT_EQ(writer().unresolvedLinks(), std::vector<QdxString>{});
    EXPECT_LINES(linksAtEnd(), Calls{});
}

TEST_F(MirovelSectionLinkTest, LiesWhereWordSaysAndCountsTheTextsFullLength)
{
    writer().insertText(L"a\n\nb"); // three by the writer's count, four in Word
    takeCalls();
    writer().insertHyperLink("c\r\nd", toBookmark("b1", true));
    EXPECT_LINES(takeCalls(), (Calls{"body.End -> 4", R"(body.InsertAfter("c\r\nd"))", "body.End -> 7"}));
    EXPECT_EQ(insertionPosition(), 7) << "line feeds are not subtracted here";
    EXPECT_LINES(linksAtEnd(), Calls{R"(body 4-7: "", "b1")"});
}

TEST_F(MirovelSectionLinkTest, LeadsWhereItIsToldWhateverTheTextSays)
{
    wchar_t program[MAX_PATH] = {};
    ASSERT_NE(GetModuleFileNameW(nullptr, program, MAX_PATH), 0U);
    const QdxString file = toNarrow(program);
    for (const QdxString& name : {QdxString("http://example.org/a"), file, QdxString("no such file")}) {
        startOver();
        writer().insertHyperLink("x", toAddress(name));
        EXPECT_EQ(writer().unresolvedLinks(), std::vector<QdxString>{});
        EXPECT_LINES(linksAtEnd(), Calls{"body 0-1: " + quoted(name) + ", \"\""});
        startOver();
        writer().insertHyperLink("x", toBookmark(name, false));
        EXPECT_EQ(writer().unresolvedLinks(), std::vector<QdxString>{name});
        writer().resolve(name);
        EXPECT_LINES(linksAtEnd(), Calls{"body 0-1: \"\", " + quoted(name)});
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
    EXPECT_EQ(writer().unresolvedLinks(), (std::vector<QdxString>{"b2", "B1", "b11"}));
    EXPECT_LINES(linksAtEnd(), (Calls{R"(body 0-1: "", "b1")", R"(body 2-3: "", "b1")"}));
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
        int paragraphs;
        const char* drawnAt;
    };
    for (const Case& c : {Case{19, "146"}, Case{20, "64"}, Case{21, "66"}}) {
        SCOPED_TRACE(c.paragraphs);
        startOver();
        // Three characters each, and two by the writer's count, so that the link ends (at 61, 64 and 67) in
        // front of, at and behind the place of the table of contents (62, 64 and 66).
        for (int i = 0; i < c.paragraphs; ++i)
            writer().insertText(L"a\n\n");
        writer().insertHyperLink("item", toBookmark("b1", true));
        writer().insertTOC(1);
        writer().insertText(std::wstring(100, L'x').c_str());
        takeCalls();
        word_.failCall(4, E_FAIL);
        EXPECT_THAT(comErrorOf([&] { MirovelSectionProbe::drawHyperLinks(writer()); }), isHresult(E_FAIL));
        EXPECT_LINES(takeCalls(),
                     join(Calls{"document.UndoClear()"}, rangeLaid(3 * c.paragraphs, 3 * c.paragraphs + 4),
                          Calls{"document.Hyperlinks !! 0x80004005"}));
        const Calls end = finish();
        const auto drawn = std::ranges::find_if(
            end, [](const std::string& call) { return call.find("document.Hyperlinks.Add(") != call.npos; });
        EXPECT_NE(drawn, end.end()) << "what could not be drawn stays";
        const auto place = std::find_if(drawn, end.end(), [](const std::string& call) {
            return call.find(".Duplicate") != call.npos && call.find(".End = ") != call.npos;
        });
        ASSERT_NE(place, end.end());
        EXPECT_TRUE(place->ends_with(std::string(".End = ") + c.drawnAt))
            << *place << ", moved by 42 for each attempt";
    }
}

} // namespace
