// The front end's side of styles: the intermediate saves, and styles that Word does not know.
#include "FrontEndTest.h"

namespace {

class SetStyleTest : public FrontEndTest
{
protected:
    SetStyleTest() { openDocument(); }

    /// Calls with the style in force, of which Word hears nothing.
    void setStyles(int count)
    {
        for (int i = 0; i < count; ++i)
            ASSERT_THAT(client->setStyle(L"Normal"_b), isHresult(S_OK));
    }
    [[nodiscard]] std::string saveCall(const std::string& name) const
    {
        std::string escaped;
        for (const char c : name)
            escaped += c == '\\' ? "\\\\" : std::string(1, c);
        std::string call = "document.SaveAs(\"" + escaped + "\"";
        for (int i = 0; i < 10; ++i)
            call += ", missing";
        return call + ")";
    }
};

TEST_F(SetStyleTest, SavesAtTheHundredAndFirstAndCountsAnew)
{
    setStyles(100);
    EXPECT_LINES(takeTranscript(), Lines());
    setStyles(1);
    EXPECT_LINES(takeTranscript(), Lines{saveCall(documentName())});
    setStyles(100);
    EXPECT_LINES(takeTranscript(), Lines());
    setStyles(1);
    EXPECT_LINES(takeTranscript(), Lines{saveCall(documentName())});
}

TEST_F(SetStyleTest, SavesBeforeItSetsTheStyle)
{
    setStyles(100);
    client->setStyle(L"Heading 1"_b);
    const Lines calls = takeTranscript();
    ASSERT_GE(calls.size(), 2U);
    EXPECT_EQ(calls[0], saveCall(documentName()));
    EXPECT_EQ(calls[1], "document.Styles.Item(-2) -> document.Styles(-2)");
}

TEST_F(SetStyleTest, CountsOnFromOneDocumentToTheNext)
{
    setStyles(60);
    client->close();
    client->create(bstr(folder.file("b.doc")));
    setStyles(40);
    word.clearTranscript();
    setStyles(1);
    EXPECT_EQ(word.transcript().size(), 1U);
}

TEST_F(SetStyleTest, ReportsAFailedSaveAndSavesNextTime)
{
    setStyles(100);
    word.failCall(1, refused);
    EXPECT_EQ(outcome([&] { return client->setStyle(L"Normal"_b); }),
              "QdxException: Saving document because of style changes\nCOMERROR 0x800a1234\n"
              "Unknown error 0x800A1234");
    word.clearTranscript();
    setStyles(1);
    EXPECT_LINES(takeTranscript(), Lines{saveCall(documentName())});
}

TEST_F(SetStyleTest, CountsWhileAHeaderIsBuiltButLeavesTheHeaderAlone)
{
    client->startHeader();
    word.clearTranscript();
    EXPECT_THAT(client->setStyle(L"Heading 1"_b), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(), Lines());
    setStyles(99);
    EXPECT_LINES(takeTranscript(), Lines());
    setStyles(1);
    EXPECT_LINES(takeTranscript(), Lines{saveCall(documentName())});
    client->endHeader();
    word.clearTranscript();
    EXPECT_THAT(client->setStyle(L"Heading 1"_b), isHresult(S_OK));
    EXPECT_EQ(takeTranscript().front(), "document.Styles.Item(-2) -> document.Styles(-2)");
}

TEST_F(SetStyleTest, KeepsTheOldStyleWhenWordDoesNotKnowTheNewOne)
{
    client->setStyle(L"Heading 1"_b);
    client->insertText(L"a"_b);
    EXPECT_EQ(outcome([&] { return client->setStyle(L"No Such Style"_b); }), "0x00000000");
    EXPECT_EQ(invoke(*client, 12, {L"No Such Style"}).outcome, "0x00000000");
    word.clearTranscript();
    EXPECT_THAT(client->setStyle(L"Heading 1"_b), isHresult(S_OK)); // still in force
    EXPECT_LINES(takeTranscript(), Lines());
}

TEST_F(SetStyleTest, SwallowsWordsRefusalOfAStyle)
{
    word.failCall(1, refused);
    EXPECT_EQ(outcome([&] { return client->setStyle(L"Heading 1"_b); }), "0x00000000");
}

} // namespace
