// Documents of the counting writer against the reference model: how often they are what the client says.
#include "DocumentComparison.h"
#include "RandomSession.h"
#include "SessionLaw.h"
#include "SessionPlayer.h"

#include "SwitchTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace reference {
namespace {

TEST(CountedSessionsTest, ArrangedAsAdvisedComeOutRightByDefault)
{
    SessionPlayer player(Writer::counting);
    SessionLaw law(player);
    for (std::uint32_t seed = 1; seed <= 1000; ++seed)
        law.check(arrangedSession(seed), "arranged session " + std::to_string(seed));
    law.conclude();
}

/// Sessions without files cannot differ in the kinds behind it.
constexpr auto lastKind = static_cast<std::size_t>(DifferenceKind::failure);

/// One line of the table for each kind of difference, and one for any.
std::string tableOfDifferences(SessionPlayer& player, std::uint32_t sessions)
{
    std::array<int, lastKind + 1> counts{};
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
TEST(CountedSessionsTest, DifferByDefaultAsOftenAsDocumented)
{
    SessionPlayer player(Writer::counting);
    const std::string table = tableOfDifferences(player, 2000);
    EXPECT_NE(documentedBehaviour().find(table), std::string::npos) << "docs/known-behaviour.md lacks\n"
                                                                    << table;
}

/// In what a reading of Word changes the documents of sessions, as the page has it.
struct Changes
{
    int text = 0;
    int look = 0;
    int places = 0;
    int failures = 0;
    int any = 0;
};

using Kinds = std::set<DifferenceKind>;

bool holdsAnyOf(const Kinds& kinds, std::initializer_list<DifferenceKind> some)
{
    return std::ranges::any_of(some, [&kinds](DifferenceKind kind) { return kinds.contains(kind); });
}

void count(Changes& changes, const PlayedSession& byDefault, const PlayedSession& played)
{
    using enum DifferenceKind;
    std::set<std::string> known; // a document of the counting writer may be at odds with itself
    for (const Difference& difference : compare(byDefault.content, byDefault.content))
        known.insert(difference.description);
    Kinds kinds;
    for (const Difference& difference : compare(byDefault.content, played.content))
        if (!known.contains(difference.description))
            kinds.insert(difference.kind);
    const bool fails = played.failures.size() > byDefault.failures.size();
    changes.text += holdsAnyOf(kinds, {text, addedEnd, addedSpace, cells}) ? 1 : 0;
    changes.look += holdsAnyOf(kinds, {style, font, alignment}) ? 1 : 0;
    changes.places +=
        holdsAnyOf(kinds, {link, bookmark, entry, contents, field, picture, headerOrFooter}) ? 1 : 0;
    changes.failures += fails ? 1 : 0;
    changes.any += kinds.empty() && !fails ? 0 : 1;
}

/// One line for each value of a switch that changes anything.
std::string tableOfReadings(SessionPlayer& player, std::uint32_t sessions)
{
    std::vector<PlayedSession> byDefault;
    for (std::uint32_t seed = 1; seed <= sessions; ++seed)
        byDefault.push_back(player.play(randomSession(seed, Extent::all)));
    std::string table;
    for (const standin::model::SwitchEntry& entry : standin::model::switchTable())
        for (std::size_t value = 1; value < entry.values.size(); ++value) {
            standin::model::Switches switches;
            entry.set(switches, value);
            Changes changes;
            for (std::uint32_t seed = 1; seed <= sessions; ++seed)
                count(changes, byDefault[seed - 1], player.play(randomSession(seed, Extent::all), switches));
            if (changes.any == 0)
                continue;
            table += "| `" + namedSwitches(switches) + "`";
            for (const int number :
                 {changes.text, changes.look, changes.places, changes.failures, changes.any})
                table += " | " + std::to_string(number);
            table += " |\n";
        }
    return table;
}

TEST(CountedSessionsTest, DifferUnderEachOtherReadingOfWordAsOftenAsDocumented)
{
    SessionPlayer player(Writer::counting);
    const std::string table = tableOfReadings(player, 50);
    EXPECT_NE(documentedBehaviour().find(table), std::string::npos) << "docs/known-behaviour.md lacks\n"
                                                                    << table;
}

} // namespace
} // namespace reference
