// What the last Release does: Word that nobody sees ends, Word that the user sees stays.
#include "FrontEndTest.h"

namespace {

class DestructionTest : public FrontEndTest
{
protected:
    void release() { EXPECT_EQ(client.Detach()->Release(), 0U); }
};

TEST_F(DestructionTest, LeavesWordAloneThatWasNeverStarted)
{
    release();
    EXPECT_EQ(word.callCount(), 0);
}

TEST_F(DestructionTest, ClosesTheDocumentAndStopsWordThatNobodySees)
{
    openDocument();
    client->insertText(L"abc"_b);
    trace(10);
    word.clearTranscript();
    release();
    const Lines calls = takeTranscript();
    EXPECT_EQ(calls.front(), "application.Visible -> false");
    EXPECT_THAT(calls, testing::Contains("body.Style = -1"));
    EXPECT_THAT(calls, testing::Contains("document.Close(missing, missing, missing)"));
    EXPECT_EQ(calls.back(), "application.Quit(missing, missing, missing)");
    EXPECT_EQ(log(), logLines({"mirovel->close();", "mirovel->stop();"}));
    EXPECT_THAT(contentOf(documentName()), testing::HasSubstr("abc"));
    EXPECT_TRUE(word.hasQuit());
}

TEST_F(DestructionTest, LeavesWordThatTheUserSeesWithItsDocument)
{
    openDocument();
    client->insertText(L"abc"_b);
    word.application()->PutVisible(VARIANT_TRUE);
    word.clearTranscript();
    release();
    const Lines calls = takeTranscript();
    EXPECT_EQ(calls.front(), "application.Visible -> true");
    EXPECT_THAT(calls, testing::Contains("body.Style = -1")); // the writer completes its work all the same
    EXPECT_THAT(calls, testing::Not(testing::Contains(testing::HasSubstr(".Close("))));
    EXPECT_FALSE(word.hasQuit());
    EXPECT_EQ(word.model().documentCount(), 1);
}

TEST_F(DestructionTest, LeavesWordThatDoesNotSayWhetherTheUserSeesIt)
{
    openDocument();
    client->insertText(L"abc"_b);
    trace(1);
    word.clearTranscript();
    word.failCall(1, refused);
    release();
    const Lines calls = takeTranscript();
    EXPECT_EQ(calls.front(), "application.Visible !! 0x800a1234");
    EXPECT_THAT(calls, testing::Contains("body.Style = -1"));
    EXPECT_THAT(calls, testing::Not(testing::Contains(testing::HasSubstr(".Close("))));
    EXPECT_THAT(calls, testing::Not(testing::Contains(testing::HasSubstr(".SaveAs("))));
    EXPECT_FALSE(word.hasQuit());
    EXPECT_EQ(log(),
              logLines({"Looking for Word's window", "COMERROR 0x800a1234", "Unknown error 0x800A1234"}));
}

TEST_F(DestructionTest, LeavesWordThatShowLastHasShown)
{
    openDocument();
    client->showLast();
    release();
    EXPECT_FALSE(word.hasQuit());
}

TEST_F(DestructionTest, AsksNothingOfWordThatHasBeenStopped)
{
    start();
    client->stop();
    word.clearTranscript();
    release();
    EXPECT_LINES(takeTranscript(), Lines());
}

TEST_F(DestructionTest, TracesErrorsAtLevelOne)
{
    start();
    trace(1);
    word.failFromCall(2, refused); // all but the question whether Word is visible
    RecordedExceptionLog exceptions;
    release();
    EXPECT_EQ(log(), logLines({
                         "Cannot close all Word Documents",
                         "COMERROR 0x800a1234",
                         "Unknown error 0x800A1234",
                         "Stopping Word",
                         "COMERROR 0x800a1234",
                         "Unknown error 0x800A1234",
                     }));
    EXPECT_LINES(exceptions.lines, Lines());
}

TEST_F(DestructionTest, KeepsErrorsToItselfAtLevelZero)
{
    openDocument();
    trace(1);
    trace(0);
    word.failFromCall(2, refused);
    release();
    EXPECT_EQ(log(), "");
}

TEST_F(DestructionTest, ReleasesEverythingWhateverFails)
{
    for (long failing = 1; failing <= 25; ++failing) {
        standin::InProcessWord other;
        installed.reset();
        installed = std::make_unique<standin::ClassRegistration>(other);
        client = newClient();
        setting("Word", "WordTemplateName", "");
        ASSERT_THAT(client->start(), isHresult(S_OK));
        ASSERT_THAT(client->create(bstr(documentName())), isHresult(S_OK));
        client->insertText(L"abc"_b);
        client->startHeader();
        client->insertText(L"head"_b);
        client->startFooter();
        client->insertText(L"foot"_b);
        other.failFromCall(failing, refused);
        release();
        EXPECT_EQ(other.liveObjects(), 0) << failing;
    }
}

TEST_F(DestructionTest, SurvivesWordThatHasGone)
{
    openDocument();
    trace(1);
    word.application()->Quit(Word::integer(0));
    release();
    EXPECT_THAT(log(), testing::HasSubstr("COMERROR 0x80010108\r\n"));
}

} // namespace
