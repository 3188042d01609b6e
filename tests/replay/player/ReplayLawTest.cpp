// The law of the replay, over random sessions in this process: the log of a log's replay is that log, and
// Word is called as it was.
#include "RecordedSession.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace replay {
namespace {

using reference::Writer;

/// make soak plays them all.
bool playsEverySession()
{
    return std::getenv("MIROVEL_EVERY_SESSION") != nullptr;
}

class ReplayLawTest : public testing::TestWithParam<Writer>
{
protected:
    const std::uint32_t sessions = playsEverySession() ? 500 : 100;

    SessionBeginning beginning(std::uint32_t seed) const { return {GetParam(), seed % 2 == 0}; }

    SessionRecorder recorder;
};

// Where the log does not hold all that was said, the replay says what it holds. The counting writer may then
// fail where it did not, or not where it did, which decides what is told of missing files.
TEST_P(ReplayLawTest, TheLogIsTheLogReplayed)
{
    std::uint32_t failingAlike = 0;
    for (std::uint32_t seed = 1; seed <= sessions && !HasFailure(); ++seed) {
        const reference::Session session = withoutSilentCalls(randomSession(seed, reference::Extent::all));
        const Recording recorded = recorder.record(session, beginning(seed));
        const Recording replayed = recorder.replay(recorded.log);
        if (replayed.failures != recorded.failures)
            continue;
        ++failingAlike;
        EXPECT_EQ(replayed.log, recorded.log) << "session " << seed << "\n" << stepsOf(session);
    }
    EXPECT_GT(failingAlike, sessions * 9 / 10);
}

TEST_P(ReplayLawTest, WordIsCalledAsItWas)
{
    std::size_t calls = 0;
    for (std::uint32_t seed = 1; seed <= sessions && !HasFailure(); ++seed) {
        const reference::Session session =
            asTheLogTells(randomSession(sessions + seed, reference::Extent::all));
        const Recording recorded = recorder.record(session, beginning(seed));
        const Recording replayed = recorder.replay(recorded.log);
        EXPECT_EQ(replayed.transcript, recorded.transcript) << "session " << sessions + seed << "\n"
                                                            << stepsOf(session);
        EXPECT_EQ(replayed.log, recorded.log) << "session " << sessions + seed;
        EXPECT_EQ(replayed.failures, recorded.failures) << "session " << sessions + seed;
        calls += recorded.wordCalls;
    }
    EXPECT_GT(calls, 20 * sessions);
}

// A log that says nothing of its writer is played with either.
TEST(ReplaySettingsTest, TakeThePlaceOfThoseInTheLog)
{
    SessionRecorder recorder;
    std::uint32_t differing = 0;
    constexpr std::uint32_t sessions = 20;
    for (std::uint32_t seed = 1; seed <= sessions; ++seed) {
        const reference::Session session = asTheLogTells(reference::randomSession(seed));
        const Recording counting = recorder.record(session, {Writer::counting});
        const Recording typed = recorder.record(session, {Writer::typed});
        const Recording replayed = recorder.replay(counting.log, {{"Word", "Compose", "1"}});
        EXPECT_EQ(replayed.transcript, typed.transcript) << "session " << seed;
        differing += typed.transcript != counting.transcript ? 1 : 0;
    }
    EXPECT_GT(differing, sessions / 2);
}

INSTANTIATE_TEST_SUITE_P(Writers, ReplayLawTest,
                         testing::Values(Writer::counting, Writer::typed, Writer::fragments),
                         [](const testing::TestParamInfo<Writer>& writer) {
                             return writer.param == Writer::counting ? "counting"
                                    : writer.param == Writer::typed  ? "typed"
                                                                     : "fragments";
                         });

} // namespace
} // namespace replay
