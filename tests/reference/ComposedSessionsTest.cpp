// Documents of the composing writer against the reference model: what a client says is what comes of it.
#include "RandomNumbers.h"
#include "RandomSession.h"
#include "RandomSwitches.h"
#include "SessionLaw.h"
#include "SessionPlayer.h"

#include "SwitchTable.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <tuple>

namespace reference {
namespace {

constexpr Extent extent = Extent::all;

// Sessions come in lots, so that the lots can be played side by side.
constexpr std::uint32_t lots = 16;
constexpr std::uint32_t sessionsInALot = 500;
constexpr std::uint32_t sessionsOfAReading = 2;
constexpr std::uint32_t firstReadingSession = 100'001;
constexpr std::uint32_t mixedSessionsInALot = 280;
constexpr std::uint32_t firstMixedSession = 300'001;
constexpr std::uint32_t firstLongSession = 1'000'001;
constexpr std::uint32_t lookSessionsInALot = 120;
constexpr std::uint32_t firstLookSession = 400'001;

/// In each lot; by default a few.
std::optional<std::uint32_t> sessionsOfALongRun()
{
    const char* const sessions = std::getenv("MIROVEL_MIXED_SESSIONS");
    if (!sessions)
        return {};
    return static_cast<std::uint32_t>(std::strtoul(sessions, nullptr, 10));
}

using WriterAndLot = std::tuple<Writer, std::uint32_t>;

class ComposedSessionsTest : public testing::TestWithParam<WriterAndLot>
{
protected:
    ComposedSessionsTest() : player(std::get<Writer>(GetParam())), law(player) {}

    void check(std::uint32_t seed, const standin::model::Switches& switches)
    {
        law.check(randomSession(seed, extent),
                  "session " + std::to_string(seed) + ", switches " + namedSwitches(switches), switches);
    }

    SessionPlayer player;
    SessionLaw law;
    const std::uint32_t lot = std::get<std::uint32_t>(GetParam());
};

TEST_P(ComposedSessionsTest, ComeOutRight)
{
    const std::uint32_t first = 1 + lot * sessionsInALot;
    for (std::uint32_t seed = first; seed < first + sessionsInALot; ++seed)
        law.check(randomSession(seed, extent), "session " + std::to_string(seed));
    law.conclude();
}

TEST_P(ComposedSessionsTest, ComeOutRightUnderEachOtherReadingOfWord)
{
    std::uint32_t seed = firstReadingSession + lot * sessionsInALot;
    for (const standin::model::SwitchEntry& entry : standin::model::switchTable())
        for (std::size_t value = 1; value < entry.values.size(); ++value)
            for (std::uint32_t i = 0; i < sessionsOfAReading; ++i) {
                standin::model::Switches switches;
                entry.set(switches, value);
                check(++seed, switches);
            }
    law.conclude();
}

TEST_P(ComposedSessionsTest, ComeOutRightUnderAnyMixtureOfReadings)
{
    const std::uint32_t sessions = sessionsOfALongRun().value_or(mixedSessionsInALot);
    const std::uint32_t first = sessionsOfALongRun() ? firstLongSession : firstMixedSession;
    for (std::uint32_t i = 0; i < sessions; ++i) {
        const std::uint32_t seed = first + lot * sessions + i;
        RandomNumbers numbers(seed);
        player.setLook(randomLook(numbers));
        check(seed, randomSwitches(seed));
    }
    law.conclude();
}

TEST_P(ComposedSessionsTest, ComeOutRightInTheLookThatSettingsSay)
{
    const std::uint32_t first = firstLookSession + lot * lookSessionsInALot;
    for (std::uint32_t seed = first; seed < first + lookSessionsInALot; ++seed) {
        RandomNumbers numbers(seed);
        player.setLook(randomLook(numbers));
        law.check(randomSession(seed, extent), "session " + std::to_string(seed));
    }
    law.conclude();
}

std::string nameOfWriterAndLot(const testing::TestParamInfo<WriterAndLot>& info)
{
    const auto [writer, lot] = info.param;
    return testName(writer) + std::to_string(lot);
}

INSTANTIATE_TEST_SUITE_P(Lots, ComposedSessionsTest,
                         testing::Combine(testing::Values(Writer::typed, Writer::fragments),
                                          testing::Range(0U, lots)),
                         nameOfWriterAndLot);

} // namespace
} // namespace reference
