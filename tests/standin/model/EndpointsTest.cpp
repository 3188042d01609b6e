#include "Endpoints.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace standin::model {
namespace {

TEST(EndpointSetTest, FollowsARandomSequenceOfEditsAsTheRuleSays)
{
    constexpr std::size_t count = 40;
    Position length = 100;
    EndpointSet set(length);
    std::array<Endpoint, count> endpoints;
    std::array<Position, count> expected;
    std::mt19937 random(7);
    const auto below = [&random](Position limit) {
        return static_cast<Position>(random() % static_cast<unsigned>(limit));
    };
    for (std::size_t i = 0; i < count; ++i) {
        expected[i] = below(length + 1);
        set.add(endpoints[i], expected[i]);
    }
    for (int step = 0; step < 2000; ++step) {
        const Position at = below(length + 1);
        if (step % 2 == 0 || length < 10) {
            set.inserted(at, 3);
            length += 3;
            for (Position& each : expected)
                each += each > at ? 3 : 0;
        } else {
            const Position end = std::min(length, at + below(5));
            set.erased(at, end);
            length -= end - at;
            for (Position& each : expected)
                each = each >= end ? each - (end - at) : std::min(each, at);
        }
        const std::size_t chosen = static_cast<std::size_t>(below(count));
        expected[chosen] = below(length + 1);
        set.set(endpoints[chosen], expected[chosen]);
        for (std::size_t i = 0; i < count; ++i)
            ASSERT_EQ(set.position(endpoints[i]), expected[i]) << "step " << step;
        ASSERT_TRUE(set.isConsistent());
    }
    for (Endpoint& each : endpoints)
        set.remove(each);
    EXPECT_EQ(set.size(), 0u);
}

} // namespace
} // namespace standin::model
