#include "Lines.h"

#include <gtest/gtest-spi.h>

namespace {

Lines numbers(int first, int last)
{
    Lines lines;
    for (int i = first; i <= last; ++i)
        lines.push_back(std::to_string(i));
    return lines;
}

TEST(LinesTest, EqualTextsDoNotDiffer)
{
    EXPECT_EQ(unifiedDiff({}, {}), "");
    EXPECT_EQ(unifiedDiff({"a", "b"}, {"a", "b"}), "");
    EXPECT_LINES(numbers(1, 9), numbers(1, 9));
}

TEST(LinesTest, ShowsWhatWentAndWhatCame)
{
    EXPECT_EQ(unifiedDiff({"a", "b", "c"}, {"a", "x", "c"}), "@@ -1,3 +1,3 @@\n a\n-b\n+x\n c\n");
    EXPECT_EQ(unifiedDiff({}, {"a"}), "@@ -0,0 +1,1 @@\n+a\n");
    EXPECT_EQ(unifiedDiff({"a"}, {}), "@@ -1,1 +0,0 @@\n-a\n");
    EXPECT_EQ(unifiedDiff({"a", "a"}, {"a", "a", "a"}), "@@ -1,2 +1,3 @@\n a\n a\n+a\n");
}

TEST(LinesTest, ALineThatWasPutInIsAllThatIsShown)
{
    Lines after = numbers(1, 20);
    after.insert(after.begin() + 9, "new");
    EXPECT_EQ(unifiedDiff(numbers(1, 20), after), "@@ -7,6 +7,7 @@\n 7\n 8\n 9\n+new\n 10\n 11\n 12\n");
}

TEST(LinesTest, DifferencesFarApartStandApart)
{
    Lines after = numbers(1, 30);
    after[4] = "five";
    after[24] = "twenty-five";
    EXPECT_EQ(unifiedDiff(numbers(1, 30), after),
              "@@ -2,7 +2,7 @@\n 2\n 3\n 4\n-5\n+five\n 6\n 7\n 8\n"
              "@@ -22,7 +22,7 @@\n 22\n 23\n 24\n-25\n+twenty-five\n 26\n 27\n 28\n");
    after = numbers(1, 30);
    after[4] = "five";
    after[10] = "eleven";
    EXPECT_EQ(unifiedDiff(numbers(1, 30), after),
              "@@ -2,13 +2,13 @@\n 2\n 3\n 4\n-5\n+five\n 6\n 7\n 8\n 9\n 10\n-11\n+eleven\n 12\n 13\n 14\n");
}

TEST(LinesTest, AFailureIsADiff)
{
    EXPECT_NONFATAL_FAILURE(EXPECT_LINES((Lines{"a", "c"}), (Lines{"a", "b"})),
                            "differs, - what is expected, + what there is:\n@@ -1,2 +1,2 @@\n a\n-b\n+c\n");
}

} // namespace
