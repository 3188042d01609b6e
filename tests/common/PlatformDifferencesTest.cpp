#include "PlatformDifferences.h"

#include <gmock/gmock.h>

#include <set>

namespace {

// A fourth one is not to slip in: what differs in Wine is first of all a question to our own code.
TEST(PlatformDifferencesTest, AreThreeWithAReasonEach)
{
    std::set<Difference> known;
    for (const PlatformDifference& each : platformDifferences) {
        known.insert(each.id);
        EXPECT_THAT(std::string(each.windows), testing::EndsWith("."));
        EXPECT_THAT(std::string(each.reason), testing::EndsWith("."));
    }
    EXPECT_EQ(known.size(), 3U);
    EXPECT_EQ(platformDifferences.size(), 3U);
}

} // namespace
