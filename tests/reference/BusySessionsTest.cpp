// A Word that is too busy for a call and takes it later: every document is what it is without that.
#include "FullSession.h"
#include "SessionPlayer.h"

#include "BusyWait.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace reference {
namespace {

class BusySessionsTest : public testing::TestWithParam<Writer>
{
protected:
    const Word::BusyWaitOverride noTimePasses;
};

TEST_P(BusySessionsTest, MakeTheDocumentThatTheyMakeUndisturbed)
{
    const Session session = fullSession();
    PlayedSession undisturbed;
    long calls = 0;
    {
        SessionPlayer player(GetParam());
        undisturbed = player.play(session);
        calls = player.wordCalls();
    }
    EXPECT_GT(calls, 100);
    for (long call = 1; call <= calls && !HasFailure(); ++call) {
        SessionPlayer player(GetParam());
        const testing::ScopedTrace trace(__FILE__, __LINE__, "call " + std::to_string(call));
        player.setFault({call, call % 2 == 0 ? RPC_E_CALL_REJECTED : RPC_E_SERVERCALL_RETRYLATER, false, 3});
        const PlayedSession played = player.play(session);
        EXPECT_EQ(played.failures, undisturbed.failures);
        EXPECT_TRUE(played.content == undisturbed.content);
        EXPECT_EQ(player.wordCalls(), calls);
        EXPECT_EQ(player.release(), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Writers, BusySessionsTest,
                         testing::Values(Writer::counting, Writer::typed, Writer::fragments), nameOfWriter);

} // namespace
} // namespace reference
