// Documents of the counting writer against the reference model: how often they are what the client says.
#include "DocumentComparison.h"
#include "RandomSession.h"
#include "SessionLaw.h"
#include "SessionPlayer.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <iterator>
#include <set>

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

} // namespace
} // namespace reference
