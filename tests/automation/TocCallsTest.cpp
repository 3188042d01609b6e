// The table of contents: which level the settings ask for, and entries that clients mark.
#include "FrontEndTest.h"

namespace {

class TocCallsTest : public FrontEndTest
{
protected:
    /// The heading levels that Word is asked for when the document is closed.
    std::string levelsAtClose()
    {
        EXPECT_THAT(client->insertTOC(), isHresult(S_OK));
        word.clearTranscript();
        EXPECT_THAT(client->close(), isHresult(S_OK));
        for (const std::string& call : takeTranscript())
            if (call.find(".TablesOfContents.Add(") != std::string::npos)
                return call.substr(call.find(", ") + 2, call.find(", missing") - call.find(", ") - 2);
        return "(none)";
    }
};

TEST_F(TocCallsTest, ListsNineLevelsWithoutASetting)
{
    openDocument();
    EXPECT_EQ(levelsAtClose(), "true, 1s, 9s, true");
}

TEST_F(TocCallsTest, ListsTheLevelsOfTheSetting)
{
    setting("Word", "TOCLevel", "3", 2);
    openDocument();
    EXPECT_EQ(levelsAtClose(), "true, 1s, 3s, true");
}

TEST_F(TocCallsTest, ListsMarkedEntriesAloneAtLevelZero)
{
    setting("Word", "TOCLevel", "0", 2);
    openDocument();
    EXPECT_EQ(levelsAtClose(), "false, 1s, 0s, true");
}

TEST_F(TocCallsTest, ASettingThatComesBehindCreateIsNotHeard)
{
    openDocument();
    setting("Word", "TOCLevel", "3", 2);
    EXPECT_EQ(levelsAtClose(), "true, 1s, 9s, true");
}

TEST_F(TocCallsTest, ANegativeLevelFailsTheFirstClose)
{
    setting("Word", "TOCLevel", "-1", 2);
    openDocument();
    client->insertTOC();
    EXPECT_EQ(outcome([&] { return client->close(); }),
              "QdxException: Saving document\nCOMERROR 0x800a1200\nUnknown error 0x800A1200");
    EXPECT_THAT(client->close(), isHresult(S_OK));
    EXPECT_THAT(contentOf(documentName()), testing::HasSubstr("Table of Contents"));
}

TEST_F(TocCallsTest, EntriesAreMarkedAtTheStylesLevel)
{
    openDocument();
    client->insertTOC();
    client->setStyle(L"Heading 2"_b);
    client->startTOCEntry();
    client->insertText(L"Overview"_b);
    word.clearTranscript();
    EXPECT_THAT(client->endTOCEntry(), isHresult(S_OK));
    EXPECT_THAT(takeTranscript(),
                testing::Contains(testing::HasSubstr(R"(, 9, "\"Overview\" \\fC \\l \"2\"", missing))")));
    client->close();
}

TEST_F(TocCallsTest, EntriesWithoutATableOfContentsAreNotHeard)
{
    openDocument();
    client->startTOCEntry();
    client->insertText(L"Overview"_b);
    word.clearTranscript();
    EXPECT_THAT(client->endTOCEntry(), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(), Lines());
}

} // namespace
