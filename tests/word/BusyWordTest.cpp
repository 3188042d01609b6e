#include "Hresult.h"

#include <BusyWord.h>

#include <BusyWait.h>
#include <CallObserver.h>
#include <CallPolicy.h>
#include <WordArguments.h>
#include <WordCall.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {
using namespace std::chrono_literals;
using std::chrono::milliseconds;

constexpr HRESULT rejected = RPC_E_CALL_REJECTED;
constexpr HRESULT later = RPC_E_SERVERCALL_RETRYLATER;
constexpr Word::CallName insertAfter{"Range", "InsertAfter"};

/// Hears everything, and writes it down.
class Log : public Word::CallObserver
{
public:
    void retrying(const Word::CallName& call, HRESULT code) override
    {
        note("retrying", call, code);
        misbehave();
    }
    void retried(const Word::CallName& call, int attempts, milliseconds elapsed, HRESULT outcome) override
    {
        note("retried", call, outcome);
        lines.back() += " after " + std::to_string(attempts) + " in " + std::to_string(elapsed.count());
        misbehave();
    }
    void failed(const Word::FailedCall& call) override
    {
        note("failed", call.name(), call.error().Error());
        arguments = call.arguments();
        description = static_cast<const wchar_t*>(call.error().Description());
        misbehave();
    }

    std::vector<std::string> lines;
    std::wstring arguments;
    _bstr_t description;
    bool throws = false;

private:
    void note(const char* what, const Word::CallName& call, HRESULT code)
    {
        char number[16];
        wsprintfA(number, " 0x%08x", static_cast<unsigned>(code));
        lines.push_back(std::string(what) + " " + call.interfaceName + "." + call.member + number);
    }
    void misbehave() const
    {
        if (throws)
            throw std::runtime_error("a log that does not work");
    }
};

class BusyWord : public testing::Test
{
protected:
    BusyWord() { EXPECT_THAT(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), isHresult(S_OK)); }
    ~BusyWord() override { CoUninitialize(); }

    /// A call that is answered with one code after the other, the last of them for ever.
    HRESULT callAnswered(std::vector<HRESULT> answers)
    {
        attempts = 0;
        pauses.clear();
        const auto call = [&] { return answers[std::min<std::size_t>(attempts++, answers.size() - 1)]; };
        return Word::callPatiently(insertAfter, call);
    }

    std::size_t attempts = 0;
    std::vector<milliseconds> pauses;
    Log log;
    Word::CallPolicy policy{30s, &log};
    const Word::BusyWaitOverride time{[this](milliseconds pause) { pauses.push_back(pause); }};
};

TEST_F(BusyWord, IsAskedOnceWhereNobodySaidOtherwise)
{
    EXPECT_THAT(callAnswered({rejected, S_OK}), isHresult(rejected));
    EXPECT_EQ(attempts, 1u);
}

TEST_F(BusyWord, IsAskedAgainAtOnce)
{
    const Word::CallScope scope(policy);
    for (const HRESULT code : {rejected, later}) {
        log.lines.clear();
        EXPECT_THAT(callAnswered({code, S_OK}), isHresult(S_OK));
        EXPECT_EQ(attempts, 2u);
        EXPECT_TRUE(pauses.empty());
        EXPECT_EQ(log.lines.size(), 2u);
    }
    EXPECT_EQ(log.lines, (std::vector<std::string>{"retrying Range.InsertAfter 0x8001010a",
                                                   "retried Range.InsertAfter 0x00000000 after 2 in 0"}));
}

TEST_F(BusyWord, IsAskedAgainAfterGrowingPauses)
{
    const Word::CallScope scope(policy);
    EXPECT_THAT(callAnswered({rejected, rejected, later, rejected, S_FALSE}), isHresult(S_FALSE));
    EXPECT_EQ(attempts, 5u);
    EXPECT_EQ(pauses, (std::vector{10ms, 20ms, 40ms}));
    EXPECT_EQ(log.lines, (std::vector<std::string>{"retrying Range.InsertAfter 0x80010001",
                                                   "retried Range.InsertAfter 0x00000001 after 5 in 70"}));
}

TEST_F(BusyWord, IsAskedNoLongerThanThePolicySays)
{
    policy.busyTimeout = 5s;
    const Word::CallScope scope(policy);
    EXPECT_THAT(callAnswered({rejected}), isHresult(rejected));
    EXPECT_EQ(pauses, (std::vector<milliseconds>{10ms, 20ms, 40ms, 80ms, 160ms, 320ms, 640ms, 1000ms, 1000ms,
                                                 1000ms, 730ms}));
    EXPECT_EQ(attempts, pauses.size() + 2);
    EXPECT_EQ(log.lines.back(), "retried Range.InsertAfter 0x80010001 after 13 in 5000");
}

TEST_F(BusyWord, IsAskedOnceWhenThePolicyGivesNoTime)
{
    policy.busyTimeout = 0ms;
    const Word::CallScope scope(policy);
    EXPECT_THAT(callAnswered({rejected, S_OK}), isHresult(rejected));
    EXPECT_EQ(attempts, 1u);
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(BusyWord, IsTheOnlyFailureThatIsTriedAgain)
{
    const Word::CallScope scope(policy);
    for (const HRESULT code :
         {E_FAIL, E_OUTOFMEMORY, RPC_E_DISCONNECTED, RPC_E_SERVERFAULT, RPC_E_SERVERCALL_REJECTED,
          RPC_E_CALL_CANCELED, RPC_E_CANTCALLOUT_ININPUTSYNCCALL, RPC_E_RETRY,
          HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE), HRESULT_FROM_WIN32(RPC_S_SERVER_TOO_BUSY),
          HRESULT_FROM_WIN32(RPC_S_CALL_FAILED), static_cast<HRESULT>(0x800A1735)}) {
        EXPECT_THAT(callAnswered({code, S_OK}), isHresult(code));
        EXPECT_EQ(attempts, 1u) << std::hex << code;
        EXPECT_THAT(callAnswered({rejected, code, S_OK}), isHresult(code));
        EXPECT_EQ(attempts, 2u) << std::hex << code;
    }
}

/// A host's filter, which counts what COM asks of it.
class Filter : public IMessageFilter
{
public:
    STDMETHODIMP QueryInterface(REFIID id, void** result) noexcept override
    {
        const bool known = id == __uuidof(IMessageFilter) || id == __uuidof(IUnknown);
        *result = known ? static_cast<IMessageFilter*>(this) : nullptr;
        return known ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return --references; }
    STDMETHODIMP_(DWORD) HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO) noexcept override
    {
        return SERVERCALL_ISHANDLED;
    }
    STDMETHODIMP_(DWORD) RetryRejectedCall(HTASK, DWORD, DWORD) noexcept override
    {
        return static_cast<DWORD>(-1);
    }
    STDMETHODIMP_(DWORD) MessagePending(HTASK, DWORD, DWORD) noexcept override
    {
        return PENDINGMSG_WAITDEFPROCESS;
    }

    ULONG references = 1;
};

TEST_F(BusyWord, IsAskedOnceOnTheThreadOfAHostWithAMessageFilter)
{
    const Word::CallScope scope(policy);
    Filter filter;
    ASSERT_THAT(CoRegisterMessageFilter(&filter, nullptr), isHresult(S_OK));
    const ULONG references = filter.references;
    EXPECT_THAT(callAnswered({rejected, S_OK}), isHresult(rejected));
    EXPECT_EQ(attempts, 1u);
    EXPECT_TRUE(log.lines.empty());
    EXPECT_EQ(filter.references, references);

    IMessageFilter* stillThere = nullptr;
    ASSERT_THAT(CoRegisterMessageFilter(nullptr, &stillThere), isHresult(S_OK));
    EXPECT_EQ(stillThere, &filter);
    if (stillThere)
        stillThere->Release();
    EXPECT_EQ(filter.references, 1u);
    EXPECT_THAT(callAnswered({rejected, S_OK}), isHresult(S_OK)) << "the filter is gone";
}

TEST_F(BusyWord, IsAskedAgainInAMultithreadedApartment)
{
    HRESULT result = E_UNEXPECTED;
    std::thread([&] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        const Word::CallScope scope(policy);
        result = callAnswered({rejected, S_OK});
        CoUninitialize();
    }).join();
    EXPECT_THAT(result, isHresult(S_OK));
}

TEST_F(BusyWord, ScopesNestAndBelongToTheirThread)
{
    Word::CallPolicy inner;
    EXPECT_EQ(Word::CallScope::current(), nullptr);
    {
        const Word::CallScope outerScope(policy);
        {
            const Word::CallScope innerScope(inner);
            EXPECT_EQ(Word::CallScope::current(), &inner);
            std::thread([] { EXPECT_EQ(Word::CallScope::current(), nullptr); }).join();
        }
        EXPECT_EQ(Word::CallScope::current(), &policy);
    }
    EXPECT_EQ(Word::CallScope::current(), nullptr);
}

/// An object without error information.
class Plain : public IUnknown
{
public:
    STDMETHODIMP QueryInterface(REFIID, void** result) noexcept override
    {
        *result = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return 2; }
    STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }
};

TEST_F(BusyWord, FailuresAreToldWithTheirArguments)
{
    const Word::CallScope scope(policy);
    Plain plain;
    IUnknown* const object = &plain;
    EXPECT_THROW(Word::call(
                     object, __uuidof(IUnknown), insertAfter, [] { return E_FAIL; }, _bstr_t(L"some text"),
                     Word::missing, Word::integer(3), true, 5L, static_cast<IDispatch*>(nullptr)),
                 _com_error);
    EXPECT_EQ(log.lines, std::vector<std::string>{"failed Range.InsertAfter 0x80004005"});
    EXPECT_EQ(log.arguments, L"\"some text\", missing, 3, true, 5, nothing");
}

TEST_F(BusyWord, WhatStaysBusyIsToldToHaveFailed)
{
    const Word::CallScope scope(policy);
    Plain plain;
    IUnknown* const object = &plain;
    EXPECT_THROW(Word::call(object, __uuidof(IUnknown), insertAfter, [] { return rejected; }), _com_error);
    ASSERT_EQ(log.lines.size(), 3u);
    EXPECT_EQ(log.lines.back(), "failed Range.InsertAfter 0x80010001");
    log.lines.clear();
    int count = 0;
    Word::call(object, __uuidof(IUnknown), insertAfter, [&] { return count++ == 0 ? rejected : S_OK; });
    EXPECT_EQ(count, 2);
    EXPECT_EQ(log.lines.size(), 2u);
}

TEST_F(BusyWord, AnObserverThatThrowsHarmsNoCall)
{
    log.throws = true;
    const Word::CallScope scope(policy);
    Plain plain;
    IUnknown* const object = &plain;
    EXPECT_THAT(callAnswered({rejected, S_OK}), isHresult(S_OK));
    EXPECT_THROW(Word::call(object, __uuidof(IUnknown), insertAfter, [] { return E_FAIL; }), _com_error);
    EXPECT_EQ(log.lines.size(), 3u);
}

TEST_F(BusyWord, LongArgumentsAreShortened)
{
    Word::ArgumentText text;
    text.add(_bstr_t(std::wstring(61, L'x').c_str()));
    text.add(Word::text(std::wstring(60, L'y').c_str()));
    text.add(_variant_t());
    text.add(Word::boolean(false));
    text.add(_variant_t(1.5));
    EXPECT_EQ(text.text(), L"\"" + std::wstring(60, L'x') + L"...\" (61 characters), \"" +
                               std::wstring(60, L'y') + L"\", empty, false, value of type 5");
}

TEST(BusyPause, LeavesTheApartmentToCom)
{
    ASSERT_THAT(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), isHresult(S_OK));
    IStream* object = nullptr;
    ASSERT_THAT(CreateStreamOnHGlobal(nullptr, TRUE, &object), isHresult(S_OK));
    IStream* marshalled = nullptr;
    ASSERT_THAT(CoMarshalInterThreadInterfaceInStream(__uuidof(ISequentialStream), object, &marshalled),
                isHresult(S_OK));
    std::atomic<bool> answered = false;
    std::thread caller([&] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        ISequentialStream* proxy = nullptr;
        if (SUCCEEDED(CoGetInterfaceAndReleaseStream(marshalled, __uuidof(ISequentialStream),
                                                     reinterpret_cast<void**>(&proxy)))) {
            proxy->Release();
            answered = true;
        }
        CoUninitialize();
    });
    for (int i = 0; i < 3000 && !answered; ++i)
        Word::busyPause(10ms);
    EXPECT_TRUE(answered);
    if (!answered)
        std::abort(); // the other thread waits for this one
    caller.join();
    object->Release();
    CoUninitialize();
}

TEST(BusyPause, TakesItsTime)
{
    const milliseconds start = Word::busyClock();
    Word::busyPause(50ms);
    EXPECT_GE(Word::busyClock() - start, 30ms); // the clock's ticks are 16 ms long
}
} // namespace
