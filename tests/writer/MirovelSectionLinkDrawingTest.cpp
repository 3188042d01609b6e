// Links become hyperlinks when the writer ends.
#include "WriterFixture.h"

#include "Hyperlink.h"

#include <string>
#include <vector>

namespace {

namespace model = standin::model;

class MirovelSectionLinkDrawingTest : public WriterTest
{
protected:
    std::vector<model::Hyperlink> links() const
    {
        const std::shared_ptr<model::Story> story = model().mainStory();
        return model::hyperlinksIn(model::LiveRange(story, 0, story->length()));
    }
};

/// One link is drawn, the n-th.
Calls linkDrawn(int n, std::int32_t start, std::int32_t end, const std::string& address,
                const std::string& subAddress, const std::string& range = "body")
{
    return {range + ".Start = " + std::to_string(start), range + ".End = " + std::to_string(end),
            "document.Hyperlinks -> document.Hyperlinks",
            "document.Hyperlinks.Add(" + range + ", \"" + address + "\", \"" + subAddress +
                "\", missing, missing, missing) -> " + numbered("hyperlink", n)};
}

std::u16string linkText(const std::u16string& code, const std::u16string& label)
{
    return u"\x13" + code + u"\x14" + label + u"\x15";
}

TEST_F(MirovelSectionLinkDrawingTest, ABookmarkIsASubAddress)
{
    writer().insertText(L"see ");
    writer().insertHyperLink("item", toBookmark("b1", true));
    writer().insertText(L" here");
    EXPECT_LINES(finish(), join(styleRunApplied(0, 13, "-1", normalFont), Calls{"document.UndoClear()"},
                                linkDrawn(1, 4, 8, "", "b1")));
    EXPECT_EQ(text(), u"see " + linkText(u" HYPERLINK  \\l \"b1\" ", u"item") + u" here");
    ASSERT_EQ(links().size(), 1U);
    EXPECT_EQ(links().front().target(), (model::HyperlinkTarget{.address = u"", .subAddress = u"b1"}));
}

TEST_F(MirovelSectionLinkDrawingTest, AWebAddressIsAnAddress)
{
    writer().insertHyperLink("site", toAddress("http://example.org/a?b=c"));
    EXPECT_LINES(finish(), join(styleRunApplied(0, 4, "-1", normalFont), Calls{"document.UndoClear()"},
                                linkDrawn(1, 0, 4, "http://example.org/a?b=c", "")));
    EXPECT_EQ(links().front().target(),
              (model::HyperlinkTarget{.address = u"http://example.org/a?b=c", .subAddress = u""}));
}

// Word does not look whether a bookmark exists.
TEST_F(MirovelSectionLinkDrawingTest, ALinkToABookmarkThatDoesNotExistIsDrawn)
{
    writer().insertHyperLink("item", toBookmark("b77", true));
    finish();
    ASSERT_EQ(links().size(), 1U);
    EXPECT_EQ(links().front().target().subAddress, u"b77");
}

TEST_F(MirovelSectionLinkDrawingTest, OneThatIsNotResolvedStaysPlainAndOnRecord)
{
    writer().insertHyperLink("one", toBookmark("b1", false));
    writer().insertHyperLink("two", toBookmark("b2", false));
    writer().resolve("b2");
    takeCalls();
    MirovelSectionProbe::drawHyperLinks(writer());
    EXPECT_LINES(takeCalls(), join(Calls{"document.UndoClear()"}, linkDrawn(1, 3, 6, "", "b2")));
    EXPECT_EQ(text(), u"one" + linkText(u" HYPERLINK  \\l \"b2\" ", u"two"));
    EXPECT_EQ(writer().unresolvedLinks(), std::vector<QdxString>{"b1"});
    MirovelSectionProbe::drawHyperLinks(writer());
    EXPECT_LINES(takeCalls(), Calls{"document.UndoClear()"}) << "the other one is drawn and done with";
    writer().resolve("b1");
    MirovelSectionProbe::drawHyperLinks(writer());
    EXPECT_LINES(takeCalls(), join(Calls{"document.UndoClear()"}, linkDrawn(2, 0, 3, "", "b1")));
}

TEST_F(MirovelSectionLinkDrawingTest, ALinkInACellIsDrawnThere)
{
    writer().startTable();
    writer().addRow();
    writer().addCell();
    writer().insertText(L"see ");
    takeCalls();
    writer().insertHyperLink("item", toBookmark("b1", true));
    EXPECT_LINES(takeCalls(), (Calls{"table.Rows(1).Cells(1).Range.End -> 5",
                                     R"(table.Rows(1).Cells(1).Range.InsertAfter("item"))",
                                     "table.Rows(1).Cells(1).Range.End -> 9"}));
    writer().insertText(L"!");
    writer().endTable();
    takeCalls();
    EXPECT_LINES(finish(), join(Calls{"document.UndoClear()"},
                                linkDrawn(1, 4, 8, "", "b1", "table.Rows(1).Cells(1).Range")));
    EXPECT_EQ(cellTexts(), u"see " + linkText(u" HYPERLINK  \\l \"b1\" ", u"item") + u"!");
}

// Positions were recorded when the text was written; each link that is drawn moves what lies behind it.
TEST_F(MirovelSectionLinkDrawingTest, LaterLinksAreDrawnWhereTheirTextStoodAtFirst)
{
    writer().insertText(L"see ");
    writer().insertHyperLink("one", toBookmark("b1", true));
    writer().insertText(L" and a good many more words up to ");
    writer().insertHyperLink("two", toBookmark("b2", true));
    writer().insertText(L".");
    EXPECT_LINES(finish(), join(styleRunApplied(0, 45, "-1", normalFont), Calls{"document.UndoClear()"},
                                linkDrawn(1, 4, 7, "", "b1"), linkDrawn(2, 41, 44, "", "b2")));
    EXPECT_EQ(text(), u"see " + linkText(u" HYPERLINK  \\l \"b1\" ", u"one") + u" and a good" +
                          linkText(u" HYPERLINK  \\l \"b2\" ", u" ma") + u"ny more words up to two.")
        << "in front of its text by the 23 characters that the first one has added";
}

TEST_F(MirovelSectionLinkDrawingTest, OneCloseBehindAnotherIsDrawnInsideIt)
{
    writer().insertHyperLink("one", toBookmark("b1", true));
    writer().insertText(L" ");
    writer().insertHyperLink("two", toBookmark("b2", true));
    Calls second = linkDrawn(2, 4, 7, "", "b2");
    second.insert(second.end() - 1, "# crosses a field");
    EXPECT_LINES(finish(), join(styleRunApplied(0, 7, "-1", normalFont), Calls{"document.UndoClear()"},
                                linkDrawn(1, 0, 3, "", "b1"), second));
    EXPECT_EQ(text(), u"\x13 HY" + linkText(u" HYPERLINK  \\l \"b2\" ", u"PER") +
                          u"LINK  \\l \"b1\" \x14one\x15"
                          u" two");
}

TEST_F(MirovelSectionLinkDrawingTest, ClearsTheUndoListEvery101Links)
{
    writer().insertText(L"0123456789");
    writer().insertHyperLink("x", toBookmark("b1", false)); // and is not counted
    for (int i = 0; i < 203; ++i)
        writer().insertHyperLink("x", toBookmark(i % 2 == 0 ? "b1" : "b2", true));
    takeCalls();
    MirovelSectionProbe::drawHyperLinks(writer());
    std::string order;
    for (const std::string& call : takeCalls()) {
        if (call.find(".Hyperlinks ->") != std::string::npos)
            order += 'l';
        if (call.find(".UndoClear()") != std::string::npos)
            order += 'U';
    }
    EXPECT_EQ(order, "U" + std::string(101, 'l') + "U" + std::string(101, 'l') + "U" + "l");
    EXPECT_EQ(writer().unresolvedLinks(), std::vector<QdxString>{"b1"});
    MirovelSectionProbe::drawHyperLinks(writer());
    EXPECT_LINES(takeCalls(), Calls{"document.UndoClear()"}) << "all others are drawn and done with";
}

TEST_F(MirovelSectionLinkDrawingTest, AFailureLeavesTheRestOnRecord)
{
    writer().insertHyperLink("one", toBookmark("b1", true));
    writer().insertHyperLink("two", toBookmark("b2", true));
    for (long call = 1; call <= 5; ++call) {
        takeCalls();
        word_.failCall(call, E_ACCESSDENIED);
        EXPECT_THAT(comErrorOf([&] { MirovelSectionProbe::drawHyperLinks(writer()); }),
                    isHresult(E_ACCESSDENIED));
        EXPECT_EQ(takeCalls().size(), static_cast<std::size_t>(call));
        word_.clearFaults();
    }
    takeCalls();
    word_.failCall(9, E_ACCESSDENIED);
    EXPECT_THAT(comErrorOf([&] { MirovelSectionProbe::drawHyperLinks(writer()); }),
                isHresult(E_ACCESSDENIED));
    Calls expected =
        join(Calls{"document.UndoClear()"}, linkDrawn(1, 0, 3, "", "b1"), linkDrawn(2, 3, 6, "", "b2"));
    expected.back() = expected.back().substr(0, expected.back().find(" -> ")) + " !! 0x80070005";
    EXPECT_LINES(takeCalls(), expected) << "both have stayed";
    word_.clearFaults();
    MirovelSectionProbe::drawHyperLinks(writer());
    Calls rest = takeCalls();
    std::erase(rest, "# crosses a field");
    EXPECT_LINES(rest, join(Calls{"document.UndoClear()"}, linkDrawn(2, 3, 6, "", "b2")))
        << "the first one is drawn and done with";
}

TEST_F(MirovelSectionLinkDrawingTest, AnEmptyLabelShowsItsTarget)
{
    writer().insertText(L"a");
    takeCalls();
    writer().insertHyperLink("", toAddress("http://example.org"));
    EXPECT_LINES(takeCalls(), (Calls{"body.End -> 1", R"(body.InsertAfter(""))", "body.End -> 1"}));
    finish();
    EXPECT_EQ(links().front().textToDisplay(), u"http://example.org");
}

} // namespace
