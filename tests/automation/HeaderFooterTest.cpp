// Content in headers and footers, and back in the body.
#include "FrontEndTest.h"
#include "WriterCalls.h"

#include "WordConstants.h"
#include "mirovelsection.h"

#include "Document.h"
#include "Section.h"
#include "Story.h"

namespace {

namespace model = standin::model;

class HeaderFooterTest : public FrontEndTest
{
protected:
    HeaderFooterTest() { openDocument(); }

    model::Document& document() { return *word.model().documents().front(); }

    std::string partText(int section, bool header)
    {
        const Word::SectionPtr part = word.application()->GetActiveDocument()->GetSections()->Item(section);
        const Word::HeadersFootersPtr all = header ? part->GetHeaders() : part->GetFooters();
        const Word::RangePtr range = all->Item(Word::wdHeaderFooterPrimary)->GetRange();
        std::string text = static_cast<const char*>(range->GetText());
        text.pop_back();
        return text;
    }
    /// What Word is asked for when the last section's "Headers" or "Footers" is taken and written in its
    /// style.
    static Lines partTaken(const std::string& parts, const std::string& style)
    {
        const std::string all = "document.Sections(1)." + parts;
        const std::string part = all + "(1)";
        const std::string range = part + ".Range";
        return join(Lines{"document.Sections -> document.Sections",
                          "document.Sections.Item(1) -> document.Sections(1)", all + " -> " + all,
                          all + ".Item(1) -> " + part, part + ".LinkToPrevious = false",
                          range + " -> " + range, range + ".Delete(missing, missing) -> 1",
                          "document.Styles -> document.Styles"},
                    styleFontRead("-1", normalFont),
                    Lines{"document.PageSetup -> document.PageSetup", "document.PageSetup.PageWidth -> 612f",
                          "document.PageSetup.RightMargin -> 90f", "document.PageSetup.LeftMargin -> 90f"},
                    styleFontRead(style, normalFont), styleRunApplied(0, 0, "-1", normalFont, range));
    }
    std::string headerText(int section = 1) { return partText(section, true); }
    std::string footerText(int section = 1) { return partText(section, false); }
};

TEST_F(HeaderFooterTest, TakesTheLastSectionsOwnEmptiedHeader)
{
    trace(10);
    EXPECT_THAT(client->startHeader(), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(), partTaken("Headers", "-32"));
    EXPECT_THAT(client->insertText(L"head"_b), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(), Lines{"document.Sections(1).Headers(1).Range.InsertAfter(\"head\")"});
    EXPECT_THAT(client->endHeader(), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(),
                 join(styleRunApplied(0, 4, "-32", normalFont, "document.Sections(1).Headers(1).Range"),
                      Lines{"document.UndoClear()"}));
    EXPECT_THAT(client->insertText(L"body"_b), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(), Lines{"body.InsertAfter(\"body\")"});
    EXPECT_EQ(log(), logLines({"mirovel->startHeader();", "mirovel->insertText(\"head\");",
                               "mirovel->endHeader();", "mirovel->insertText(\"body\");"}));
    EXPECT_EQ(headerText(), "head");
    EXPECT_EQ(documentText(), "body");
}

TEST_F(HeaderFooterTest, TakesTheLastSectionsOwnEmptiedFooter)
{
    trace(10);
    EXPECT_THAT(client->startFooter(), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(), partTaken("Footers", "-33"));
    EXPECT_THAT(client->insertText(L"foot"_b), isHresult(S_OK));
    EXPECT_THAT(client->endFooter(), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(),
                 join(Lines{"document.Sections(1).Footers(1).Range.InsertAfter(\"foot\")"},
                      styleRunApplied(0, 4, "-33", normalFont, "document.Sections(1).Footers(1).Range"),
                      Lines{"document.UndoClear()"}));
    EXPECT_EQ(log(), logLines({"mirovel->startFooter();", "mirovel->insertText(\"foot\");",
                               "mirovel->endFooter();"}));
    EXPECT_EQ(footerText(), "foot");
    EXPECT_EQ(headerText(), "");
    EXPECT_EQ(documentText(), "");
}

TEST_F(HeaderFooterTest, WritesInTheStylesOfTheirOwn)
{
    client->startHeader();
    client->insertText(L"head"_b);
    client->startFooter();
    client->insertText(L"foot"_b);
    client->close();
    const std::string file = contentOf(documentName());
    EXPECT_THAT(file, testing::ContainsRegex("\\\\header.*head"));
    EXPECT_THAT(file, testing::ContainsRegex("\\\\footer.*foot"));
}

TEST_F(HeaderFooterTest, ReplacesAHeaderThatIsStillEmpty)
{
    client->startHeader();
    word.clearTranscript();
    EXPECT_THAT(client->startHeader(), isHresult(S_OK));
    const Lines calls = takeTranscript();
    ASSERT_GT(calls.size(), 7U);
    EXPECT_EQ(calls[6], "document.Sections(1).Headers(1).Range#2.Delete(missing, missing) -> 1")
        << "the header is emptied first";
    EXPECT_EQ(calls[7], "document.Sections(1).Headers(1).Range.Start = 0") << "then the earlier writer ends";
    client->insertText(L"second"_b);
    client->endHeader();
    EXPECT_THAT(client->insertText(L"body"_b), isHresult(S_OK));
    EXPECT_EQ(documentText(), "body");
    EXPECT_EQ(headerText(), "second");
}

// A header's writer knows of one section: begun again from inside, it is the first section's header.
TEST_F(HeaderFooterTest, ReplacesTheWriterAndKeepsTheTextInTheEarlierHeader)
{
    client->insertText(L"one"_b);
    client->insertPageBreak();
    client->startHeader();
    client->insertText(L"of the second"_b);
    EXPECT_THAT(client->startHeader(), isHresult(S_OK));
    client->insertText(L"of the first"_b);
    client->endHeader();
    EXPECT_EQ(headerText(1), "of the first");
    EXPECT_EQ(headerText(2), "of the second");
}

// The header has been emptied when the earlier writer is to format what it had written there.
TEST_F(HeaderFooterTest, FailsToBeginAgainInAHeaderWithText)
{
    client->startHeader();
    client->insertText(L"first"_b);
    word.clearTranscript();
    EXPECT_EQ(outcome([&] { return client->startHeader(); }),
              "QdxException: startHeader\nCOMERROR 0x800a1200\nUnknown error 0x800A1200");
    const Lines calls = takeTranscript();
    ASSERT_EQ(calls.size(), 9U);
    EXPECT_LINES(Lines(calls.begin() + 6, calls.end()),
                 (Lines{"document.Sections(1).Headers(1).Range#2.Delete(missing, missing) -> 1",
                        "document.Sections(1).Headers(1).Range.Start = 0",
                        "document.Sections(1).Headers(1).Range.End = 5 !! 0x800a1200"}));
    EXPECT_EQ(headerText(), "");
    client->insertText(L"body"_b);
    EXPECT_EQ(documentText(), "body") << "content goes to the body again";

    EXPECT_THAT(client->startHeader(), isHresult(S_OK));
    client->insertText(L"second"_b);
    client->endHeader();
    EXPECT_EQ(headerText(), "second");
}

TEST_F(HeaderFooterTest, EndHeaderLeavesAFooterThatIsBeingBuiltUnfinished)
{
    client->startFooter();
    client->insertText(L"foot"_b);
    word.clearTranscript();
    EXPECT_THAT(client->endHeader(), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(), Lines());
    client->insertText(L"body"_b);
    EXPECT_EQ(documentText(), "body");
    EXPECT_EQ(footerText(), "foot");
    word.clearTranscript();
    EXPECT_THAT(client->endFooter(), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(),
                 join(styleRunApplied(0, 4, "-33", normalFont, "document.Sections(1).Footers(1).Range"),
                      Lines{"document.UndoClear()"}));
}

TEST_F(HeaderFooterTest, EndWithoutStartTouchesNothing)
{
    EXPECT_THAT(client->endHeader(), isHresult(S_OK));
    EXPECT_THAT(client->endFooter(), isHresult(S_OK));
    EXPECT_THAT(client->endFooter(), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(), Lines());
    client->insertText(L"body"_b);
    EXPECT_EQ(documentText(), "body");
}

TEST_F(HeaderFooterTest, BeginsASectionWhereThePageBrokeLast)
{
    client->insertText(L"one"_b);
    client->insertPageBreak();
    client->insertText(L"two"_b);
    client->startHeader();
    client->insertText(L"second"_b);
    client->endHeader();
    EXPECT_EQ(document().sectionCount(), 2);
    EXPECT_EQ(headerText(1), "");
    EXPECT_EQ(headerText(2), "second");
    EXPECT_EQ(documentText(), "one\ftwo");

    client->startFooter(); // no page break since
    client->insertText(L"foot"_b);
    client->endFooter();
    EXPECT_EQ(document().sectionCount(), 2);
    EXPECT_EQ(footerText(1), "");
    EXPECT_EQ(footerText(2), "foot");

    client->insertText(L" three"_b);
    EXPECT_EQ(documentText(), "one\ftwo three");
}

// The writer that content goes to is asked, and a header's writer knows of one section.
TEST_F(HeaderFooterTest, AFooterBegunInsideAHeaderGoesToTheFirstSection)
{
    client->insertText(L"one"_b);
    client->insertPageBreak();
    client->startHeader();
    client->startFooter();
    client->insertText(L"foot"_b);
    client->endFooter();
    client->endHeader();
    EXPECT_EQ(document().sectionCount(), 2);
    EXPECT_EQ(footerText(1), "foot");
    EXPECT_EQ(footerText(2), "foot") << "linked to the one before";
}

TEST_F(HeaderFooterTest, KeepsTheHeaderOfAnEarlierSection)
{
    client->startHeader();
    client->insertText(L"first"_b);
    client->endHeader();
    client->insertText(L"one"_b);
    client->insertPageBreak();
    client->insertText(L"two"_b);
    client->startHeader();
    client->insertText(L"second"_b);
    client->endHeader();
    EXPECT_EQ(headerText(1), "first");
    EXPECT_EQ(headerText(2), "second");
}

TEST_F(HeaderFooterTest, TakesTablesFontsAndAlignments)
{
    client->startHeader();
    client->startTable();
    client->addRow();
    client->addCell();
    client->insertText(L"left"_b);
    client->addCell();
    client->setFontName(L"Courier New"_b);
    client->insertText(L"right"_b);
    client->endTable();
    client->endHeader();
    EXPECT_EQ(headerText(), "left\r\aright\r\a\r\a ");
    client->startTable();
    client->addRow();
    client->addCell();
    client->insertText(L"body"_b);
    client->endTable();
    EXPECT_EQ(documentText(), "body\r\a\r\a ");
    EXPECT_THAT(client->close(), isHresult(S_OK));
}

TEST_F(HeaderFooterTest, AFailureToStartLeavesContentInTheBody)
{
    client->startHeader();
    const long calls = static_cast<long>(word.transcript().size());
    client->endHeader();
    for (const bool header : {true, false}) {
        for (long call = 1; call <= calls; ++call) {
            SCOPED_TRACE((header ? "header, call " : "footer, call ") + std::to_string(call));
            MirovelSection::clearCache();
            word.failCall(call, refused);
            const std::string got =
                outcome([&] { return header ? client->startHeader() : client->startFooter(); });
            // Failures of the writer's own setStyle are QdxExceptions, which the frame swallows.
            const bool inSetStyle = (call >= 9 && call <= 16) || call > 20;
            EXPECT_EQ(got, inSetStyle
                               ? "0x00000000"
                               : std::string("QdxException: ") + (header ? "startHeader" : "startFooter") +
                                     "\nCOMERROR 0x800a1234\nUnknown error 0x800A1234");
            word.clearFaults();
            word.clearTranscript();
            EXPECT_THAT(client->insertText(L"x"_b), isHresult(S_OK));
            EXPECT_LINES(takeTranscript(), Lines{"body.InsertAfter(\"x\")"});
            EXPECT_THAT(header ? client->endHeader() : client->endFooter(), isHresult(S_OK));
        }
    }
    EXPECT_EQ(documentText(), std::string(static_cast<std::size_t>(2 * calls), 'x'));
    EXPECT_THAT(client->close(), isHresult(S_OK));
}

TEST_F(HeaderFooterTest, AFailureToStartLeavesContentInThePartThatIsOpen)
{
    client->startHeader();
    const long calls = static_cast<long>(word.transcript().size());
    for (const bool header : {true, false}) {
        EXPECT_THAT(header ? client->startHeader() : client->startFooter(),
                    isHresult(S_OK)); // the part that is open
        word.clearTranscript();
        EXPECT_THAT(client->insertText(L"."_b), isHresult(S_OK));
        const Lines inPart = takeTranscript();
        std::string text = ".";
        for (long call = 1; call <= calls; ++call) {
            SCOPED_TRACE((header ? "header open, call " : "footer open, call ") + std::to_string(call));
            MirovelSection::clearCache();
            word.failCall(call, refused);
            outcome([&] { return header ? client->startFooter() : client->startHeader(); });
            EXPECT_FALSE(word.transcript().empty());
            EXPECT_THAT(word.transcript(), testing::Contains(testing::HasSubstr(" !! 0x800a1234")));
            word.clearFaults();
            word.clearTranscript();
            EXPECT_THAT(client->insertText(L"."_b), isHresult(S_OK));
            EXPECT_EQ(takeTranscript(), inPart);
            text += '.';
        }
        EXPECT_EQ(header ? headerText() : footerText(), text);
    }
    EXPECT_EQ(documentText(), "");
}

TEST_F(HeaderFooterTest, AFailureToEndReturnsContentToTheBody)
{
    client->startHeader();
    client->insertText(L"head"_b);
    word.failCall(2, refused);
    EXPECT_EQ(outcome([&] { return client->endHeader(); }), "_com_error 0x800a1234");
    EXPECT_THAT(client->endHeader(), isHresult(S_OK));
    client->insertText(L"body"_b);
    EXPECT_EQ(documentText(), "body");
    EXPECT_EQ(headerText(), "head");
}

TEST_F(HeaderFooterTest, CloseCompletesWhatIsStillBeingBuilt)
{
    client->startHeader();
    client->insertText(L"head"_b);
    client->startFooter();
    client->insertText(L"foot"_b);
    word.clearTranscript();
    EXPECT_THAT(client->close(), isHresult(S_OK));
    const Lines calls = takeTranscript();
    const Lines header =
        join(styleRunApplied(0, 4, "-32", normalFont, "document.Sections(1).Headers(1).Range"),
             Lines{"document.UndoClear()"});
    ASSERT_GT(calls.size(), header.size());
    EXPECT_EQ(calls[2], "document.Sections(1).Headers(1).Range.Style = -32");
    EXPECT_EQ(calls[header.size() + 2], "document.Sections(1).Footers(1).Range.Style = -33");
    EXPECT_THAT(contentOf(documentName()), testing::HasSubstr("head"));
    EXPECT_THAT(contentOf(documentName()), testing::HasSubstr("foot"));
}

} // namespace
