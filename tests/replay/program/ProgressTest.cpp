#include "Progress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace replay {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ProgressTest, IsABar)
{
    EXPECT_EQ(barOf({600, 1200, 2.0}, 60), "[=========          ]   50%  600/1200 calls  300/s  2 s left");
    EXPECT_EQ(barOf({0, 10, 0}, 40), "[                    ]    0%  0/10 calls");
    EXPECT_EQ(barOf({10, 10, 1}, 200), "[" + std::string(40, '=') + "]  100%  10/10 calls  10/s  0 s left");
}

TEST(ProgressTest, ShowsNumbersWhereThereIsNoRoomForABar)
{
    EXPECT_EQ(barOf({6, 12, 0}, 20), "   50%  6/12 calls");
    EXPECT_EQ(barOf({6, 12, 0}, 8), "   50%  ");
    EXPECT_EQ(barOf({6, 12, 0}, 0), "");
}

TEST(ProgressTest, IsWholeAtTheEndOnly)
{
    EXPECT_THAT(barOf({999, 1000, 1}, 80), testing::HasSubstr(" 99%"));
    EXPECT_THAT(barOf({0, 0, 1}, 80), testing::HasSubstr("100%"));
}

TEST(ProgressTest, IsALine)
{
    EXPECT_EQ(lineOf({600, 1200, 2.0}), "600 of 1200 calls, 300/s, 2 s left");
    EXPECT_EQ(lineOf({1, 1200, 1.0}), "1 of 1200 calls, 1/s, 19:59 left");
    EXPECT_EQ(lineOf({1, 66, 1.0}), "1 of 66 calls, 1/s, 1:05 left");
    EXPECT_EQ(lineOf({0, 5, 1.0}), "0 of 5 calls");
}

class ProgressReportTest : public testing::Test
{
protected:
    ProgressReport report(std::size_t columns)
    {
        return {100, columns, [this] { return now; },
                [this](std::string_view text) { written.emplace_back(text); }};
    }

    double now = 50;
    std::vector<std::string> written;
};

TEST_F(ProgressReportTest, DrawsTheBarAnewInItsLine)
{
    ProgressReport progress = report(60);
    progress.reached(1);
    EXPECT_THAT(written, IsEmpty()) << "too soon";
    now += 1;
    progress.reached(50);
    progress.reached(51);
    now += 1;
    progress.reached(100);
    progress.end();
    progress.end();
    ASSERT_THAT(written, testing::SizeIs(3));
    EXPECT_EQ(written[0], "\r" + barOf({50, 100, 1}, 59));
    EXPECT_EQ(written[1], "\r" + barOf({100, 100, 2}, 59));
    EXPECT_EQ(written[2], "\r" + std::string(59, ' ') + "\r");
}

TEST_F(ProgressReportTest, LeavesNothingOfALongerBar)
{
    ProgressReport progress = report(200);
    now += 100;
    progress.reached(1); // 165:00 left
    now += 1;
    progress.reached(9); // 17:02 left
    EXPECT_EQ(written[0].size(), written[1].size());
    EXPECT_TRUE(written[1].ends_with("left "));
}

TEST_F(ProgressReportTest, WritesALineNowAndThen)
{
    ProgressReport progress = report(0);
    now += 1;
    progress.reached(10);
    now += 4;
    progress.reached(50);
    now += 4.5;
    progress.reached(60);
    progress.end();
    EXPECT_THAT(written, ElementsAre("50 of 100 calls, 10/s, 5 s left\n"));
}

} // namespace
} // namespace replay
