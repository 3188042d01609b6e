#include "RangeInStory.h"

#include "PenTest.h"

#include "WordConstants.h"

namespace compose {
namespace {

using RangeInStoryTest = PenTest;

TEST_F(RangeInStoryTest, TakesOneCallInTheBody)
{
    body->InsertAfter(L"abc");
    word.clearTranscript();
    const Word::RangePtr range = RangeInStory(document, body, true)(1, 3);
    EXPECT_LINES(takeCalls(), (Calls{"document.Range(1, 3) -> document.Range(1, 3)"}));
    EXPECT_STREQ(range->GetText(), L"bc");
    EXPECT_STREQ(body->GetText(), L"abc\r") << "moved";
}

TEST_F(RangeInStoryTest, StaysInAHeader)
{
    const Word::RangePtr header =
        document->GetSections()->Item(1)->GetHeaders()->Item(Word::wdHeaderFooterPrimary)->GetRange();
    body->InsertAfter(L"body");
    header->InsertAfter(L"head");
    const Word::RangePtr range = RangeInStory(document, header, false)(1, 3);
    EXPECT_STREQ(range->GetText(), L"ea");
    EXPECT_EQ(header->GetStart(), 0) << "moved";
}

} // namespace
} // namespace compose
