#include "SaveAlign.h"
#include "WriterFixture.h"

namespace {

using SaveAlignTest = DocumentTest;

void expectEveryComparisonTrue(const SaveAlign& a, const SaveAlign& b)
{
    EXPECT_TRUE(a.operator==(b));
    EXPECT_TRUE(a.operator!=(b));
    EXPECT_TRUE(a.operator<(b));
    EXPECT_TRUE(a.operator>(b));
}

SaveAlign alignRun(std::int32_t start, std::int16_t align, const Word::RangePtr& range)
{
    SaveAlign run;
    run.start = start;
    run.align = align;
    run.range = range;
    return run;
}

TEST_F(SaveAlignTest, IsEmptyAtFirst)
{
    const SaveAlign run;
    EXPECT_EQ(run.start, 0);
    EXPECT_EQ(run.align, 0);
    EXPECT_FALSE(run.range);
}

TEST_F(SaveAlignTest, AnyTwoAreEqualUnequalLessAndGreater)
{
    const SaveAlign early = alignRun(1, 2, range_);
    const SaveAlign late = alignRun(7, 3, Word::RangePtr());
    expectEveryComparisonTrue(early, late);
    expectEveryComparisonTrue(late, early);
    expectEveryComparisonTrue(early, SaveAlign(early));
    expectEveryComparisonTrue(early, early);
    expectEveryComparisonTrue(SaveAlign(), SaveAlign());
}

TEST_F(SaveAlignTest, CopiesShareTheRangeAndHoldIt)
{
    Word::RangePtr range = document_->Range();
    const long others = word_.liveObjects() - 1;
    {
        SaveAlign original = alignRun(4, -3, range);
        const SaveAlign copy(original);
        SaveAlign assigned;
        assigned = original;
        original = SaveAlign();
        EXPECT_EQ(copy.start, 4);
        EXPECT_EQ(copy.align, -3);
        EXPECT_EQ(copy.range.GetInterfacePtr(), range.GetInterfacePtr());
        EXPECT_EQ(assigned.start, 4);
        EXPECT_EQ(assigned.align, -3);
        EXPECT_EQ(assigned.range.GetInterfacePtr(), range.GetInterfacePtr());
        range = nullptr;
        EXPECT_EQ(word_.liveObjects(), others + 1);
    }
    EXPECT_EQ(word_.liveObjects(), others);
}

} // namespace
