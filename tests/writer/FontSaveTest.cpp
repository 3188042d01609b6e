#include "FontSave.h"
#include "WriterFixture.h"

namespace {

using FontSaveTest = DocumentTest;

void expectEveryComparisonTrue(const FontSave& a, const FontSave& b)
{
    EXPECT_TRUE(a.operator==(b));
    EXPECT_TRUE(a.operator!=(b));
    EXPECT_TRUE(a.operator<(b));
    EXPECT_TRUE(a.operator>(b));
}

FontSave fontRun(std::int32_t start, const FontData& font, const Word::RangePtr& range)
{
    FontSave run;
    run.setStart(start);
    run.setFont(font);
    run.setRange(range);
    run.setCell(2, 3);
    return run;
}

TEST_F(FontSaveTest, IsEmptyAtFirst)
{
    const FontSave run;
    EXPECT_EQ(run.getFont(), FontData());
    EXPECT_EQ(run.getStart(), 0);
    EXPECT_FALSE(run.getRange());
    EXPECT_FALSE(run.getTable());
    EXPECT_EQ(run.getRow(), 0);
    EXPECT_EQ(run.getCol(), 0);
}

TEST_F(FontSaveTest, AnyTwoAreEqualUnequalLessAndGreater)
{
    const FontSave early = fontRun(1, normalFont.data(), range_);
    const FontSave late = fontRun(7, heading1Font.data(), Word::RangePtr());
    expectEveryComparisonTrue(early, late);
    expectEveryComparisonTrue(late, early);
    expectEveryComparisonTrue(early, FontSave(early));
    expectEveryComparisonTrue(early, early);
    expectEveryComparisonTrue(FontSave(), FontSave());
}

TEST_F(FontSaveTest, CopiesShareTheRangeAndHoldIt)
{
    Word::RangePtr range = document_->Range();
    const long others = word_.liveObjects() - 1;
    {
        FontSave original = fontRun(4, heading1Font.data(), range);
        const FontSave copy(original);
        FontSave assigned;
        assigned = original;
        original = FontSave();
        for (const FontSave* run : {&copy, static_cast<const FontSave*>(&assigned)}) {
            EXPECT_EQ(run->getStart(), 4);
            EXPECT_EQ(run->getFont(), heading1Font.data());
            EXPECT_EQ(run->getRange().GetInterfacePtr(), range.GetInterfacePtr());
            EXPECT_EQ(run->getRow(), 2);
            EXPECT_EQ(run->getCol(), 3);
        }
        range = nullptr;
        EXPECT_EQ(word_.liveObjects(), others + 1);
    }
    EXPECT_EQ(word_.liveObjects(), others);
}

TEST_F(FontSaveTest, KeepsACopyOfTheFont)
{
    FontData font = normalFont.data();
    FontSave run;
    run.setFont(font);
    font.size = 99;
    FontData read = run.getFont();
    read.size = 98;
    EXPECT_EQ(run.getFont(), normalFont.data());
}

} // namespace
