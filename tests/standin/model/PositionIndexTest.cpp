#include "PositionIndex.h"

#include <gtest/gtest.h>

#include <string>

namespace standin::model {
namespace {

TEST(PositionIndexTest, FindsAndMovesEntriesOnBothSidesOfTheGap)
{
    PositionIndex<char> index(10);
    index.insert(4, 'b');
    index.insert(8, 'd');
    index.insert(2, 'a');
    index.insert(6, 'c');
    ASSERT_EQ(index.size(), 4u);
    const auto listing = [&index] {
        std::string text;
        for (std::size_t i = 0; i < index.size(); ++i)
            text += index.value(i) + std::to_string(index.position(i)) + " ";
        return text;
    };
    EXPECT_EQ(listing(), "a2 b4 c6 d8 ");
    EXPECT_EQ(index.firstAfter(1), 0u);
    EXPECT_EQ(index.firstAfter(2), 1u);
    EXPECT_EQ(index.firstAfter(5), 2u);
    EXPECT_EQ(index.firstAfter(6), 3u);
    EXPECT_EQ(index.firstAfter(8), 4u);
    index.inserted(4, 10);
    EXPECT_EQ(listing(), "a2 b4 c16 d18 ");
    index.removeBetween(2, 16);
    index.erased(2, 16);
    EXPECT_EQ(listing(), "a2 d4 ");
    EXPECT_EQ(index.firstAfter(3), 1u);
    EXPECT_EQ(index.firstAfter(0), 0u);
}

} // namespace
} // namespace standin::model
