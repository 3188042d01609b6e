// Documents of the composing writer against the reference model: what a client says is what comes of it.
#include "RandomSession.h"
#include "SessionLaw.h"
#include "SessionPlayer.h"

#include <gtest/gtest.h>

#include <array>
#include <tuple>
#include <vector>

namespace reference {
namespace {

constexpr Extent extent = Extent::all;

// Sessions come in lots, so that the lots can be played side by side.
constexpr std::uint32_t lots = 16;
constexpr std::uint32_t sessionsInALot = 500;
constexpr std::size_t switchCount = 11;
constexpr std::uint32_t combinationsInALot = (1U << switchCount) / lots;
constexpr std::uint32_t sessionsOfACombination = 2;
constexpr std::uint32_t firstSwitchedSession = 100'001;

/// Each bit the reading of one uncertain point that is not taken by default.
standin::model::Switches switchesOf(unsigned combination)
{
    standin::model::Switches switches;
    const std::array all = {
        &switches.pageBreakRangeCoversBreak,
        &switches.sectionBreakRangeLiesBehind,
        &switches.deleteAnswersOne,
        &switches.collapseToEndStaysBeforeFinalMark,
        &switches.paragraphStyleKeepsDirectFormatting,
        &switches.mixedStyleReadsFirst,
        &switches.closeDropsChanges,
        &switches.fieldsAddReplacesNothing,
        &switches.fieldsAddOmitsMergeFormat,
        &switches.hyperlinkWithoutLinkData,
        &switches.oleObjectIsField,
    };
    static_assert(std::tuple_size_v<decltype(all)> == switchCount);
    for (unsigned bit = 0; bit < all.size(); ++bit)
        *all[bit] = (combination >> bit & 1U) == 0;
    return switches;
}

using WriterAndLot = std::tuple<Writer, std::uint32_t>;

class ComposedSessionsTest : public testing::TestWithParam<WriterAndLot>
{
protected:
    ComposedSessionsTest() : player(std::get<Writer>(GetParam())), law(player) {}

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

TEST_P(ComposedSessionsTest, ComeOutRightWhateverWordDoesWhereThatIsUncertain)
{
    const std::uint32_t first = lot * combinationsInALot;
    for (std::uint32_t combination = first; combination < first + combinationsInALot; ++combination)
        for (std::uint32_t i = 0; i < sessionsOfACombination; ++i) {
            const std::uint32_t seed = firstSwitchedSession + combination * sessionsOfACombination + i;
            law.check(randomSession(seed, extent),
                      "session " + std::to_string(seed) + ", switches " + std::to_string(combination),
                      switchesOf(combination));
        }
    law.conclude();
}

std::string nameOf(const testing::TestParamInfo<WriterAndLot>& info)
{
    const auto [writer, lot] = info.param;
    return (writer == Writer::typed ? "Typed" : "Fragments") + std::to_string(lot);
}

INSTANTIATE_TEST_SUITE_P(Lots, ComposedSessionsTest,
                         testing::Combine(testing::Values(Writer::typed, Writer::fragments), testing::Range(0U, lots)), nameOf);

} // namespace
} // namespace reference
