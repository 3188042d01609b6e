#include "Player.h"
#include "FrontEndTest.h"
#include "LinkedClass.h"

#include "LogReader.h"

namespace replay {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class PlayerTest : public FrontEndTest
{
protected:
    PlayerTest()
    {
        options.settings = {{"Word", "WordTemplateName", ""}, {"Log", "LogName", folder.file("trace.log")}};
    }

    /// `$` stands for the folder.
    Played play(std::string log)
    {
        for (std::size_t at = log.find('$'); at != log.npos; at = log.find('$'))
            log.replace(at, 1, folder.path());
        Player player(
            source, options,
            [this](std::size_t done) {
                called.push_back(done);
                if (atCall && done == callsUntil)
                    atCall();
            },
            [this] { return isInterrupted; });
        return player.play(scriptOf(readLog(log)));
    }

    void expectThatNothingIsLeft()
    {
        EXPECT_TRUE(word.hasQuit());
        EXPECT_THAT(word.model().documents(), IsEmpty());
    }

    LinkedClass source;
    PlayOptions options;
    std::vector<std::size_t> called;
    std::size_t callsUntil = 0;
    std::function<void()> atCall;
    bool isInterrupted = false;
};

constexpr char begin[] = "mirovel->start();\nmirovel->create(\"$\\a.doc\");\n// Page 1\n";
constexpr char end[] = "mirovel->close();\nmirovel->stop();\n";
constexpr char endl[] = "mirovel->insertEndl();\n";

TEST_F(PlayerTest, MakesTheCalls)
{
    const Played played = play(begin + std::string("mirovel->insertText(\"a\");\n") + end);
    EXPECT_EQ(played.calls, 5U);
    EXPECT_THAT(played.failures, IsEmpty());
    EXPECT_FALSE(played.isInterrupted);
    EXPECT_THAT(called, ElementsAre(1, 2, 3, 4, 5));
    EXPECT_THAT(takeTranscript(), Contains(HasSubstr(".InsertAfter(\"a\")")));
    expectThatNothingIsLeft();
}

TEST_F(PlayerTest, TracesOnlyWhereThatIsWanted)
{
    play(begin + std::string(end));
    EXPECT_EQ(log(), "(no file)");
}

TEST_F(PlayerTest, LeavesNoLinesForWhatItSetsItself)
{
    options.level = 10;
    play(begin + std::string(end));
    EXPECT_EQ(log(), logLines({"mirovel->start();", "mirovel->create(\"" + folder.file("a.doc") + "\");",
                               "// Page 1", "mirovel->close();", "mirovel->stop();"}));
}

TEST_F(PlayerTest, SaysTheHeightOfRows)
{
    options.rowHeight = 33;
    play(begin + std::string("mirovel->startTable();\nmirovel->addRow();\nmirovel->setTableRowHeight();\n") +
         end);
    EXPECT_THAT(takeTranscript(), Contains(HasSubstr(".SetHeight(33")));
}

TEST_F(PlayerTest, StopsAtAFailureAndCloses)
{
    callsUntil = 2;
    atCall = [this] { word.failCall(1, E_ACCESSDENIED); };
    const Played played = play(begin + std::string(endl) + "mirovel->insertText(\"never\");\n" + end);
    EXPECT_EQ(played.calls, 3U);
    ASSERT_EQ(played.failures.size(), 1U);
    EXPECT_EQ(played.failures[0].line, 4);
    EXPECT_EQ(played.failures[0].method, "insertEndl");
    EXPECT_THAT(played.failures[0].text, AllOf(HasSubstr("insertEndl"), HasSubstr("COMERROR 0x80070005")));
    EXPECT_THAT(takeTranscript(), Not(Contains(HasSubstr("never"))));
    expectThatNothingIsLeft();
}

TEST_F(PlayerTest, GoesOnBehindAFailureWhereThatIsWanted)
{
    options.goesOn = true;
    callsUntil = 2;
    atCall = [this] { word.failCall(1, E_ACCESSDENIED); };
    const Played played = play(begin + std::string(endl) + "mirovel->insertText(\"still\");\n" + end);
    EXPECT_EQ(played.calls, 6U);
    EXPECT_EQ(played.failures.size(), 1U);
    EXPECT_THAT(takeTranscript(), Contains(HasSubstr("still")));
    expectThatNothingIsLeft();
}

TEST_F(PlayerTest, TellsOfAResultThatIsAFailure)
{
    const Played played = play("mirovel->create(\"$\\a.doc\");\n");
    EXPECT_THAT(played.failures, IsEmpty()); // start is added
    Script script;
    script.steps = {{.call = {.method = Method::create}, .line = 7}};
    const Played failed = Player(
                              source, options, [](std::size_t) {}, [] { return false; })
                              .play(script);
    ASSERT_EQ(failed.failures.size(), 1U);
    EXPECT_EQ(failed.failures[0].line, 7);
    EXPECT_THAT(failed.failures[0].text, HasSubstr("0x80004005"));
}

TEST_F(PlayerTest, ClosesTheDocumentWhenInterrupted)
{
    callsUntil = 3;
    atCall = [this] { isInterrupted = true; };
    const Played played = play(begin + std::string(endl) + "mirovel->insertText(\"never\");\n" + end);
    EXPECT_TRUE(played.isInterrupted);
    EXPECT_EQ(played.calls, 3U);
    const Lines transcript = takeTranscript();
    EXPECT_THAT(transcript, Not(Contains(HasSubstr("never"))));
    EXPECT_THAT(transcript, Contains(HasSubstr(".Quit(")));
    expectThatNothingIsLeft();
}

TEST_F(PlayerTest, LeavesAWordThatAUserSeesButNotTheDocument)
{
    callsUntil = 3;
    atCall = [this] {
        word.application()->PutVisible(VARIANT_TRUE);
        isInterrupted = true;
    };
    play(begin + std::string(endl) + end);
    EXPECT_FALSE(word.hasQuit());
    EXPECT_THAT(word.model().documents(), IsEmpty());
    word.application()->Quit();
}

TEST_F(PlayerTest, CallsAnotherObjectForAnotherClient)
{
    options.level = 10;
    play(begin + std::string("mirovel->start();\nmirovel->create(\"$\\b.doc\");\n") + end);
    EXPECT_EQ(source.made, 2);
    EXPECT_THAT(log(), HasSubstr("b.doc"));
}

TEST_F(PlayerTest, TellsOfMissingFilesInTheBodyWhereTheLogDoes)
{
    options.level = 10;
    const std::string insert = "mirovel->insertFile(\"$\\none.txt\",0);\n";
    const std::string missed = "ERR File not found: " + folder.file("none.txt") + "\r\n";
    play(begin + insert + end);
    EXPECT_THAT(log(), Not(HasSubstr(missed)));
    play(begin + insert + "ERR File not found: x\n" + end);
    EXPECT_THAT(log(), HasSubstr(missed));
}

TEST_F(PlayerTest, ShowsTheLastDocument)
{
    play(begin + std::string(end));
    EXPECT_THAT(opened, IsEmpty());
    options.showsLast = true;
    play(begin + std::string(end));
    EXPECT_THAT(opened, ElementsAre(folder.file("a.doc")));
    word.application()->Quit();
}

TEST_F(PlayerTest, ShowsNothingOfWhatFailed)
{
    options.showsLast = true;
    callsUntil = 2;
    atCall = [this] { word.failCall(1, E_ACCESSDENIED); };
    play(begin + std::string(endl) + end);
    EXPECT_THAT(opened, IsEmpty());
}

TEST_F(PlayerTest, NeedsAnObject)
{
    RegisteredClass none;
    Player player(
        none, options, [](std::size_t) {}, [] { return false; });
    EXPECT_THROW(player.play({}), _com_error);
    EXPECT_THROW(LibraryClass(L"c:\\no\\such.dll"), _com_error);
    EXPECT_THROW(LibraryClass(L"kernel32.dll"), _com_error);
}

} // namespace
} // namespace replay
