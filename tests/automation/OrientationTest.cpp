// setOrientation: the whole document's pages.
#include "FrontEndTest.h"

namespace {

class OrientationTest : public FrontEndTest
{
protected:
    OrientationTest() { openDocument(); }
};

TEST_F(OrientationTest, OneIsLandscapeAndEveryOtherNumberPortrait)
{
    for (const auto& [number, orientation] : std::vector<std::pair<short, const char*>>{
             {1, "1"}, {0, "0"}, {1, "1"}, {2, "0"}, {-1, "0"}, {32767, "0"}, {-32768, "0"}, {257, "0"}}) {
        EXPECT_THAT(client->setOrientation(number), isHresult(S_OK));
        const std::string page = "document.PageSetup";
        EXPECT_LINES(takeTranscript(),
                     (Lines{"document.PageSetup -> " + page, page + ".Orientation = " + orientation,
                            page + ".LeftMargin = 130f"}))
            << number;
    }
}

TEST_F(OrientationTest, TurnsThePageAndSetsTheLeftMargin)
{
    const Word::PageSetupPtr page = word.application()->GetActiveDocument()->GetPageSetup();
    client->setOrientation(1);
    EXPECT_EQ(page->GetPageWidth(), 792.0F);
    EXPECT_EQ(page->GetLeftMargin(), 130.0F);
    client->setOrientation(0);
    EXPECT_EQ(page->GetPageWidth(), 612.0F);
    EXPECT_EQ(page->GetLeftMargin(), 130.0F);
}

// The writer has measured the page when it was made.
TEST_F(OrientationTest, TablesKeepTheWidthOfThePageAsItWas)
{
    client->setOrientation(1);
    client->startTable();
    client->addRow();
    client->addCell();
    word.clearTranscript();
    client->endTable();
    EXPECT_EQ(takeTranscript()[1], "table.Rows(1).Cells(1).SetWidth(430f, 3)");
}

TEST_F(OrientationTest, IsNotEchoed)
{
    trace(10);
    client->setOrientation(1);
    EXPECT_EQ(log(), "");
}

TEST_F(OrientationTest, LetsFailuresThroughAtEachCall)
{
    for (long call = 1; call <= 3; ++call) {
        word.failCall(call, refused);
        EXPECT_EQ(outcome([&] { return client->setOrientation(1); }), "_com_error 0x800a1234");
    }
    EXPECT_THAT(client->setOrientation(1), isHresult(S_OK));
}

} // namespace
