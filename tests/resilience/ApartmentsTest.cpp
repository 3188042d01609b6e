// Several threads of a host: objects in apartments of their own, calls through a proxy, and references that
// are given up while a call is under way.
#include "BuiltServer.h"
#include "Hresult.h"
#include "ObjectApartment.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace {

/// Threads that wait for one another. A std::barrier of g++ 12 may miss its wake-up where there is no futex.
class MeetingPoint
{
public:
    explicit MeetingPoint(int threads) : threads_(threads) {}

    void arriveAndWait()
    {
        std::unique_lock lock(mutex_);
        const int meeting = meeting_;
        if (++arrived_ == threads_) {
            arrived_ = 0;
            ++meeting_;
            everybodyIsHere_.notify_all();
        }
        everybodyIsHere_.wait(lock, [&] { return meeting_ != meeting; });
    }

private:
    const int threads_;
    std::mutex mutex_;
    std::condition_variable everybodyIsHere_;
    int arrived_ = 0;
    int meeting_ = 0;
};

class ApartmentsTest : public testing::TestWithParam<Mode>
{
protected:
    ApartmentsTest()
    {
        CoInitialize(nullptr);
        EXPECT_THAT(server_.module.registerServer(), isHresult(S_OK));
        ObservedWord word;
        expected_ = word.playShortSession(server_.make(), GetParam());
        EXPECT_EQ(expected_.failures, std::vector<std::string>());
    }
    ~ApartmentsTest() override
    {
        EXPECT_THAT(server_.module.canUnloadNow(), isHresult(S_OK));
        EXPECT_THAT(server_.module.unregisterServer(), isHresult(S_OK));
        CoUninitialize();
    }

    const BuiltServer server_;
    Played expected_;
};

TEST_P(ApartmentsTest, DoNotDisturbEachOther)
{
    constexpr int threads = 2;
    const int sessions = isSoak() ? 2'000 : 60;
    MeetingPoint together(threads);
    std::mutex mutex;
    std::vector<std::string> wrong;
    const auto work = [&] {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        {
            std::unique_lock lock(mutex); // the stand-in's registration is one for the process
            ObservedWord word;
            lock.unlock();
            together.arriveAndWait();
            for (int i = 0; i < sessions; ++i) {
                const Played played = word.playShortSession(server_.make(), GetParam());
                word.word.clearTranscript();
                if (played == expected_)
                    continue;
                const std::lock_guard telling(mutex);
                wrong.push_back("session " + std::to_string(i) +
                                (played.failures.empty() ? std::string(": another document")
                                                         : ": " + played.failures.front()));
            }
            together.arriveAndWait();
            lock.lock();
        }
        CoUninitialize();
    };
    std::vector<std::thread> running;
    for (int i = 0; i < threads; ++i)
        running.emplace_back(work);
    for (std::thread& each : running)
        each.join();
    EXPECT_EQ(wrong, std::vector<std::string>());
}

TEST_P(ApartmentsTest, AreReachedThroughAProxy)
{
    ObjectApartment apartment(server_);
    const IDocumentPtr client = apartment.proxy();
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(apartment.word->playShortSession(client, GetParam()) == expected_);
}

TEST_P(ApartmentsTest, ASecondReferenceMayGoDuringACall)
{
    ObservedWord word;
    const IDocumentPtr client = server_.make();
    IDocumentPtr second = client;
    word.whenClosing = [&second] { second = nullptr; };
    EXPECT_TRUE(word.playShortSession(client, GetParam()) == expected_);
    EXPECT_FALSE(second);
    client->AddRef();
    EXPECT_EQ(client->Release(), 1U);
}

TEST_P(ApartmentsTest, AnotherThreadMayGiveUpItsProxyDuringACall)
{
    ObjectApartment apartment(server_);
    IDocumentPtr client = apartment.proxy();
    const HANDLE hasProxy = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const HANDLE isInCall = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread other([&] {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        {
            const IDocumentPtr theirs = apartment.proxy();
            SetEvent(hasProxy);
            WaitForSingleObject(isInCall, INFINITE);
        }
        CoUninitialize();
    });
    WaitForSingleObject(hasProxy, INFINITE);
    // The apartment itself holds on to nothing either: the proxies alone keep the object.
    apartment.run([&] { apartment.object = nullptr; });
    apartment.word->whenClosing = [&] { SetEvent(isInCall); };
    EXPECT_TRUE(apartment.word->playShortSession(client, GetParam()) == expected_);
    other.join();
    EXPECT_TRUE(apartment.word->playShortSession(client, GetParam()) == expected_);
    client = nullptr;
    long left = 0;
    apartment.run([&] { left = apartment.word->word.liveObjects(); });
    EXPECT_EQ(left, 0);
    CloseHandle(hasProxy);
    CloseHandle(isInCall);
}

INSTANTIATE_TEST_SUITE_P(Modes, ApartmentsTest, testing::ValuesIn(everyMode),
                         [](const auto& each) { return nameOf(each.param); });

} // namespace
