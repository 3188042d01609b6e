// Tables as clients build them.
#include "FrontEndTest.h"

namespace {

class TableCallsTest : public FrontEndTest
{
protected:
    TableCallsTest() { openDocument(); }

    void addCell(const wchar_t* text)
    {
        ASSERT_THAT(client->addCell(), isHresult(S_OK));
        ASSERT_THAT(client->insertText(_bstr_t(text)), isHresult(S_OK));
    }

    std::vector<std::pair<const char*, std::function<HRESULT()>>> tableCalls()
    {
        IDocument& m = *client.GetInterfacePtr();
        return {{"startTable", [&m] { return m.startTable(); }},
                {"addRow", [&m] { return m.addRow(); }},
                {"addCell", [&m] { return m.addCell(); }},
                {"endTable", [&m] { return m.endTable(); }},
                {"setTableRowHeight", [&m] { return m.setTableRowHeight(20); }}};
    }
};

TEST_F(TableCallsTest, GoIntoTheDocumentAndItsFile)
{
    trace(10);
    client->startTable();
    client->addRow();
    addCell(L"one");
    addCell(L"two");
    client->addRow();
    addCell(L"three");
    addCell(L"four");
    client->endTable();
    client->insertText(L"behind"_b);
    EXPECT_EQ(documentText(), "one\r\atwo\r\a\r\athree\r\afour\r\a\r\a behind");
    EXPECT_EQ(log(), logLines({"mirovel->startTable();", "mirovel->addRow();", "mirovel->addCell();",
                               "mirovel->insertText(\"one\");", "mirovel->addCell();",
                               "mirovel->insertText(\"two\");", "mirovel->addRow();", "mirovel->addCell();",
                               "mirovel->insertText(\"three\");", "mirovel->addCell();",
                               "mirovel->insertText(\"four\");", "mirovel->endTable();",
                               "mirovel->insertText(\"behind\");"}));
    EXPECT_THAT(client->close(), isHresult(S_OK));
    const std::string file = contentOf(documentName());
    EXPECT_THAT(file, testing::HasSubstr("\\trowd"));
    EXPECT_THAT(file, testing::HasSubstr("four\\cell"));
}

TEST_F(TableCallsTest, AreNotHeardOutOfOrder)
{
    client->addRow();
    client->addCell();
    client->endTable();
    client->setTableRowHeight(20);
    EXPECT_LINES(takeTranscript(), Lines());
    client->startTable();
    word.clearTranscript();
    client->startTable();
    client->addCell();
    EXPECT_LINES(takeTranscript(), Lines());
    client->endTable();
    word.clearTranscript();
    client->endTable();
    client->addRow();
    client->addCell();
    EXPECT_LINES(takeTranscript(), Lines());
}

TEST_F(TableCallsTest, LetFailuresThrough)
{
    client->startTable();
    client->addRow();
    client->addCell();
    client->addCell();
    for (const auto& [name, call] : tableCalls()) {
        word.failFromCall(1, refused);
        const std::string expected = name == std::string("startTable") ? "0x00000000" // one is open
                                                                       : "_com_error 0x800a1234";
        EXPECT_EQ(outcome(call), expected) << name;
        word.clearFaults();
    }
    // Besides, a cell of the first row has been counted that Word has not made.
    EXPECT_EQ(outcome([&] { return client->endTable(); }), "_com_error 0x800a1735");
    EXPECT_THAT(client->close(), isHresult(S_OK));
}

TEST_F(TableCallsTest, AnchorsInCellsBecomeLinks)
{
    client->startTable();
    client->addRow();
    addCell(L"a <a href=\"http://example.org/\">site</a>!");
    client->endTable();
    EXPECT_EQ(documentText(), "a site!\r\a\r\a ");
    word.clearTranscript();
    client->close();
    EXPECT_THAT(takeTranscript(),
                testing::Contains(testing::HasSubstr(", \"http://example.org/\", \"\", missing")));
}

TEST_F(TableCallsTest, ATableThatIsNeverEndedIsSaved)
{
    client->startTable();
    client->addRow();
    addCell(L"one");
    EXPECT_THAT(client->close(), isHresult(S_OK));
    EXPECT_THAT(contentOf(documentName()), testing::HasSubstr("one\\cell"));
}

TEST_F(TableCallsTest, AHeaderMayBeWrittenWhileATableIsOpen)
{
    client->startTable();
    client->addRow();
    addCell(L"one");
    client->startHeader();
    client->insertText(L"head"_b);
    client->addCell(); // of no table
    client->endHeader();
    addCell(L"two");
    client->endTable();
    EXPECT_EQ(documentText(), "one\r\atwo\r\a\r\a ");
}

TEST_F(TableCallsTest, AFontInARowWithoutCellsFailsTheFirstClose)
{
    client->startTable();
    client->addRow();
    client->setFontName(L"Courier New"_b);
    client->insertText(L"only"_b);
    client->endTable();
    EXPECT_EQ(outcome([&] { return client->close(); }),
              "QdxException: Saving document\nCOMERROR 0x800a1735\nUnknown error 0x800A1735");
    EXPECT_THAT(client->close(), isHresult(S_OK));
    EXPECT_THAT(contentOf(documentName()), testing::HasSubstr("only"));
}

TEST_F(TableCallsTest, HeightsThatWordRefusesAreReported)
{
    client->startTable();
    for (const long height : {-1L, -2147483647L - 1, 1585L, 2147483647L})
        EXPECT_EQ(outcome([&] { return client->setTableRowHeight(height); }), "_com_error 0x800a1200")
            << height;
    EXPECT_THAT(client->setTableRowHeight(0), isHresult(S_OK));
    EXPECT_THAT(client->endTable(), isHresult(S_OK));
}

} // namespace
