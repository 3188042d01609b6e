#include "ContentTokens.h"
#include "Fragment.h"
#include "FragmentFitness.h"
#include "FragmentTokens.h"
#include "TestStyles.h"

#include <gmock/gmock.h>

#include <random>

namespace compose {
namespace {

class RandomFragments : public testing::TestWithParam<unsigned>
{
};

TEST_P(RandomFragments, ShowWhatTheContentSaysAndNothingTwice)
{
    std::mt19937 numbers(GetParam());
    for (int round = 0; round < 100; ++round) {
        const RandomContent content =
            makeContent([&numbers](std::size_t count) { return numbers() % count; });
        for (const Block& block : content.blocks)
            ASSERT_TRUE(fitsFragment(block, content.links, {432, 648}));
        TestStyles styles;
        const std::string rtf = fragmentOf(content.blocks, {styles, content.links, isLinkedBookmark, 431.3f});
        SCOPED_TRACE(rtf);
        const FragmentReading reading = readFragment(rtf);
        ASSERT_THAT(reading.tokens, testing::ElementsAreArray(tokensOf(content, 431.3f)));
        ASSERT_EQ(reading.idleProperties, 0u);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomFragments, testing::Range(0u, 10u));

} // namespace
} // namespace compose
