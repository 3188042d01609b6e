#include "RowDefinition.h"

#include <gtest/gtest.h>

namespace rtf {
namespace {

TEST(RowDefinition, GivesTheRightEdgesOfCellsInTwips)
{
    EXPECT_EQ(textOf({.widths = {100, 50.5f}}), "\\trowd\\trgaph108\\trleft-108\\cellx1892\\cellx2902\n");
}

TEST(RowDefinition, GivesAnExactHeightAsANegativeOne)
{
    EXPECT_EQ(textOf({.widths = {10}, .exactHeight = 20}),
              "\\trowd\\trgaph108\\trleft-108\\trrh-400\\cellx92\n");
}

TEST(RowDefinition, DoesNotDriftWhereWidthsAreNoWholeTwips)
{
    const std::string text = textOf({.widths = std::vector<float>(7, 10.01f), .leftEdge = 0});
    EXPECT_TRUE(text.ends_with("\\cellx1401\n")) << text;
}

} // namespace
} // namespace rtf
