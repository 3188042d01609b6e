// The setting "Word"/"Compose" at the front end: what the stories of one composed document know of each
// other, and text in all characters.
#include "FrontEndTest.h"

#include "Bookmarks.h"
#include "Document.h"
#include "Hyperlink.h"
#include "Section.h"
#include "Story.h"
#include "Table.h"
#include "TableCell.h"

namespace {

namespace model = standin::model;

using StoryPtr = std::shared_ptr<model::Story>;

constexpr short integer = 2;

class ComposedSessionTest : public FrontEndTest, public testing::WithParamInterface<const char*>
{
protected:
    ComposedSessionTest()
    {
        setting("Word", "Compose", GetParam(), integer);
        openDocument();
        document_ = word.model().documents().front();
    }
    void TearDown() override
    {
        document_.reset();
        FrontEndTest::TearDown();
    }

    /// Completes the writer's pending work. The document stays open in Word, to be looked at.
    void complete() const { client->create(bstr(folder.file("next.doc"))); }

    StoryPtr body() const { return document_->mainStory(); }
    StoryPtr header(int section = 1) const { return story(model::Section::Part::header, section); }
    StoryPtr footer(int section = 1) const { return story(model::Section::Part::footer, section); }

    /// What stands in the story, each link as `[text>target]`.
    static std::u16string shown(const StoryPtr& story)
    {
        std::u16string text(story->text(0, story->length() - 1));
        const auto links = model::hyperlinksIn(model::LiveRange(story, 0, story->length()));
        for (auto link = links.rbegin(); link != links.rend(); ++link) {
            const model::LiveRange range = link->range();
            text.replace(static_cast<std::size_t>(range.start()),
                         static_cast<std::size_t>(range.end() - range.start()),
                         u'[' + link->textToDisplay() + u'>' + link->target().address +
                             link->target().subAddress + u']');
        }
        return text;
    }

    std::shared_ptr<model::Document> document_;

private:
    StoryPtr story(model::Section::Part part, int section) const
    {
        return document_->section(section)->story(part, model::HeaderFooterIndex::primary);
    }
};

// With fragments the writer has asked for the page by then.
TEST_P(ComposedSessionTest, GivesTablesTheWidthThatTheirPagesHave)
{
    const auto writeTable = [this] {
        client->startTable();
        client->addRow();
        client->addCell();
        for (const bool isBold : {true, false, true, false, true, false, true}) { // worth a fragment
            client->setFontAttribute(1, isBold ? VARIANT_TRUE : VARIANT_FALSE);
            client->insertText(L"a"_b);
        }
        client->endTable();
        client->insertText(L"b"_b);
        client->insertPageBreak();
        client->startHeader();
        client->endHeader();
        client->insertText(L"c"_b);
    };
    writeTable();
    client->insertFile(bstr(folder.write("empty.txt", "")), 0);
    client->setOrientation(1);
    writeTable();
    complete();
    const std::vector<model::Table> tables = model::tablesOf({body(), 0, body()->length()});
    ASSERT_EQ(tables.size(), 2U);
    constexpr float padding = 10.8F; // of cells, which stand out of the text
    EXPECT_EQ(tables[0].cell(1, 1).format().width, 432 + padding);
    EXPECT_EQ(tables[1].cell(1, 1).format().width, 792 - 130 - 72 + padding);
}

TEST_P(ComposedSessionTest, DrawsLinksToTagsOfAllWriters)
{
    client->insertXref(L"to header"_b, L"in header"_b);
    client->startHeader();
    client->insertTag(L"in header"_b);
    client->insertText(L"head "_b);
    client->insertXref(L"to body"_b, L"in body"_b);
    client->endHeader();
    client->startFooter();
    client->insertXref(L"to header"_b, L"in header"_b);
    client->insertText(L" "_b);
    client->insertXref(L"to body"_b, L"in body"_b);
    client->endFooter();
    client->insertText(L" and "_b);
    client->insertTag(L"in body"_b);
    client->insertText(L"more"_b);
    complete();
    EXPECT_EQ(shown(body()), u"[to header>b1] and more");
    EXPECT_EQ(shown(header()), u"head [to body>b2]");
    EXPECT_EQ(shown(footer()), u"[to header>b1] [to body>b2]");
    EXPECT_EQ(document_->bookmarks().find(u"b1")->range().storyPtr(), header());
    EXPECT_EQ(document_->bookmarks().find(u"b2")->range().storyPtr(), body());
}

TEST_P(ComposedSessionTest, LeavesLinksToTagsThatNeverComeAsText)
{
    client->startHeader();
    client->insertXref(L"nowhere"_b, L"never"_b);
    client->endHeader();
    complete();
    EXPECT_EQ(shown(header()), u"nowhere");
}

TEST_P(ComposedSessionTest, GoesOnInAHeaderThatIsStillBeingWritten)
{
    client->startHeader();
    client->insertText(L"one "_b);
    client->setFontAttribute(1, VARIANT_TRUE);
    client->startFooter();
    client->insertText(L"foot"_b);
    client->startHeader();
    client->insertText(L"two"_b);
    client->endHeader();
    client->insertText(L"body"_b);
    complete();
    EXPECT_EQ(shown(header()), u"one two");
    EXPECT_EQ(shown(footer()), u"foot");
    EXPECT_EQ(shown(body()), u"body");
}

TEST_P(ComposedSessionTest, ReplacesAHeaderThatWasEndedAndForgetsItsLinks)
{
    client->startHeader();
    client->insertXref(L"a long label of a link"_b, L"tag"_b);
    client->endHeader();
    client->startHeader();
    client->insertText(L"x"_b);
    client->endHeader();
    client->insertTag(L"tag"_b);
    complete();
    EXPECT_EQ(shown(header()), u"x");
}

TEST_P(ComposedSessionTest, BeginsAReplacedHeaderWithoutItsFormatting)
{
    client->startHeader();
    client->setTextAlign(2);
    client->insertText(L"x"_b);
    client->endHeader();
    client->startHeader();
    client->insertText(L"y"_b);
    client->endHeader();
    complete();
    EXPECT_EQ(model::LiveRange(header(), 0, 1).paragraphFormat().alignment, model::Alignment::left);
}

TEST_P(ComposedSessionTest, MovesATagThatAnotherWriterPlacesAgain)
{
    client->insertTag(L"tag"_b);
    client->insertText(L"a long text in the body"_b);
    client->startHeader();
    client->insertText(L"ab"_b);
    client->insertTag(L"tag"_b);
    client->insertText(L"cd"_b);
    client->endHeader();
    complete();
    const model::LiveRange place = document_->bookmarks().find(u"b1")->range();
    EXPECT_EQ(place.storyPtr(), header());
    EXPECT_EQ(place.start(), 2);
    EXPECT_EQ(place.end(), 2);
}

TEST_P(ComposedSessionTest, TakesTheBodysLastPageBreakFromInsideAHeaderToo)
{
    client->insertText(L"one"_b);
    client->insertPageBreak();
    client->startHeader();
    client->insertText(L"head"_b);
    client->startFooter();
    client->insertText(L"foot"_b);
    client->endFooter();
    client->endHeader();
    client->insertText(L"two"_b);
    complete();
    ASSERT_EQ(document_->sectionCount(), 2);
    EXPECT_EQ(shown(header(2)), u"head");
    EXPECT_EQ(shown(footer(2)), u"foot");
    EXPECT_EQ(shown(footer(1)), u"");
    EXPECT_EQ(shown(body()), u"one\ftwo");
}

TEST_P(ComposedSessionTest, KeepsEveryCharacterOfAnchorsAndTags)
{
    client->insertText(L"\x3b1<a href=\"\x3b2\">\x3b3</a>\x3b4<a href=\"\x3b5\">\x3b6</a>\x3b7"_b);
    client->insertTag(L"\x3b2"_b);
    client->insertEndl();
    client->insertTag(L"\x3b5"_b);
    complete();
    EXPECT_EQ(shown(body()), u"\x3b1[\x3b3>b1]\x3b4[\x3b6>b2]\x3b7\r");
}

TEST_P(ComposedSessionTest, EchoesAnchorsInTheCodePage)
{
    trace(10);
    client->insertText(L"<a href=\"http://a.example/\">\xe4\x3b1</a>\xe4\x3b2"_b);
    EXPECT_THAT(log(), testing::HasSubstr("mirovel->insertXref(\"\xe4?\",\"http://a.example/\");\r\n"
                                          "mirovel->insertText(\"\xe4?\");\r\n"));
}

/// What a composing writer puts off, the counting one does at once.
TEST_P(ComposedSessionTest, ReadsTheSettingAtCreate)
{
    setting("Word", "Compose", "0", integer);
    client->insertTag(L"tag"_b);
    EXPECT_LINES(takeTranscript(), Lines());
    client->close();

    openDocument();
    setting("Word", "Compose", GetParam(), integer);
    client->insertTag(L"tag"_b);
    EXPECT_THAT(takeTranscript(), testing::Contains(testing::HasSubstr(".Add(\"b1\", missing)")));
}

/// Its styles may have had other fonts in an earlier document of this process.
TEST_P(ComposedSessionTest, AsksEachDocumentForTheFontsOfItsStyles)
{
    const auto writeHeading = [this] {
        client->setStyle(L"Heading 1"_b);
        client->setFontSize(16);
        client->insertText(L"heading"_b);
    };
    writeHeading();
    client->close();
    document_.reset();

    openDocument();
    document_ = word.model().documents().front();
    document_->styles().find(u"Heading 1")->font.size = 33.0F;
    writeHeading();
    complete();
    EXPECT_EQ(model::LiveRange(body(), 0, 7).font().size, 16.0F);
}

std::string nameOfPen(const testing::TestParamInfo<const char*>& info)
{
    return info.param == std::string_view("1") ? "Typed" : "Fragments";
}

// A client that takes no notice goes on, and what it says belongs to one document.
TEST_P(ComposedSessionTest, StaysWithItsDocumentWhenTheNextOneCannotBeMade)
{
    document_.reset();
    client->close();
    bool isMade = false;
    bool isLeft = false; // complete, and its writer gone
    for (long call = 1; !isMade && !isLeft; ++call) {
        SCOPED_TRACE(call);
        const std::string file = folder.file("document" + std::to_string(call) + ".doc");
        const std::string next = folder.file("next" + std::to_string(call) + ".doc");
        client->create(bstr(file));
        const auto document = word.model().documents().front();
        client->insertText(L"first "_b);
        word.failCall(call, E_ACCESSDENIED);
        isMade = outcome([&] { return client->create(bstr(next)); }) == "0x00000000";
        word.clearFaults();
        isLeft = outcome([&] { return client->insertText(L"second"_b); }) != "0x00000000";
        if (isMade || isLeft)
            break;
        EXPECT_EQ(outcome([&] { return client->close(); }), "0x00000000");
        EXPECT_EQ(document->mainStory()->text(0, document->mainStory()->length() - 1), u"first second");
        EXPECT_TRUE(document->isClosed());
        EXPECT_NE(contentOf(file).find("first second"), std::string::npos);
    }
    EXPECT_TRUE(isLeft) << "Each call in front was made to fail.";
}

INSTANTIATE_TEST_SUITE_P(Pens, ComposedSessionTest, testing::Values("1", "2"), nameOfPen);

} // namespace
