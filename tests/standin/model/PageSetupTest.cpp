#include "PageSetup.h"

#include <gtest/gtest.h>

namespace standin::model {
namespace {

TEST(PageSetupTest, TurningSwapsTheSizeRotatesTheMarginsAndComesBack)
{
    PageSetup setup;
    setup.leftMargin = 1;
    setup.topMargin = 2;
    setup.rightMargin = 3;
    setup.bottomMargin = 4;
    const PageSetup portrait = setup;
    setup.setOrientation(Orientation::landscape);
    EXPECT_EQ(setup.pageWidth, 792);
    EXPECT_EQ(setup.pageHeight, 612);
    EXPECT_EQ(setup.leftMargin, 2);
    EXPECT_EQ(setup.topMargin, 3);
    EXPECT_EQ(setup.rightMargin, 4);
    EXPECT_EQ(setup.bottomMargin, 1);
    setup.setOrientation(Orientation::landscape);
    EXPECT_EQ(setup.pageWidth, 792);
    setup.setOrientation(Orientation::portrait);
    EXPECT_EQ(setup, portrait);
}

} // namespace
} // namespace standin::model
