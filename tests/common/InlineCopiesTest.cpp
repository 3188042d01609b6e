// A program's files may be compiled with different options, and share their copies of inline functions.
#include "InlineCopies.h"

#include <gtest/gtest.h>

namespace {

TEST(InlineCopiesTest, OverwriteNothingOfAnotherFilesCaller)
{
    EXPECT_EQ(drawnModerately(7), 327'741'615U);
    EXPECT_EQ(drawnFast(7, 5000), 2'810'312'632U);
}

} // namespace
