// Sessions with each Word that a profile describes: composed documents come out right, and the counting
// writer makes one of every session.
#include "RandomSession.h"
#include "SessionLaw.h"
#include "SessionPlayer.h"

#include "Profile.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

namespace reference {
namespace {

constexpr std::uint32_t sessionsOfAProfile = 40;
constexpr std::uint32_t firstOfProfiles = 500'001;

std::vector<std::filesystem::path> profiles()
{
    std::vector<std::filesystem::path> found;
    for (const auto& entry : std::filesystem::directory_iterator(MIROVEL_PROFILES))
        if (entry.path().extension() == L".json")
            found.push_back(entry.path());
    std::ranges::sort(found);
    return found;
}

standin::model::Switches read(const std::filesystem::path& profile)
{
    std::ifstream file(profile, std::ios::binary);
    const std::string json{std::istreambuf_iterator<char>(file), {}};
    standin::model::Switches switches;
    readProfile(switches, json);
    return switches;
}

class ProfilesTest : public testing::TestWithParam<Writer>
{
};

TEST_P(ProfilesTest, HoldWordsThatSessionsComeOutRightWith)
{
    SessionPlayer player(GetParam());
    SessionLaw law(player);
    EXPECT_GE(profiles().size(), 3U);
    for (const std::filesystem::path& profile : profiles()) {
        const standin::model::Switches switches = read(profile);
        for (std::uint32_t seed = firstOfProfiles; seed < firstOfProfiles + sessionsOfAProfile; ++seed) {
            const Session session = randomSession(seed, Extent::all);
            if (player.composes())
                law.check(session, profile.filename().string() + ", session " + std::to_string(seed),
                          switches);
            else
                EXPECT_FALSE(player.play(session, switches).content.stories.empty())
                    << profile.filename().string() << ", session " << seed;
        }
    }
    law.conclude();
}

INSTANTIATE_TEST_SUITE_P(Writers, ProfilesTest,
                         testing::Values(Writer::counting, Writer::typed, Writer::fragments), nameOfWriter);

} // namespace
} // namespace reference
