// Every Word call of a session fails in turn, once or from then on, with every code that Word, COM or a dead
// process gives: the failure is told, the diagnostics name it, nothing is left behind, and the next session
// is as ever.
#include "DocumentComparison.h"
#include "FullSession.h"
#include "Hresult.h"
#include "SessionPlayer.h"

#include "ScratchFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

namespace reference {
namespace {

// A style that Word says it does not have is passed over, which only the diagnostics tell.
constexpr auto notInDocument = static_cast<HRESULT>(0x800A1735);

constexpr std::array codes = {
    static_cast<HRESULT>(0x800706BA), // the process is gone
    static_cast<HRESULT>(0x800706BE), // it ended during the call
    static_cast<HRESULT>(0x80010108), // the object is gone
    static_cast<HRESULT>(0x80010001), // busy
    static_cast<HRESULT>(0x8001010A), // busy
    E_FAIL,
    E_OUTOFMEMORY,
    E_NOINTERFACE,
    notInDocument,
    static_cast<HRESULT>(0x800A11FD), // not available here
};

/// Every code at every call takes minutes; without MIROVEL_EVERY_CALL each code takes its share of the calls.
bool isEveryCallMeant()
{
    const char* const given = std::getenv("MIROVEL_EVERY_CALL");
    return given && *given;
}

using WriterAndDuration = std::tuple<Writer, bool>;

class FailingCallsTest : public testing::TestWithParam<WriterAndDuration>
{
protected:
    FailingCallsTest()
    {
        SessionPlayer player(writer);
        undisturbed = player.play(session);
        calls = player.wordCalls();
    }

    void disturb(long call, HRESULT code)
    {
        const ScratchFolder folder;
        SessionPlayer player(writer);
        player.setBusyTimeout(0);
        player.writeDiagnostics(folder.file("diagnostics.log"));
        player.setFault({call, code, lasts});
        const PlayedSession played = player.play(session);
        EXPECT_TRUE(!player.composes() || code == notInDocument || played.content == undisturbed.content ||
                    !played.failures.empty())
            << "something was lost without a word";
        player.setFault({});
        const PlayedSession next = player.play(session);
        EXPECT_EQ(next.failures, undisturbed.failures);
        EXPECT_EQ(printable(compare(undisturbed.content, next.content)), "")
            << "in the next session's document";
        EXPECT_EQ(player.release(), 0) << "objects of Word are left";
        const std::vector<std::string> lines = failedCallsIn(folder);
        EXPECT_THAT(lines, testing::Contains(testing::HasSubstr(hexadecimal(code))));
    }

    /// The lines of the diagnostics about failed calls; some fail in every session, such as looking for a
    /// style.
    static std::vector<std::string> failedCallsIn(const ScratchFolder& folder)
    {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
            std::istringstream text(contentOf(entry.path().string()));
            for (std::string line; std::getline(text, line);)
                if (line.find("\tWord call failed: ") != line.npos)
                    found.push_back(line);
        }
        return found;
    }

    const Writer writer = std::get<Writer>(GetParam());
    const bool lasts = std::get<bool>(GetParam());
    const Session session = fullSession();
    PlayedSession undisturbed;
    long calls = 0; ///< that Word gets in it
};

TEST_P(FailingCallsTest, AreToldAndLeaveNothingBehind)
{
    ASSERT_GT(calls, 100);
    const long step = isEveryCallMeant() ? 1 : 13;
    long runs = 0;
    for (std::size_t i = 0; i < codes.size(); ++i)
        for (long call = 1 + static_cast<long>(i) % step; call <= calls && !HasFailure();
             call += step, ++runs) {
            const testing::ScopedTrace trace(
                __FILE__, __LINE__, "call " + std::to_string(call) + ", " + hexadecimal(codes.at(i)));
            disturb(call, codes.at(i));
        }
    std::printf("%ld runs\n", runs);
}

std::string nameOfWriterAndDuration(const testing::TestParamInfo<WriterAndDuration>& info)
{
    return testName(std::get<Writer>(info.param)) + (std::get<bool>(info.param) ? "FromThenOn" : "Once");
}

INSTANTIATE_TEST_SUITE_P(Writers, FailingCallsTest,
                         testing::Combine(testing::Values(Writer::counting, Writer::typed, Writer::fragments),
                                          testing::Bool()),
                         nameOfWriterAndDuration);

} // namespace
} // namespace reference
