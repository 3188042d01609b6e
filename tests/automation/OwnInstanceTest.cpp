// A Word of one's own: nobody else's Word is touched, and of this one only what the client has opened.
#include "FrontEndTest.h"

#include "RunningApplication.h"

#include <optional>

namespace {

constexpr short truth = 3;

class OwnInstanceTest : public FrontEndTest
{
protected:
    OwnInstanceTest() { setting("Word", "OwnInstance", "true", truth); }
    void TearDown() override
    {
        FrontEndTest::TearDown();
        running.reset();
        EXPECT_EQ(others.liveObjects(), 0);
    }

    static Word::_DocumentPtr addDocument(const standin::InProcessWord& other, const wchar_t* text)
    {
        const Word::_DocumentPtr document = other.application()->GetDocuments()->Add();
        document->GetContent()->InsertAfter(text);
        return document;
    }
    Lines stop()
    {
        word.clearTranscript();
        EXPECT_THAT(client->stop(), isHresult(S_OK));
        return takeTranscript();
    }

    standin::InProcessWord others;
    std::optional<standin::RunningApplication> running{std::in_place, *others.application()};
    const std::string quit = "application.Quit(missing, missing, missing)";
    const std::string closeAndSave = ".Close(-1, missing, missing)";
};

TEST_F(OwnInstanceTest, IsStartedThoughAnotherWordRuns)
{
    start();
    EXPECT_EQ(installed->created(), 1);
    EXPECT_LINES(takeTranscript(), Lines{"application.Documents -> application.Documents"});
    EXPECT_TRUE(others.transcript().empty());
}

TEST_F(OwnInstanceTest, IsNotStartedUnlessAskedFor)
{
    setting("Word", "OwnInstance", "false", truth);
    start();
    EXPECT_EQ(installed->created(), 0);
    EXPECT_EQ(others.callCount(), 1);
}

TEST_F(OwnInstanceTest, IsStartedWhenTheMachineSaysSo)
{
    const Setting stored("Word", "OwnInstance", "1");
    client = newClient();
    start();
    EXPECT_EQ(installed->created(), 1);
}

TEST_F(OwnInstanceTest, IsStartedOnceForEachStart)
{
    start();
    start();
    EXPECT_EQ(installed->created(), 1);
    EXPECT_THAT(client->stop(), isHresult(S_OK));
    start();
    EXPECT_EQ(installed->created(), 2);
}

TEST_F(OwnInstanceTest, EndsAloneWithStop)
{
    {
        const Word::_DocumentPtr document = addDocument(others, L"a user's");
        openDocument();
        client->insertText(L"abc"_b);
        EXPECT_THAT(client->close(), isHresult(S_OK));
        others.clearTranscript();
        EXPECT_LINES(stop(), (Lines{"application.Documents.Count -> 0", quit}));
        EXPECT_TRUE(word.hasQuit());
        EXPECT_TRUE(others.transcript().empty());
        EXPECT_EQ(others.model().documentCount(), 1);
        EXPECT_EQ(document->GetSaved(), VARIANT_FALSE);
    }
    EXPECT_FALSE(others.hasQuit());
}

TEST_F(OwnInstanceTest, SavesAndClosesWhatTheClientLeftOpen)
{
    openDocument();
    client->insertText(L"first"_b);
    ASSERT_THAT(client->create(bstr(folder.file("second.doc"))), isHresult(S_OK));
    client->insertText(L"second"_b);
    EXPECT_LINES(stop(), (Lines{"document" + closeAndSave, "document2" + closeAndSave,
                                "application.Documents.Count -> 0", quit}));
    EXPECT_THAT(contentOf(documentName()), testing::HasSubstr("first"));
    EXPECT_THAT(contentOf(folder.file("second.doc")), testing::HasSubstr("second"));
}

TEST_F(OwnInstanceTest, StaysWithTheDocumentsOfOthers)
{
    openDocument();
    {
        const Word::_DocumentPtr document = addDocument(word, L"a user's");
        EXPECT_LINES(stop(), (Lines{"document" + closeAndSave, "application.Documents.Count -> 1"}));
        EXPECT_FALSE(word.hasQuit());
        EXPECT_EQ(word.model().documentCount(), 1);
        EXPECT_EQ(document->GetSaved(), VARIANT_FALSE);
        EXPECT_EQ(outcome([&] { return client->create(bstr(documentName())); }), "0x80004005") << "stopped";
    }
}

TEST_F(OwnInstanceTest, PassesOverWhatSomebodyElseHasClosed)
{
    openDocument();
    ASSERT_THAT(client->create(bstr(folder.file("second.doc"))), isHresult(S_OK));
    word.application()->GetDocuments()->Item(Word::integer(1))->Close();
    EXPECT_EQ(stop().back(), quit);
    EXPECT_TRUE(word.hasQuit());
}

TEST_F(OwnInstanceTest, TellsWhatItCannotClose)
{
    openDocument();
    word.failCall(1, E_ACCESSDENIED);
    EXPECT_EQ(outcome([&] { return client->stop(); }),
              "QdxException: Cannot close all Word Documents\nCOMERROR 0x80070005\n" +
                  systemMessage(E_ACCESSDENIED));
    EXPECT_FALSE(word.hasQuit());
    EXPECT_LINES(stop(), (Lines{"document" + closeAndSave, "application.Documents.Count -> 0", quit}));
}

TEST_F(OwnInstanceTest, EndsAloneWithTheLastRelease)
{
    openDocument();
    client->insertText(L"abc"_b);
    others.clearTranscript();
    EXPECT_EQ(client.Detach()->Release(), 0U);
    EXPECT_TRUE(word.hasQuit());
    EXPECT_FALSE(others.hasQuit());
    EXPECT_TRUE(others.transcript().empty());
    EXPECT_THAT(contentOf(documentName()), testing::HasSubstr("abc"));
}

TEST_F(OwnInstanceTest, IsTheOneThatDocumentsAreWrittenInToTheEnd)
{
    openDocument();
    setting("Word", "OwnInstance", "false", truth);
    client->insertText(L"abc"_b);
    EXPECT_THAT(client->close(), isHresult(S_OK));
    EXPECT_LINES(stop(), (Lines{"application.Documents.Count -> 0", quit}));
    EXPECT_TRUE(others.transcript().empty());
}

} // namespace
