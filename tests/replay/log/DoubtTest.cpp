#include "Doubt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace replay {
namespace {

using testing::ElementsAre;

TEST(DoubtTest, AreReportedByKindWithTheirLines)
{
    EXPECT_THAT(reportOf({{DoubtKind::lineEnd, 3},
                          {DoubtKind::rowHeight, 4},
                          {DoubtKind::lineEnd, 5},
                          {DoubtKind::lineEnd, 6},
                          {DoubtKind::lineEnd, 7},
                          {DoubtKind::lineEnd, 9},
                          {DoubtKind::lineEnd, 10},
                          {DoubtKind::lineEnd, 10}}),
                ElementsAre("  lines 3, 5-7, 9, 10: " + std::string(describe(DoubtKind::lineEnd)),
                            "  line 4: " + std::string(describe(DoubtKind::rowHeight))));
}

TEST(DoubtTest, NothingIsReportedWithoutAny)
{
    EXPECT_THAT(reportOf({}), ElementsAre());
}

} // namespace
} // namespace replay
