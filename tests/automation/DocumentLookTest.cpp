// The table style and the heading of the contents that the settings ask for: of composed documents alone.
#include "FrontEndTest.h"

#include "Document.h"
#include "TableFormats.h"

#include <gmock/gmock.h>

#include <windows.h>

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr char missing[] =
    "startTable: the document does not have the table style \"No Such\": check Word/TableStyle; the "
    "table style must be in the template";

class DocumentLookTest : public FrontEndTest, public testing::WithParamInterface<int>
{
protected:
    /// A client whose documents have a table style and a style for the heading of the contents.
    void begin(int compose)
    {
        client = newClient();
        const std::string name = folder.write(
            "styles.dot", "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\froman Times New Roman;}}{\\stylesheet"
                          "{\\s0\\f0\\fs24 Normal;}{\\s90\\f0\\fs40\\b\\sbasedon0 TOC Heading;}"
                          "{\\*\\ts300\\tsrowd\\trbrdrh\\brdrs\\brdrw10\\snext300 Ruled;}}\\pard\\par}");
        setting("Word", "WordTemplateName", name);
        setting("Word", "Compose", std::to_string(compose), 2);
        setting("Log", "Diagnostics", folder.file("events.log"));
    }
    void open()
    {
        start();
        EXPECT_EQ(outcome([&] { return client->create(bstr(documentName())); }), succeeds);
        word.clearTranscript();
    }
    void writeTable(int rows) const
    {
        client->startTable();
        for (int row = 0; row < rows; ++row) {
            client->addRow();
            client->addCell();
            client->insertText(L"a"_b);
            client->addCell();
            client->setFontAttribute(1, VARIANT_TRUE);
            client->insertText(L"b"_b);
            client->setFontAttribute(1, VARIANT_FALSE);
        }
        client->endTable();
        client->insertText(L"behind"_b);
        client->insertEndl();
    }
    /// Of the rows of all tables, in the order in which they stand, when the document is closed.
    std::vector<std::u16string> stylesOfRows()
    {
        std::vector<std::u16string> styles;
        word.model().whenClosing = [&](const standin::model::Document& document) {
            const auto story = document.mainStory();
            for (std::size_t i = 0; i < story->paragraphCount(); ++i)
                if (const auto& row = story->paragraph(i).format->row)
                    styles.push_back(row->style ? row->style->name() : u"");
        };
        EXPECT_EQ(outcome([&] { return client->close(); }), succeeds);
        word.model().whenClosing = nullptr;
        return styles;
    }
    /// "style, alignment: text" of the first paragraphs, when the document is closed.
    std::vector<std::u16string> firstParagraphs(std::size_t count)
    {
        std::vector<std::u16string> paragraphs;
        word.model().whenClosing = [&](const standin::model::Document& document) {
            const auto story = document.mainStory();
            for (std::size_t i = 0; i < count; ++i) {
                const auto paragraph = story->paragraph(i);
                const auto& direct = paragraph.format->properties.alignment;
                paragraphs.push_back(
                    paragraph.format->style->name() + (direct ? u" aligned: " : u": ") +
                    std::u16string(story->text(paragraph.start, paragraph.end - 1)).substr(0, 20));
            }
        };
        EXPECT_EQ(outcome([&] { return client->close(); }), succeeds);
        word.model().whenClosing = nullptr;
        return paragraphs;
    }
    [[nodiscard]] std::string written() const { return diagnosticsOf("events"); }
    /// How often Word was told of the table style.
    std::size_t timesPut()
    {
        return static_cast<std::size_t>(std::ranges::count_if(
            takeTranscript(), [](const std::string& call) { return call.ends_with(".Style = \"Ruled\""); }));
    }
};

TEST_P(DocumentLookTest, TablesGetTheStyleOfTheSetting)
{
    begin(GetParam());
    setting("Word", "TableStyle", "Ruled");
    open();
    for (const int rows : {2, 1, 3})
        writeTable(rows);
    client->startHeader();
    writeTable(1);
    client->endHeader();
    EXPECT_EQ(stylesOfRows(), std::vector<std::u16string>(6, u"Ruled"));
    EXPECT_EQ(timesPut(), 4U) << "once for each table";
}

TEST_P(DocumentLookTest, ATableThatIsWrittenInPiecesHasTheStyleInAllOfIts)
{
    begin(GetParam());
    setting("Word", "TableStyle", "Ruled");
    open();
    client->startTable();
    client->addRow();
    client->addCell();
    client->insertText(L"a"_b);
    client->insertFile(bstr(folder.write("in-cell.txt", "text")), 0);
    client->addRow();
    client->addCell();
    client->insertText(L"b"_b);
    client->endTable();
    EXPECT_EQ(stylesOfRows(), std::vector<std::u16string>(2, u"Ruled"));
    EXPECT_EQ(timesPut(), 1U);
}

TEST_P(DocumentLookTest, TablesAreAsWordMakesThemWithoutTheSetting)
{
    begin(GetParam());
    open();
    writeTable(2);
    EXPECT_EQ(stylesOfRows(), std::vector<std::u16string>(2, u""));
    EXPECT_EQ(timesPut(), 0U);
}

TEST_P(DocumentLookTest, ATableStyleThatTheDocumentLacksIsToldOnce)
{
    // A paragraph style of that name is none for tables.
    for (const char* const name : {"No Such", "Heading 1", "TOC Heading"})
        for (const bool isStrict : {false, true}) {
            const testing::ScopedTrace trace(__FILE__, __LINE__,
                                             name + std::string(isStrict ? " strict" : ""));
            begin(GetParam());
            setting("Word", "TableStyle", name);
            setting("Word", "Strict", isStrict ? "1" : "0", 3);
            open();
            std::string text = missing;
            text.replace(text.find("No Such"), 7, name);
            EXPECT_EQ(outcome([&] { return client->startTable(); }),
                      isStrict ? "QdxException: " + text : succeeds);
            client->addRow();
            client->addCell();
            client->endTable();
            EXPECT_EQ(outcome([&] { return client->startTable(); }), succeeds);
            EXPECT_EQ(stylesOfRows(), std::vector<std::u16string>(2, u""));
            EXPECT_THAT(
                written(),
                HasSubstr("\tstartTable\tNothing done: the document does not have the table style \"" +
                          std::string(name) +
                          "\"\t-\t-\t-\tcheck Word/TableStyle; the table style "
                          "must be in the template"));
        }
}

TEST_P(DocumentLookTest, AWordThatDoesNotAnswerForTheStyleIsAFailureAndIsAskedAgain)
{
    begin(GetParam());
    setting("Word", "TableStyle", "Ruled");
    setting("Word", "BusyTimeout", "0", 2);
    open();
    word.failCall(1, E_FAIL);
    EXPECT_EQ(outcome([&] { return client->startTable(); }).substr(0, 10), "_com_error");
    client->addRow();
    client->addCell();
    client->insertText(L"a"_b);
    client->endTable();
    writeTable(1);
    EXPECT_EQ(stylesOfRows(), std::vector<std::u16string>(2, u"Ruled"));
}

TEST_P(DocumentLookTest, TheContentsHeadingIsThatOfTheSettingInTheStyleForIt)
{
    begin(GetParam());
    setting("Word", "TOCTitle", "Inhalt");
    open();
    client->insertTOC();
    EXPECT_EQ(firstParagraphs(2),
              (std::vector<std::u16string>{u"TOC Heading: Inhalt", u"Normal: \x13 TOC \\o \"1-9\" \\f \\h"}));
}

TEST_P(DocumentLookTest, TheContentsHeadingIsCentredWhereThereIsNoStyleForIt)
{
    begin(GetParam());
    setting("Word", "WordTemplateName", "");
    open();
    client->insertTOC();
    client->insertText(L"text"_b);
    const auto found = firstParagraphs(2);
    EXPECT_EQ(found,
              (std::vector<std::u16string>{u"Normal aligned: Table of Contents", u"Normal aligned: "}));
    EXPECT_THAT(written(),
                HasSubstr("\tinsertTOC\tNothing done: the heading of the contents is centred, without the "
                          "style \"TOC Heading\"\t"));
}

TEST_P(DocumentLookTest, AnEmptyTitleIsNoParagraph)
{
    begin(GetParam());
    setting("Word", "TOCTitle", "");
    open();
    client->insertText(L"in front"_b);
    client->insertTOC();
    EXPECT_EQ(firstParagraphs(1), (std::vector<std::u16string>{u"Normal: in front"}));
    EXPECT_THAT(takeTranscript(), Not(testing::Contains(HasSubstr("TOC Heading"))));
}

INSTANTIATE_TEST_SUITE_P(Composing, DocumentLookTest, testing::Values(1, 2));

TEST_F(DocumentLookTest, TheCountingWriterKnowsNeither)
{
    std::size_t calls[2] = {};
    for (const bool isSet : {false, true}) {
        begin(0);
        if (isSet) {
            setting("Word", "TableStyle", "Ruled");
            setting("Word", "TOCTitle", "Inhalt");
        }
        open();
        client->insertTOC();
        writeTable(2);
        EXPECT_EQ(outcome([&] { return client->close(); }), succeeds);
        const Lines transcript = takeTranscript();
        calls[isSet] = transcript.size();
        for (const char* const name : {"Ruled", "Inhalt", "TOC Heading"})
            EXPECT_THAT(transcript, Not(testing::Contains(HasSubstr(name))));
        client->stop();
    }
    EXPECT_EQ(calls[0], calls[1]);
    EXPECT_GT(calls[0], 50U);
}

} // namespace
