// A Word that is too busy to take calls: the front end waits as the settings say, and documents come out the
// same.
#include "FrontEndTest.h"
#include "OtherWord.h"

#include "BusyWait.h"
#include "mirovelsection.h"

#include <algorithm>

namespace {

using std::chrono::milliseconds;
using namespace std::chrono_literals;

constexpr HRESULT rejected = RPC_E_CALL_REJECTED;
constexpr HRESULT later = RPC_E_SERVERCALL_RETRYLATER;
constexpr int always = 1'000'000;

class BusyWordTest : public FrontEndTest
{
protected:
    /// How long the client has waited since the last call.
    milliseconds takeWaited() { return std::exchange(waited_, 0ms); }

    static std::string busy(const std::string& activity)
    {
        return "QdxException: " + activity + "\nCOMERROR 0x80010001\n" + systemMessage(rejected);
    }

private:
    milliseconds waited_{0};
    const Word::BusyWaitOverride time_{[this](milliseconds pause) { waited_ += pause; }};
};

TEST_F(BusyWordTest, IsAskedAgainForHalfAMinuteUnlessSetOtherwise)
{
    openDocument();
    word.rejectCall(1, rejected, always);
    EXPECT_EQ(outcome([&] { return client->insertText(L"abc"_b); }), busy("insertText"));
    EXPECT_EQ(takeWaited(), 30s);
    word.clearFaults();
    client->insertText(L"def"_b);
    EXPECT_EQ(documentText(), "def");
}

TEST_F(BusyWordTest, IsAskedAgainForAsLongAsTheUserHasSet)
{
    const Setting stored("Word", "BusyTimeout", "5");
    client = newClient();
    setting("Word", "WordTemplateName", "");
    word.rejectCall(1, rejected, always);
    EXPECT_EQ(outcome([&] { return client->start(); }), busy("Cannot open Word"));
    EXPECT_EQ(takeWaited(), 5s + 5s) << "for its documents, and when it is to quit";
    word.clearFaults();
    openDocument();
    word.rejectCall(1, rejected, always);
    EXPECT_EQ(outcome([&] { return client->insertText(L"abc"_b); }), busy("insertText"));
    EXPECT_EQ(takeWaited(), 5s);
    word.clearFaults();
}

TEST_F(BusyWordTest, IsAskedAgainForAsLongAsTheClientSays)
{
    setting("Word", "BusyTimeout", "7", 2);
    word.rejectCall(1, rejected, always);
    EXPECT_EQ(outcome([&] { return client->start(); }), busy("Cannot open Word"));
    EXPECT_EQ(takeWaited(), 7s + 7s);
    word.clearFaults();
}

TEST_F(BusyWordTest, IsAskedOnceWhenThereIsNoTime)
{
    for (const char* const none : {"0", "-1"}) {
        setting("Word", "BusyTimeout", none, 2);
        openDocument();
        word.rejectCall(1, rejected, 1);
        EXPECT_EQ(outcome([&] { return client->insertText(L"abc"_b); }), busy("insertText"));
        EXPECT_EQ(takeTranscript().size(), 1U);
        EXPECT_THAT(client->close(), isHresult(S_OK));
        EXPECT_THAT(client->stop(), isHresult(S_OK));
        EXPECT_EQ(takeWaited(), 0s);
    }
}

TEST_F(BusyWordTest, IsAskedAgainByCallsWithoutAFrame)
{
    openDocument();
    word.rejectCall(1, later, 3);
    EXPECT_THAT(client->startTable(), isHresult(S_OK));
    EXPECT_THAT(client->addRow(), isHresult(S_OK));
    EXPECT_EQ(takeWaited(), 30ms);
}

/// Gives the application after it has rejected some requests with `answer`.
OtherWord busyWord(const standin::InProcessWord& word, int rejections, HRESULT answer)
{
    return OtherWord([&word, left = rejections, answer](REFIID iid, void** out) mutable {
        *out = nullptr;
        if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, __uuidof(Word::_Application)))
            return E_NOINTERFACE;
        return left-- > 0 ? answer : word.application()->QueryInterface(iid, out);
    });
}

TEST_F(BusyWordTest, IsAskedAgainWhenItIsToBeCreated)
{
    installed.reset();
    OtherWord factory = busyWord(word, 3, later);
    DWORD registration = 0;
    ASSERT_THAT(
        CoRegisterClassObject(wordClass, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration),
        isHresult(S_OK));
    installed = std::make_unique<standin::ClassRegistration>(word); // makes the ProgID known
    EXPECT_EQ(outcome([&] { return client->start(); }), "0x00000000");
    CoRevokeClassObject(registration);
    EXPECT_EQ(installed->created(), 0);
    EXPECT_EQ(takeWaited(), 30ms);
}

TEST_F(BusyWordTest, IsAskedAgainWhenItRunsAlready)
{
    OtherWord running = busyWord(word, 2, rejected);
    DWORD registration = 0;
    ASSERT_THAT(RegisterActiveObject(&running, wordClass, ACTIVEOBJECT_STRONG, &registration),
                isHresult(S_OK));
    EXPECT_EQ(outcome([&] { return client->start(); }), "0x00000000");
    RevokeActiveObject(registration, nullptr);
    EXPECT_EQ(installed->created(), 0);
    EXPECT_EQ(takeWaited(), 10ms);
}

TEST_F(BusyWordTest, HoldsUpTheReleaseOnlyOnce)
{
    openDocument();
    client->insertText(L"abc"_b);
    word.rejectCall(1, rejected, always);
    EXPECT_EQ(client.Detach()->Release(), 0U);
    EXPECT_EQ(takeWaited(), 30s);
    word.clearFaults();
}

TEST_F(BusyWordTest, IsAskedOnceForAHostWithAMessageFilter)
{
    class Filter : public IMessageFilter
    {
    public:
        STDMETHODIMP QueryInterface(REFIID, void** out) override
        {
            *out = this;
            return S_OK;
        }
        STDMETHODIMP_(ULONG) AddRef() override { return 2; }
        STDMETHODIMP_(ULONG) Release() override { return 1; }
        STDMETHODIMP_(DWORD) HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO) override { return 0; }
        STDMETHODIMP_(DWORD) RetryRejectedCall(HTASK, DWORD, DWORD) override
        {
            return static_cast<DWORD>(-1);
        }
        STDMETHODIMP_(DWORD) MessagePending(HTASK, DWORD, DWORD) override
        {
            return PENDINGMSG_WAITDEFPROCESS;
        }
    } filter;
    openDocument();
    ASSERT_THAT(CoRegisterMessageFilter(&filter, nullptr), isHresult(S_OK));
    word.rejectCall(1, rejected);
    EXPECT_EQ(outcome([&] { return client->insertText(L"abc"_b); }), busy("insertText"));
    CoRegisterMessageFilter(nullptr, nullptr);
    EXPECT_EQ(takeWaited(), 0s);
    client->insertText(L"def"_b);
    EXPECT_EQ(documentText(), "def");
}

/// Every writer.
class BusySessionTest : public BusyWordTest, public testing::WithParamInterface<const char*>
{
protected:
    /// A session from `start` to `stop`; all that Word heard of it, but for what it rejected.
    Lines play(long call, HRESULT code)
    {
        standin::InProcessWord busy;
        MirovelSection::clearCache();
        installed.reset();
        installed = std::make_unique<standin::ClassRegistration>(busy);
        client = newClient();
        setting("Word", "WordTemplateName", "");
        setting("Word", "Compose", GetParam(), 2);
        if (call > 0)
            busy.rejectCall(call, code, 2);
        start();
        EXPECT_THAT(client->create(bstr(documentName())), isHresult(S_OK));
        client->insertTOC();
        client->setStyle(L"Heading 1"_b);
        client->insertTag(L"top"_b);
        client->insertText(L"one"_b);
        client->insertEndl();
        client->setStyle(L"Normal"_b);
        client->startHeader();
        client->insertText(L"above"_b);
        client->insertField(1);
        client->endHeader();
        client->setFontAttribute(1, VARIANT_TRUE);
        client->insertText(L"two"_b);
        client->setFontAttribute(1, VARIANT_FALSE);
        client->insertXref(L"three"_b, L"top"_b);
        client->setTextAlign(2);
        client->startTable();
        client->addRow();
        client->addCell();
        client->insertText(L"four"_b);
        client->addCell();
        client->insertText(L"five"_b);
        client->endTable();
        client->insertPageBreak();
        client->startFooter();
        client->insertText(L"below"_b);
        client->endFooter();
        EXPECT_THAT(client->close(), isHresult(S_OK));
        EXPECT_THAT(client->stop(), isHresult(S_OK));
        client = nullptr;
        calls = busy.callCount();
        EXPECT_EQ(busy.liveObjects(), 0);
        Lines lines = busy.transcript();
        std::erase_if(lines, [](const std::string& line) { return line.find(" !! 0x8001") != line.npos; });
        for (std::string& line : lines) // the names of the files that fragments pass through
            if (const std::size_t name = line.find("InsertFile("); name != line.npos)
                line.resize(name);
        return lines;
    }

    long calls = 0;
};

TEST_P(BusySessionTest, WritesTheSameDocumentWhicheverCallsWordWasTooBusyFor)
{
    const Lines undisturbed = play(0, S_OK);
    const std::string document = contentOf(documentName());
    const long undisturbedCalls = calls;
    EXPECT_GT(undisturbedCalls, 50);
    EXPECT_EQ(takeWaited(), 0s);
    for (long call = 1; call <= undisturbedCalls && !HasFailure(); ++call) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, "call " + std::to_string(call));
        EXPECT_EQ(play(call, call % 2 == 0 ? rejected : later), undisturbed);
        EXPECT_EQ(contentOf(documentName()), document);
        EXPECT_EQ(takeWaited(), 10ms);
    }
}

INSTANTIATE_TEST_SUITE_P(Writers, BusySessionTest, testing::Values("0", "1", "2"));

} // namespace
