// Documents against the reference model: what a client says and what comes of it.
#include "DocumentComparison.h"
#include "RandomSession.h"
#include "ReferenceDocument.h"
#include "SessionPlayer.h"
#include "SessionShrinker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <set>
#include <tuple>

namespace reference {
namespace {

constexpr int shownSessions = 3;
constexpr std::size_t switchCount = 11;

std::vector<Difference> differencesOf(SessionPlayer& player, const Session& session,
                                      const standin::model::Switches& switches = {})
{
    ReferenceDocument document(isAddress);
    document.perform(session);
    const PlayedSession played = player.play(session, switches);
    std::vector<Difference> differences = compare(document.content(), played.content);
    for (const std::string& failure : played.failures)
        differences.push_back({DifferenceKind::failure, failure});
    return differences;
}

/// The session as short as it can be told with a difference of that kind, and in what its document differs.
std::string report(SessionPlayer& player, const Session& session, const standin::model::Switches& switches,
                   DifferenceKind kind)
{
    const auto differs = [&](const Session& each) {
        const std::vector<Difference> differences = differencesOf(player, each, switches);
        return std::any_of(differences.begin(), differences.end(),
                           [kind](const Difference& difference) { return difference.kind == kind; });
    };
    const Session shortest = shrink(session, differs);
    std::string text = stepsOf(shortest);
    for (const Difference& difference : differencesOf(player, shortest, switches))
        text += "    " + std::string(nameOf(difference.kind)) + ": " + difference.description + "\n";
    return text;
}

/// Plays sessions that must come out right, and shows the first ones that do not.
class Law
{
public:
    explicit Law(SessionPlayer& player) : player_(player) {}

    void check(const Session& session, const std::string& name, const standin::model::Switches& switches = {})
    {
        ++played_;
        const std::vector<Difference> differences = differencesOf(player_, session, switches);
        if (differences.empty())
            return;
        if (++differing_ <= shownSessions)
            ADD_FAILURE() << name << ", shortened:\n"
                          << report(player_, session, switches, differences.front().kind);
    }

    void conclude() const { EXPECT_EQ(differing_, 0) << "of " << played_ << " sessions"; }

private:
    SessionPlayer& player_;
    int played_ = 0;
    int differing_ = 0;
};

TEST(SessionsTest, ArrangedAsAdvisedComeOutRightByDefault)
{
    SessionPlayer player(SessionPlayer::Positions::counted);
    Law law(player);
    for (std::uint32_t seed = 1; seed <= 1000; ++seed)
        law.check(arrangedSession(seed), "arranged session " + std::to_string(seed));
    law.conclude();
}

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

TEST(SessionsTest, ComeOutRightWhenPositionsAreTracked)
{
    SessionPlayer player(SessionPlayer::Positions::tracked);
    Law law(player);
    for (std::uint32_t seed = 1; seed <= 5000; ++seed)
        law.check(randomSession(seed), "session " + std::to_string(seed));
    law.conclude();
}

TEST(SessionsTest, ComeOutRightWhateverWordDoesWhereThatIsUncertain)
{
    SessionPlayer player(SessionPlayer::Positions::tracked);
    Law law(player);
    std::uint32_t seed = 10000;
    for (unsigned combination = 0; combination < 1U << switchCount; ++combination)
        for (int i = 0; i < 2; ++i, ++seed)
            law.check(randomSession(seed),
                      "session " + std::to_string(seed) + ", switches " + std::to_string(combination),
                      switchesOf(combination));
    law.conclude();
}

/// One line of the table for each kind of difference, and one for any.
std::string tableOfDifferences(SessionPlayer& player, std::uint32_t sessions)
{
    std::array<int, differenceKindCount> counts{};
    int any = 0;
    for (std::uint32_t seed = 1; seed <= sessions; ++seed) {
        std::set<DifferenceKind> kinds;
        for (const Difference& difference : differencesOf(player, randomSession(seed)))
            kinds.insert(difference.kind);
        for (const DifferenceKind kind : kinds)
            ++counts.at(static_cast<std::size_t>(kind));
        any += kinds.empty() ? 0 : 1;
    }
    std::string table;
    for (std::size_t i = 0; i < counts.size(); ++i)
        table += "| " + std::string(nameOf(static_cast<DifferenceKind>(i))) + " | " +
                 std::to_string(counts.at(i)) + " |\n";
    return table + "| any of these | " + std::to_string(any) + " of " + std::to_string(sessions) + " |\n";
}

std::string documentedBehaviour()
{
    std::ifstream file(MIROVEL_KNOWN_BEHAVIOUR, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The numbers are those of documents as clients get them by default; whoever changes one changes the page.
TEST(SessionsTest, DifferByDefaultAsOftenAsDocumented)
{
    SessionPlayer player(SessionPlayer::Positions::counted);
    const std::string table = tableOfDifferences(player, 2000);
    EXPECT_NE(documentedBehaviour().find(table), std::string::npos) << "docs/known-behaviour.md lacks\n"
                                                                    << table;
}

} // namespace
} // namespace reference
