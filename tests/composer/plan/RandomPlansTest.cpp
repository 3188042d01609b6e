#include "ComposedSession.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <exception>
#include <string>
#include <vector>

namespace {

constexpr std::uint32_t sessions = 30000;

/// Empty: what was written is what was said.
std::string failureOf(const std::vector<std::uint8_t>& bytes)
{
    ComposedSession session{Choices(bytes)};
    try {
        const std::string difference = session.run();
        return difference.empty() ? difference : session.story() + difference;
    } catch (const std::exception& error) {
        return session.story() + error.what();
    }
}

/// Fewer bytes that fail as well.
std::vector<std::uint8_t> shortened(std::vector<std::uint8_t> bytes)
{
    for (std::size_t length = bytes.size() / 2; length > 0; length = length == 1 ? 0 : (length + 1) / 2) {
        for (std::size_t at = 0; at + length <= bytes.size();) {
            std::vector<std::uint8_t> fewer = bytes;
            const auto from = fewer.begin() + static_cast<std::ptrdiff_t>(at);
            fewer.erase(from, from + static_cast<std::ptrdiff_t>(length));
            if (failureOf(fewer).empty())
                ++at;
            else
                bytes = std::move(fewer);
        }
    }
    return bytes;
}

TEST(RandomPlans, WriteWhatWasSaidWheneverItIsTaken)
{
    for (std::uint32_t seed = 0; seed < sessions; ++seed) {
        const std::vector<std::uint8_t> bytes = randomBytes(seed, seed % 4 == 0 ? 400 : 60);
        ASSERT_EQ(failureOf(bytes), "") << "seed " << seed << ", in short:\n" << failureOf(shortened(bytes));
    }
}

} // namespace
