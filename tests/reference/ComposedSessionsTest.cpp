// Documents of the composing writer against the reference model: what a client says is what comes of it.
#include "RandomNumbers.h"
#include "RandomSession.h"
#include "SessionFiles.h"
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
constexpr unsigned readingCombinations = 3U << 5U;
constexpr std::uint32_t readingCombinationsInALot = readingCombinations / lots;
constexpr std::uint32_t sessionsOfAReading = 8;
constexpr std::uint32_t firstReadingSession = 200'001;
constexpr std::uint32_t mixedSessionsInALot = 60;
constexpr std::uint32_t firstMixedSession = 300'001;
constexpr std::uint32_t lookSessionsInALot = 120;
constexpr std::uint32_t firstLookSession = 400'001;

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

/// How Word reads rich text in, where that is not certain: the rest by three is the last paragraph's end, the
/// quotient's bits are the other points.
void setReading(standin::model::Switches& switches, unsigned combination)
{
    using standin::model::LastParagraph;
    static constexpr std::array ends = {LastParagraph::mark, LastParagraph::dropped, LastParagraph::surplus};
    switches.insertFileLastParagraph = ends.at(combination % ends.size());
    unsigned bits = combination / ends.size();
    for (bool* const point : {&switches.insertFileLeavesDefaultFont, &switches.insertFileKeepsDifferencesOnly,
                              &switches.insertFileRangeCoversText, &switches.insertFileMovesBookmarks,
                              &switches.insertFileTakesRtf}) {
        *point = (bits & 1U) == 0;
        bits >>= 1U;
    }
}

/// A Word that refuses rich text refuses the client's as well, and says so.
Session playable(Session session, const standin::model::Switches& switches)
{
    const auto isRefused = [](const ClientCall& call) {
        const SessionFile* const file = findSessionFile(call.text);
        return call.method == Method::insertFile && file && file->kind == SessionFile::Kind::formatted;
    };
    if (!switches.insertFileTakesRtf)
        std::erase_if(session, isRefused);
    return session;
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

TEST_P(ComposedSessionsTest, ComeOutRightHoweverWordReadsRichText)
{
    const std::uint32_t first = lot * readingCombinationsInALot;
    for (std::uint32_t combination = first; combination < first + readingCombinationsInALot; ++combination)
        for (std::uint32_t i = 0; i < sessionsOfAReading; ++i) {
            const std::uint32_t seed = firstReadingSession + combination * sessionsOfAReading + i;
            standin::model::Switches switches;
            setReading(switches, combination);
            law.check(playable(randomSession(seed, extent), switches),
                      "session " + std::to_string(seed) + ", reading " + std::to_string(combination),
                      switches);
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

TEST_P(ComposedSessionsTest, ComeOutRightUnderAnyMixture)
{
    const std::uint32_t first = firstMixedSession + lot * mixedSessionsInALot;
    for (std::uint32_t seed = first; seed < first + mixedSessionsInALot; ++seed) {
        RandomNumbers numbers(seed);
        standin::model::Switches switches =
            switchesOf(static_cast<unsigned>(numbers.below(1U << switchCount)));
        setReading(switches, static_cast<unsigned>(numbers.below(readingCombinations)));
        player.setLook(randomLook(numbers));
        law.check(playable(randomSession(seed, extent), switches), "session " + std::to_string(seed),
                  switches);
    }
    law.conclude();
}

std::string nameOf(const testing::TestParamInfo<WriterAndLot>& info)
{
    const auto [writer, lot] = info.param;
    return testName(writer) + std::to_string(lot);
}

INSTANTIATE_TEST_SUITE_P(Lots, ComposedSessionsTest,
                         testing::Combine(testing::Values(Writer::typed, Writer::fragments),
                                          testing::Range(0U, lots)),
                         nameOf);

} // namespace
} // namespace reference
