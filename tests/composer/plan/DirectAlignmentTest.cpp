#include "DirectAlignment.h"

#include "SampleStyles.h"

#include <gtest/gtest.h>

using namespace compose;

namespace {

TEST(DirectAlignment, IsNothingWhereTheStyleGivesIt)
{
    SampleStyles styles;
    EXPECT_EQ(directAlignment({.style = u"Title", .alignment = 2}, styles), std::nullopt);
    EXPECT_EQ(directAlignment({.style = u"Title"}, styles), std::nullopt);
    EXPECT_EQ(directAlignment({.style = u"Title", .alignment = 1}, styles), 0);
    EXPECT_EQ(directAlignment({.alignment = 4}, styles), 3);
    EXPECT_EQ(directAlignment({.alignment = 5}, styles), std::nullopt);
}

} // namespace
