// What of a failure leaves a method: frames that report, frames that swallow, and methods without one.
#include "CallFrame.h"

#include "DocSession.h"
#include "FrontEndTest.h"

#include <new>

namespace {

class CallFrameTest : public FrontEndTest
{
protected:
    void expectReport(const std::string& activity, const std::function<HRESULT()>& call)
    {
        RecordedExceptionLog exceptions;
        EXPECT_EQ(outcome(call), "QdxException: " + reportOf(activity));
        EXPECT_LINES(exceptions.lines, Lines{"Exception throw: " + reportOf(activity)});
        word.clearFaults();
    }

    static std::string reportOf(const std::string& activity)
    {
        return activity + "\nCOMERROR 0x800a1234\nUnknown error 0x800A1234";
    }
};

TEST_F(CallFrameTest, NamesTheActivityOfEveryFramedMethod)
{
    openDocument();
    IDocument& m = *client.GetInterfacePtr();
    const std::vector<std::pair<const char*, std::function<HRESULT()>>> methods = {
        {"insertText", [&] { return m.insertText(L"a"_b); }},
        {"insertEndl", [&] { return m.insertEndl(); }},
        {"insertField", [&] { return m.insertField(1); }},
        {"startHeader", [&] { return m.startHeader(); }},
        {"startFooter", [&] { return m.startFooter(); }},
        {"insertPageBreak", [&] { return m.insertPageBreak(); }},
    };
    for (const auto& [activity, call] : methods) {
        SCOPED_TRACE(activity);
        word.failCall(1, refused);
        expectReport(activity, call);
    }
}

TEST_F(CallFrameTest, ReportsAFailureToForgetTheUndoListAsOneOfThePageBreak)
{
    openDocument();
    client->insertPageBreak();
    const Lines calls = takeTranscript();
    ASSERT_EQ(calls.back(), "document.UndoClear()");
    word.failCall(static_cast<long>(calls.size()), refused);
    expectReport("insertPageBreak", [&] { return client->insertPageBreak(); });
}

TEST_F(CallFrameTest, NamesTheActivityOfStart)
{
    word.failCall(1, refused);
    expectReport("Cannot open Word", [&] { return client->start(); });
}

TEST_F(CallFrameTest, NamesTheActivityOfStop)
{
    start();
    word.failCall(1, refused);
    expectReport("Cannot close all Word Documents", [&] { return client->stop(); });
}

TEST_F(CallFrameTest, NamesTheActivitiesOfCreate)
{
    start();
    word.failCall(6, refused); // after the options
    expectReport("Adding document", [&] { return client->create(bstr(documentName())); });
    EXPECT_EQ(word.transcript().back(),
              "application.Documents.Add(missing, missing, missing, missing) !! 0x800a1234");

    word.failCall(7, refused);
    expectReport("Saving document", [&] { return client->create(bstr(documentName())); });
    EXPECT_THAT(word.transcript().back(), testing::HasSubstr(".SaveAs("));
}

TEST_F(CallFrameTest, NamesTheActivityOfClose)
{
    openDocument();
    word.failCall(1, refused);
    expectReport("Saving document", [&] { return client->close(); });
}

// The font methods only note a run, so that no failure of Word gets there; a failed `close` leaves them no
// writer.
TEST_F(CallFrameTest, NamesTheActivityOfMethodsThatFindNoWriter)
{
    openDocument();
    word.failFromCall(1, refused);
    EXPECT_THROW(client->close(), QdxException);
    word.clearFaults();
    const auto report = [](const char* activity) {
        return std::string("QdxException: ") + activity + "\nCOMERROR 0x80004003\n" +
               systemMessage(E_POINTER);
    };
    EXPECT_EQ(outcome([&] { return client->setFontName(L"x"_b); }), report("setFontName"));
    EXPECT_EQ(outcome([&] { return client->setFontSize(9); }), report("setFontSize"));
    EXPECT_EQ(outcome([&] { return client->setFontAttribute(1, VARIANT_TRUE); }), report("setFontAttribute"));
    EXPECT_EQ(outcome([&] { return client->setStyle(L"x"_b); }), report("setStyle"));
    EXPECT_EQ(outcome([&] { return client->insertText(L"x"_b); }), report("insertText"));
}

TEST_F(CallFrameTest, LetsFailuresOfUnframedMethodsThrough)
{
    openDocument();
    RecordedExceptionLog exceptions;
    IDocument& m = *client.GetInterfacePtr();
    const std::vector<std::function<HRESULT()>> methods = {
        [&] { return m.setOrientation(1); },         [&] { return m.startTable(); },
        [&] { return m.insertTag(L"t"_b); },         [&] { return m.insertXref(L"a"_b, L"t"_b); },
        [&] { return m.insertXref(L"a"_b, L""_b); },
    };
    for (const auto& call : methods) {
        word.failCall(1, refused);
        EXPECT_EQ(outcome(call), "_com_error 0x800a1234");
        word.clearFaults();
    }
    word.failCall(1, refused);
    EXPECT_EQ(outcome([&] { return m.insertTOC(); }), "QdxException: ERR Unknown style: Normal");
    EXPECT_LINES(exceptions.lines, Lines());
}

TEST_F(CallFrameTest, LetsAFailureToQuitThrough)
{
    start();
    word.failCall(2, refused); // Count, then Quit
    EXPECT_EQ(outcome([&] { return client->stop(); }), "_com_error 0x800a1234");
    EXPECT_EQ(word.transcript().back(), "application.Quit(missing, missing, missing) !! 0x800a1234");
    EXPECT_EQ(outcome([&] { return client->stop(); }), "0x00000000");
    EXPECT_TRUE(word.hasQuit());
}

TEST_F(CallFrameTest, TellsScriptsByException)
{
    openDocument();
    word.failCall(1, refused);
    EXPECT_EQ(invoke(*client, 3, {L"a"}).outcome, "Mirovel.Mirovel 0x80004005 " + reportOf("insertText"));
    word.failCall(1, refused);
    EXPECT_EQ(invoke(*client, 35, {_variant_t(1L)}).outcome,
              "Mirovel.Mirovel 0x800a1234 Unknown error 0x800A1234");
}

TEST_F(CallFrameTest, LogsNothingWhileTheCategoryIsOff)
{
    openDocument();
    RecordedExceptionLog exceptions;
    exceptions.off = "Throw";
    word.failCall(1, refused);
    EXPECT_THROW(client->insertEndl(), QdxException);
    EXPECT_LINES(exceptions.lines, Lines());
}

/// The frames themselves, around work of the test's own.
class FrameTest : public testing::Test
{
protected:
    template <class Work>
    std::string framed(Work work)
    {
        return outcome([&] {
            runInFrame(*session, "activity", work);
            return S_OK;
        });
    }
    template <class Work>
    std::string diagram(Work work)
    {
        return outcome([&] {
            runInDiagramFrame(*session, "Inserting diagram", work);
            return S_OK;
        });
    }

    const std::unique_ptr<DocSession> session = std::make_unique<DocSession>();
    RecordedExceptionLog exceptions;
};

volatile int* nowhere = nullptr;

TEST_F(FrameTest, ReportsComErrorsAndSwallowsEverythingElse)
{
    EXPECT_EQ(framed([] { _com_issue_error(E_POINTER); }),
              "QdxException: activity\nCOMERROR 0x80004003\n" + systemMessage(E_POINTER));
    EXPECT_LINES(exceptions.lines,
                 Lines{"Exception throw: activity\nCOMERROR 0x80004003\n" + systemMessage(E_POINTER)});
    exceptions.lines.clear();
    EXPECT_EQ(framed([] { throw QdxException("text"); }), "0x00000000");
    EXPECT_EQ(framed([] { throw std::bad_alloc(); }), "0x00000000");
    EXPECT_EQ(framed([] { throw 1; }), "0x00000000");
    EXPECT_LINES(exceptions.lines, Lines());
}

TEST_F(FrameTest, SwallowsHardwareFaults)
{
    volatile bool reached = false;
    EXPECT_EQ(framed([&] {
                  reached = true;
                  *nowhere = 1;
                  reached = false;
              }),
              "0x00000000");
    EXPECT_TRUE(reached);
}

TEST_F(FrameTest, LetsOnlyQdxExceptionsGoUnseenInDiagrams)
{
    EXPECT_EQ(diagram([] { throw QdxException("text"); }), "0x00000000");
    EXPECT_LINES(exceptions.lines, Lines{"Exception catch: text"});
    exceptions.lines.clear();
    exceptions.off = "Catch";
    EXPECT_EQ(diagram([] { throw QdxException("text"); }), "0x00000000");
    EXPECT_LINES(exceptions.lines, Lines());
    EXPECT_EQ(diagram([] { throw 1; }), "exception");
    EXPECT_EQ(diagram([] { *nowhere = 1; }), "exception");
    EXPECT_EQ(diagram([] { _com_issue_error(E_POINTER); }),
              "QdxException: Inserting diagram\nCOMERROR 0x80004003\n" + systemMessage(E_POINTER));
}

} // namespace
