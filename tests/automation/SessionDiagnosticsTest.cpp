// When an object's diagnostics are on, and what they tell.
#include "FrontEndTest.h"

#include "BusyWait.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>

#include <windows.h>

namespace {

using testing::HasSubstr;
using testing::Not;

class SessionDiagnosticsTest : public FrontEndTest
{
protected:
    [[nodiscard]] std::string written(const std::string& stem = "events") const
    {
        return diagnosticsOf(stem);
    }

    [[nodiscard]] std::string name(const std::string& file = "events.log") const { return folder.file(file); }
};

TEST_F(SessionDiagnosticsTest, AreOffByDefault)
{
    openDocument();
    EXPECT_EQ(written(), "(no file)");
}

TEST_F(SessionDiagnosticsTest, BeginWhenTheObjectIsMade)
{
    const Setting setting("Log", "Diagnostics", name());
    IDocumentPtr other = newClient();
    EXPECT_THAT(written(), HasSubstr("\tObject made\t"));
    EXPECT_THAT(written(), Not(HasSubstr("\tObject released\t")));
    other = nullptr;
    EXPECT_THAT(written(), HasSubstr("\tObject released\t"));
}

TEST_F(SessionDiagnosticsTest, FollowTheSettingAtCreate)
{
    start();
    const Setting setting("Log", "Diagnostics", name());
    EXPECT_EQ(written(), "(no file)");
    client->create(bstr(documentName()));
    EXPECT_NE(written(), "(no file)");
}

TEST_F(SessionDiagnosticsTest, CountTheSessionsOwnWord)
{
    start();
    setting("Log", "Diagnostics", name("own.log"));
    const Setting forAll("Log", "Diagnostics", name());
    client->create(bstr(documentName()));
    EXPECT_NE(written("own"), "(no file)");
    EXPECT_EQ(written(), "(no file)");
}

TEST_F(SessionDiagnosticsTest, TellOfATraceLogThatCannotBeWritten)
{
    const Setting on("Log", "Diagnostics", name());
    const IDocumentPtr other = newClient();
    const std::string log = folder.file("no such folder\\trace.log");
    other->overrideRegistry(L"Log"_b, L"LogName"_b, bstr(log), 1);
    other->trace(10);
    EXPECT_THAT(written(), HasSubstr("\tCannot open trace log " + log + " "));
}

/// The lines of a session, each without what changes from run to run.
class SessionEventsTest : public SessionDiagnosticsTest
{
protected:
    void begin(int compose = 0) const
    {
        setting("Log", "Diagnostics", name());
        setting("Word", "Compose", std::to_string(compose), 2);
    }

    /// What is worth a fragment.
    void writeMuch() const
    {
        for (int i = 0; i < 20; ++i) {
            client->setStyle(i % 2 ? L"Heading 1"_b : L"Normal"_b);
            client->setFontAttribute(1, i % 3 ? VARIANT_TRUE : VARIANT_FALSE);
            client->insertText(L"abc"_b);
        }
        client->insertEndl();
        client->insertText(L"end"_b);
    }

    /// Severity, method and what follows: "info create Document opened".
    [[nodiscard]] Lines events() const
    {
        Lines events;
        std::istringstream lines(written());
        for (std::string line; std::getline(lines, line);) {
            Lines fields;
            std::istringstream stream(line);
            for (std::string field; std::getline(stream, field, '\t');)
                fields.push_back(field);
            EXPECT_EQ(fields.size(), 12U) << line;
            if (fields.size() == 12)
                events.push_back(fields[3] + " " + fields[6] + " " + fields[7]);
        }
        return events;
    }
};

TEST_F(SessionEventsTest, TellTheLifeOfADocument)
{
    begin();
    openDocument();
    client->insertText(L"abc"_b);
    client->close();
    client->stop();
    client = nullptr;
    using testing::MatchesRegex;
    EXPECT_THAT(events(),
                testing::ElementsAre(
                    "info start Word started, version 9.0, build 9.0.0",
                    MatchesRegex("info create Settings: Log/LogName=.*Log/Diagnostics=.*\\(override\\);.*"
                                 "Word/TOCLevel=50 \\(default\\);.*"),
                    "info create Template chosen: Word's own default",
                    MatchesRegex("info create Document saved in \\d+ ms: .*test.doc"),
                    "info create Document opened",
                    MatchesRegex("info close Document saved in \\d+ ms: .*test.doc"),
                    "info close Document closed", "info stop Word ended", "info - Object released"));
}

TEST_F(SessionEventsTest, TellWhereASettingComesFrom)
{
    const Setting users("Word", "TOCLevel", "3");
    begin(1);
    openDocument();
    EXPECT_THAT(written(), HasSubstr(" Word/TOCLevel=3 (user);"));
    EXPECT_THAT(written(), HasSubstr(" Word/Compose=1 (override);"));
    EXPECT_THAT(written(), HasSubstr(" Word/BusyTimeout=30 (default);"));
}

TEST_F(SessionEventsTest, TellOfFlushes)
{
    for (const int compose : {1, 2}) {
        begin(compose);
        openDocument();
        writeMuch();
        client->close();
        client->stop();
        EXPECT_THAT(
            events(),
            testing::Contains(testing::MatchesRegex(
                compose == 1 ? "info close Brought into Word: \\d+ operations, 0 fragments, in \\d+ ms"
                             : "info close Brought into Word: \\d+ operations, 1 fragments, in \\d+ ms")));
    }
}

TEST_F(SessionEventsTest, TellOfAFragmentThatWordRefuses)
{
    begin(2);
    openDocument();
    writeMuch();
    takeTranscript();
    client->close();
    const Lines calls = takeTranscript();
    const auto read = std::ranges::find_if(
        calls, [](const std::string& call) { return call.find(".InsertFile(") != call.npos; });
    ASSERT_NE(read, calls.end());
    client->create(bstr(documentName()));
    writeMuch();
    word.failCall(static_cast<long>(read - calls.begin()) + 1, static_cast<HRESULT>(0x800A1420));
    EXPECT_THAT(client->close(), isHresult(S_OK));
    EXPECT_THAT(events(), testing::Contains(testing::MatchesRegex(
                              "warning close Word did not take a fragment of \\d+ bytes; .*")));
    EXPECT_THAT(events(),
                testing::Contains(testing::StartsWith("warning close Word call failed: Range.InsertFile(")));
}

TEST_F(SessionEventsTest, TellOfAFailedCallWithItsArguments)
{
    begin();
    openDocument();
    word.failCall(1, static_cast<HRESULT>(0x800A1499));
    EXPECT_THROW(client->insertText(L"abc"_b), QdxException);
    EXPECT_THAT(written(), HasSubstr("\twarning\t"));
    EXPECT_THAT(
        written(),
        HasSubstr("\tinsertText\tWord call failed: Range.InsertAfter(\"abc\")\t0x800a1499\tThe document "
                  "name or path is not valid.\tMicrosoft Word\tThe document's name or path is not valid. "));
    EXPECT_THAT(events(), testing::Contains(testing::StartsWith(
                              "error insertText The client is told: insertText COMERROR 0x800a1499 ")));
}

TEST_F(SessionEventsTest, TellOfAWordThatIsNotThere)
{
    installed.reset();
    begin();
    EXPECT_THROW(client->start(), QdxException);
    EXPECT_THAT(written(),
                testing::ContainsRegex("\terror\t#.*\tstart\tThe client is told: Cannot open Word .*"
                                       "\t0x800401f3\t-\t-\tWord is not registered on this computer. "));
}

TEST_F(SessionEventsTest, TellOfABusyWord)
{
    begin();
    openDocument();
    const Word::BusyWaitOverride time;
    word.rejectCall(1, RPC_E_CALL_REJECTED, 3);
    EXPECT_THAT(client->insertText(L"abc"_b), isHresult(S_OK));
    EXPECT_THAT(events(), testing::Contains("warning insertText Word is busy; repeating Range.InsertAfter"));
    EXPECT_THAT(events(),
                testing::Contains(testing::MatchesRegex(
                    "info insertText Range.InsertAfter went through after 4 attempts and \\d+ ms")));
}

TEST_F(SessionEventsTest, TellOfAWordThatIsLeftRunning)
{
    begin();
    openDocument();
    word.application()->PutVisible(VARIANT_TRUE);
    client = nullptr;
    EXPECT_THAT(events(), testing::Contains("warning Release Word is left running: its window is visible"));
}

TEST_F(SessionEventsTest, ClaimNothingOfAWordThatDoesNotAnswer)
{
    begin();
    openDocument();
    word.failFromCall(1, static_cast<HRESULT>(0x800706BA));
    client = nullptr;
    EXPECT_THAT(events(), testing::Contains("warning Release Word is left as it is: it does not answer"));
    EXPECT_THAT(events(), testing::Not(testing::Contains(testing::HasSubstr("left running"))));
    word.clearFaults();
    word.application()->Quit();
}

TEST_F(SessionEventsTest, TellOfWhatFailsWhileTheObjectIsReleased)
{
    begin();
    openDocument();
    word.failFromCall(2, static_cast<HRESULT>(0x800706BA));
    client = nullptr;
    EXPECT_THAT(events(), testing::Contains(
                              "error close Not told, since the object is being released: Saving document"));
    word.clearFaults();
    word.application()->Quit();
}

TEST_F(SessionEventsTest, TellOfCallsWithoutEffect)
{
    begin();
    EXPECT_THAT(client->setOption(L"a"_b, L"b"_b), isHresult(S_OK));
    EXPECT_THAT(client->pushDirectory(L"a"_b), isHresult(S_OK));
    openDocument();
    EXPECT_THAT(client->start(), isHresult(S_OK));
    EXPECT_THAT(client->insertDiagram(0, 1, 1), isHresult(S_OK));
    for (const char* const method : {"setOption", "pushDirectory", "insertDiagram"})
        EXPECT_THAT(events(), testing::Contains(std::string("info ") + method +
                                                " Nothing done: the call has no effect; it is kept for older "
                                                "clients"));
    EXPECT_THAT(events(), testing::Contains("info start Nothing done: Word has been started already"));
}

TEST_F(SessionEventsTest, AskWordForNothingMoreWhileTheyAreOff)
{
    start();
    const Lines off = takeTranscript();
    client->stop();
    client = newClient();
    begin();
    takeTranscript();
    start();
    Lines on = takeTranscript();
    ASSERT_EQ(on.size(), off.size() + 2);
    EXPECT_THAT(on[1], testing::EndsWith(".Version -> \"9.0\""));
    EXPECT_THAT(on[2], testing::EndsWith(".Build -> \"9.0.0\""));
}

} // namespace
