#include "PageArea.h"

#include "PenTest.h"

#include "Section.h"
#include "WordConstants.h"

namespace compose {
namespace {

/// Pages of 612 by 792 points with margins of 90 at the sides and 72 above and below.
class PageAreaTest : public PenTest
{
protected:
    void TearDown() override
    {
        area.reset();
        collections = Collections(nullptr);
        PenTest::TearDown();
    }

    /// Another one, for the last of two sections; the first one's pages are larger.
    void beginSection()
    {
        body->InsertAfter(L"ab");
        document->Range(Word::integer(1), Word::integer(1))
            ->InsertBreak(Word::integer(Word::wdSectionBreakNextPage));
        standin::model::PageSetup& first = model().section(1)->pageSetup;
        first.pageWidth = 1000;
        first.pageHeight = 1200;
        word.clearTranscript();
    }

    Collections collections{document};
    std::unique_ptr<PageArea> area = std::make_unique<PageArea>(document, collections, 1);
};

TEST_F(PageAreaTest, IsWhatThePagesMarginsLeave)
{
    EXPECT_EQ(area->width(), 432);
    EXPECT_EQ(area->height(), 648);
    standin::model::PageSetup& page = model().section(1)->pageSetup;
    page.leftMargin = 100;
    page.rightMargin = 12;
    page.topMargin = 90;
    page.bottomMargin = 2;
    PageArea other(document, collections, 1);
    EXPECT_EQ(other.width(), 500);
    EXPECT_EQ(other.height(), 700);
}

TEST_F(PageAreaTest, AsksForEachLengthOnceAndForNoneThatNobodyWants)
{
    const std::string page = "document.PageSetup";
    area->width();
    EXPECT_LINES(takeCalls(), (Calls{page + " -> " + page, page + ".PageWidth -> 612f",
                                     page + ".LeftMargin -> 90f", page + ".RightMargin -> 90f"}));
    area->height();
    EXPECT_LINES(takeCalls(), (Calls{page + ".PageHeight -> 792f", page + ".TopMargin -> 72f",
                                     page + ".BottomMargin -> 72f"}));
    area->width();
    area->height();
    EXPECT_LINES(takeCalls(), Calls());
}

TEST_F(PageAreaTest, IsThatOfItsSection)
{
    beginSection();
    PageArea second(document, collections, 2);
    EXPECT_EQ(second.width(), 432);
    EXPECT_EQ(second.height(), 648);
    for (const std::string& call : takeCalls())
        EXPECT_EQ(call.find("document.PageSetup"), call.npos) << "where sections differ it tells nothing";
}

// A file may have brought the other one; of both together Word tells a width that no page has.
TEST_F(PageAreaTest, IsTheFirstSectionsOwnWhereAnotherOneDiffers)
{
    beginSection();
    EXPECT_EQ(area->width(), 820);
    EXPECT_EQ(area->height(), 1056);
}

// The height is asked for when a file has brought another section since the width was.
TEST_F(PageAreaTest, IsTheFirstSectionsOwnFromWhenAnotherOneDiffers)
{
    EXPECT_EQ(area->width(), 432);
    beginSection();
    EXPECT_EQ(area->height(), 1056);
}

TEST_F(PageAreaTest, AsksAgainWhatWordDidNotTell)
{
    for (long call = 1; call <= 4; ++call) {
        PageArea asked(document, collections, 1);
        word.failCall(call, E_FAIL);
        EXPECT_THROW(asked.width(), _com_error) << call;
        word.clearFaults();
        EXPECT_EQ(asked.width(), 432) << call;
        EXPECT_EQ(asked.height(), 648) << call;
    }
}

} // namespace
} // namespace compose
