// A Word that refuses what another one takes. The composing writer's document goes on without a table of
// contents in a header; the other things it does not ask for.
#include "FrontEndTest.h"

#include "Document.h"
#include "Section.h"
#include "Story.h"

#include <algorithm>
#include <sstream>
#include <windows.h>

namespace {

using standin::model::Section;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr char16_t fieldBegin = u'\x13';
constexpr char16_t fieldEnd = u'\x15';

class RefusingWordTest : public FrontEndTest, public testing::WithParamInterface<int>
{
protected:
    RefusingWordTest()
    {
        setting("Log", "Diagnostics", folder.file("events.log"));
        setting("Word", "Compose", std::to_string(GetParam()), 2);
        word.model().setSwitches({.headerTakesContents = false});
        word.model().whenClosing = [this](const standin::model::Document& document) { read(document); };
    }
    void TearDown() override
    {
        FrontEndTest::TearDown();
        word.model().whenClosing = nullptr;
    }

    /// One in the body and one in the header, each with text around it.
    void write() const
    {
        client->insertText(L"<1>"_b);
        client->insertTOC();
        client->insertText(L"<2>"_b);
        writeHeader();
        client->insertText(L"<3>"_b);
    }
    void writeHeader() const
    {
        client->startHeader();
        client->insertText(L"<h1>"_b);
        client->insertTOC();
        client->insertText(L"<h2>"_b);
        client->startTOCEntry();
        client->insertText(L"entry"_b);
        client->endTOCEntry();
        client->endHeader();
    }
    [[nodiscard]] std::string close() const
    {
        return outcome([this] { return client->close(); });
    }
    /// Of the diagnostics.
    [[nodiscard]] int linesWith(const std::string& piece) const
    {
        std::istringstream text(
            contentOf(folder.file("events." + std::to_string(GetCurrentProcessId()) + ".log")));
        int lines = 0;
        for (std::string line; std::getline(text, line);)
            lines += line.find(piece) != line.npos ? 1 : 0;
        return lines;
    }
    long timesAsked()
    {
        return static_cast<long>(std::ranges::count_if(takeTranscript(), [](const std::string& call) {
            return call.find(".TablesOfContents.Add(") != call.npos;
        }));
    }

    const testing::Matcher<std::string> failure =
        testing::StartsWith("QdxException: Saving document\nCOMERROR 0x800a11fd\n");
    /// Of the document that was closed last. A field is its keyword in brackets.
    std::u16string body, header, footer;

private:
    static std::u16string shown(const standin::model::Story& story)
    {
        std::u16string text(story.text(0, story.length()));
        std::ranges::replace(text, u'\r', u'|');
        for (std::size_t begin = text.find(fieldBegin); begin != text.npos; begin = text.find(fieldBegin)) {
            const std::u16string keyword = text.substr(begin + 2, text.find(u' ', begin + 2) - begin - 2);
            text.replace(begin, text.find(fieldEnd, begin) + 1 - begin, u"(" + keyword + u")");
        }
        return text;
    }
    void read(const standin::model::Document& document)
    {
        constexpr auto primary = standin::model::HeaderFooterIndex::primary;
        const auto section = document.section(1);
        body = shown(*document.mainStory());
        header = shown(*section->story(Section::Part::header, primary));
        footer = shown(*section->story(Section::Part::footer, primary));
    }
};

TEST_P(RefusingWordTest, FailsTheCloseThatAskedForItAndNotTheNextOne)
{
    openDocument();
    write();
    EXPECT_THAT(close(), failure);
    EXPECT_EQ(timesAsked(), 2);
    EXPECT_EQ(close(), succeeds);
    EXPECT_EQ(timesAsked(), 0) << "neither one twice";
    EXPECT_EQ(body, u"<1>|Table of Contents||(TOC)|<2><3>|");
    EXPECT_EQ(header, u"<h1>|Table of Contents|||<h2>entry(TC)|");
}

TEST_P(RefusingWordTest, FailsACloseForEachHeaderAndFooter)
{
    openDocument();
    write();
    client->startFooter();
    client->insertTOC();
    client->insertText(L"foot"_b);
    client->endFooter();
    EXPECT_THAT(close(), failure);
    EXPECT_THAT(close(), failure);
    EXPECT_EQ(close(), succeeds);
    EXPECT_EQ(timesAsked(), 3);
    EXPECT_EQ(footer, u"Table of Contents|||foot|");
}

TEST_P(RefusingWordTest, LeavesADocumentThatCanBeGoneOnWith)
{
    openDocument();
    write();
    EXPECT_THAT(close(), failure);
    client->startHeader();
    client->insertText(L"<h>"_b);
    client->endHeader();
    client->setStyle(L"Heading 1"_b);
    client->insertText(L"<4>"_b);
    EXPECT_EQ(close(), succeeds);
    EXPECT_EQ(body, u"<1>|Table of Contents||(TOC)|<2><3>|<4>|");
    EXPECT_EQ(header, u"<h>|") << "begun anew";

    EXPECT_EQ(outcome([this] { return client->create(bstr(folder.file("next.doc"))); }), succeeds);
    client->insertText(L"<5>"_b);
    EXPECT_EQ(close(), succeeds);
    EXPECT_EQ(body, u"<5>|");
}

TEST_P(RefusingWordTest, FailsTheCreateThatCompletesTheDocument)
{
    openDocument();
    write();
    const auto create = [this](const char* name) {
        return outcome([&] { return client->create(bstr(folder.file(name))); });
    };
    EXPECT_EQ(create("next.doc"), "_com_error 0x800a11fd");
    EXPECT_EQ(create("other.doc"), succeeds);
    EXPECT_EQ(timesAsked(), 2);
    client->insertText(L"<5>"_b);
    EXPECT_EQ(close(), succeeds);
    EXPECT_EQ(body, u"<5>|");
}

TEST_P(RefusingWordTest, NamesTheClientsCallInTheDiagnosticsAndWithStrict)
{
    for (const bool isStrict : {false, true}) {
        setting("Word", "Strict", isStrict ? "1" : "0", 3);
        openDocument();
        write();
        const std::string told = close();
        EXPECT_THAT(told, failure);
        const auto namesIt = AllOf(HasSubstr("\nWord call: TablesOfContents.Add("),
                                   HasSubstr("\nBrought in for: insertTOC()\n"));
        if (isStrict)
            EXPECT_THAT(told, namesIt);
        else
            EXPECT_THAT(told, Not(namesIt));
        EXPECT_EQ(close(), succeeds);
    }
    EXPECT_EQ(linesWith("\tclose\tWord call failed: TablesOfContents.Add("), 2);
    EXPECT_EQ(
        linesWith("\tclose\tFailed while bringing into Word what waited, at the client's call insertTOC()"),
        2);
    EXPECT_EQ(linesWith("\tclose\tThe client is told: Saving document"), 2);
}

TEST_P(RefusingWordTest, IsWrittenDownWhereNobodyIsToldAnyMore)
{
    openDocument();
    write();
    client = nullptr;
    EXPECT_EQ(linesWith("at the client's call insertTOC()"), 1);
}

TEST_P(RefusingWordTest, IsAskedForNoLevelThatThereIsNot)
{
    word.model().setSwitches({.contentsTakeAnyLevel = false});
    for (const char* const level : {"-1", "0", "3", "9", "12"}) {
        setting("Word", "TOCLevel", level, 2);
        openDocument();
        client->insertTOC();
        EXPECT_EQ(close(), succeeds) << level;
        EXPECT_EQ(body, u"Table of Contents||(TOC)||") << level;
    }
}

TEST_P(RefusingWordTest, IsAskedForNoPageBreakInAHeader)
{
    for (const bool isTaken : {true, false}) {
        word.model().setSwitches({.headerTakesPageBreak = isTaken});
        openDocument();
        client->startHeader();
        client->insertText(L"<h1>"_b);
        client->insertPageBreak();
        client->insertText(L"<h2>"_b);
        client->endHeader();
        EXPECT_EQ(close(), succeeds);
        EXPECT_EQ(header, u"<h1>\f<h2>|");
    }
}

INSTANTIATE_TEST_SUITE_P(Composing, RefusingWordTest, testing::Values(1, 2));

} // namespace
