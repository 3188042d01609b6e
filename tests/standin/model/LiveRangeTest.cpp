#include "ModelFixture.h"

#include <limits>

namespace standin::model {
namespace {

using LiveRangeTest = ModelTest;

TEST_F(LiveRangeTest, NewDocumentIsOneParagraphMark)
{
    EXPECT_EQ(text(), u"\r");
    expectAt(content(), 0, 1);
}

TEST_F(LiveRangeTest, ContentGrowsWithTheTextBeforeTheFinalMark)
{
    LiveRange all = content();
    all.insertAfter(u"abc");
    EXPECT_EQ(text(), u"abc\r");
    expectAt(all, 0, 4);
    all.insertAfter(u"def");
    EXPECT_EQ(text(), u"abcdef\r");
    expectAt(all, 0, 7);
}

TEST_F(LiveRangeTest, InsertAfterGrowsTheRangeAndInsertBeforeToo)
{
    write(u"abc");
    LiveRange middle = range(1, 2);
    middle.insertAfter(u"12");
    expectAt(middle, 1, 4);
    middle.insertBefore(u"0");
    EXPECT_EQ(text(), u"a0b12c\r");
    expectAt(middle, 1, 5);
    LiveRange empty = range(0, 0);
    empty.insertBefore(u"x");
    expectAt(empty, 0, 1);
}

TEST_F(LiveRangeTest, InsertAfterAParagraphGoesIntoTheNext)
{
    write(u"one\rtwo");
    LiveRange first = range(0, 4);
    first.insertAfter(u"X");
    EXPECT_EQ(text(), u"one\rXtwo\r");
    expectAt(first, 0, 5);
}

TEST_F(LiveRangeTest, OtherRangesStayAtTheInsertionPointAndMoveBehindIt)
{
    write(u"abcdef");
    const LiveRange before = range(0, 3);
    const LiveRange at = range(3, 3);
    const LiveRange around = range(1, 5);
    const LiveRange from = range(3, 5);
    const LiveRange behind = range(4, 6);
    range(3, 3).insertAfter(u"12");
    expectAt(before, 0, 3);
    expectAt(at, 3, 3);
    expectAt(around, 1, 7);
    expectAt(from, 3, 7);
    expectAt(behind, 6, 8);
}

TEST_F(LiveRangeTest, EndpointsInsideADeletionGoToItsStart)
{
    write(u"abcdefgh");
    const LiveRange inside = range(3, 4);
    const LiveRange across = range(1, 4);
    const LiveRange behind = range(5, 7);
    EXPECT_EQ(range(2, 5).remove(), 1);
    EXPECT_EQ(text(), u"abfgh\r");
    expectAt(inside, 2, 2);
    expectAt(across, 1, 2);
    expectAt(behind, 2, 4);
}

TEST_F(LiveRangeTest, LineEndsBecomeOneMarkEach)
{
    write(u"a\r\nb\nc\rd\ve\n\nf\n\rg");
    EXPECT_EQ(text(), u"a\rb\rc\rd\ve\r\rf\r\rg\r");
    EXPECT_EQ(document->mainStory()->paragraphCount(), 8u);
}

TEST_F(LiveRangeTest, CharactersThatWouldPoseAsStructureKeepTheirPlaceAsSpaces)
{
    LiveRange all = content();
    all.insertAfter(std::u16string_view(u"a\x13\x14\x15\x07\x01\0b", 8));
    EXPECT_EQ(text(), std::u16string_view(u"a     \0b\r", 9));
}

TEST_F(LiveRangeTest, StartDragsTheEndAndEndDragsTheStart)
{
    write(u"abcdef");
    LiveRange each = range(1, 3);
    each.setStart(5);
    expectAt(each, 5, 5);
    each.setEnd(2);
    expectAt(each, 2, 2);
    each.setRange(4, 1);
    expectAt(each, 4, 4);
}

TEST_F(LiveRangeTest, PositionsOutsideTheStoryAreOutOfRange)
{
    write(u"abc");
    LiveRange each = range(1, 2);
    EXPECT_EQ(errorOf([&] { each.setStart(-1); }), 4608);
    EXPECT_EQ(errorOf([&] { each.setStart(4); }), 4608);
    EXPECT_EQ(errorOf([&] { each.setEnd(5); }), 4608);
    EXPECT_EQ(errorOf([&] { each.setEnd(-1); }), 4608);
    EXPECT_EQ(errorOf([&] { range(4, 4); }), 4608);
    EXPECT_EQ(errorOf([&] { range(0, 5); }), 4608);
    EXPECT_EQ(errorOf([&] { range(-1, 2); }), 4608);
    expectAt(each, 1, 2);
}

TEST_F(LiveRangeTest, CollapseToTheEndStaysBeforeTheFinalMark)
{
    write(u"abc");
    LiveRange all = content();
    all.collapse(CollapseDirection::end);
    expectAt(all, 3, 3);
    LiveRange part = range(1, 2);
    part.collapse(CollapseDirection::end);
    expectAt(part, 2, 2);
    LiveRange other = range(1, 2);
    other.collapse(CollapseDirection::start);
    expectAt(other, 1, 1);
}

TEST_F(LiveRangeTest, CollapseBehindTheFinalMarkUnderTheOtherReadingLosesNothing)
{
    Switches switches;
    switches.collapseToEndStaysBeforeFinalMark = false;
    document = Document::make(u"Document1", switches);
    LiveRange all = content();
    all.collapse(CollapseDirection::end);
    expectAt(all, 1, 1);
    all.insertAfter(u"abc");
    all.insertBefore(u"x");
    EXPECT_EQ(text(), u"abcx\r");
}

TEST_F(LiveRangeTest, DuplicateIsIndependent)
{
    write(u"abc");
    LiveRange first = range(1, 2);
    LiveRange second = first;
    first.setStart(0);
    expectAt(second, 1, 2);
}

TEST_F(LiveRangeTest, DeletingTheWholeDocumentLeavesTheMarkAndAnEmptyRangeAtItsStart)
{
    write(u"one\rtwo");
    LiveRange all = content();
    EXPECT_EQ(all.remove(), 1);
    EXPECT_EQ(text(), u"\r");
    expectAt(all, 0, 0);
    all.insertAfter(u"new");
    expectAt(all, 0, 3);
}

TEST_F(LiveRangeTest, DeleteWithACountOnAFilledRangeStillDeletesTheContent)
{
    write(u"abcdef");
    LiveRange part = range(1, 4);
    EXPECT_EQ(part.remove(1), 1);
    EXPECT_EQ(text(), u"aef\r");
    expectAt(part, 1, 1);
}

TEST_F(LiveRangeTest, DeleteAnswersCharactersUnderTheOtherReading)
{
    Switches switches;
    switches.deleteAnswersOne = false;
    document = Document::make(u"Document1", switches);
    write(u"abcdef");
    EXPECT_EQ(range(1, 4).remove(), 3);
}

TEST_F(LiveRangeTest, DeleteOnACollapsedRangeTakesCharactersBehindOrBeforeIt)
{
    write(u"one two three");
    EXPECT_EQ(range(4, 4).remove(), 1);
    EXPECT_EQ(text(), u"one wo three\r");
    EXPECT_EQ(range(4, 4).remove(-2), 2);
    EXPECT_EQ(text(), u"onwo three\r");
    EXPECT_EQ(range(10, 10).remove(), 0);
    EXPECT_EQ(range(0, 0).remove(-1), 0);
    EXPECT_EQ(range(8, 8).remove(std::numeric_limits<std::int32_t>::max()), 2);
    EXPECT_EQ(range(2, 2).remove(std::numeric_limits<std::int32_t>::min()), 2);
    EXPECT_EQ(text(), u"wo thr\r");
}

TEST_F(LiveRangeTest, SetTextReplacesAndKeepsTheFinalMark)
{
    write(u"abcdef");
    LiveRange part = range(1, 3);
    part.setText(u"XYZ");
    EXPECT_EQ(text(), u"aXYZdef\r");
    expectAt(part, 1, 4);
    EXPECT_EQ(part.text(), u"XYZ");
    content().setText(u"all");
    EXPECT_EQ(text(), u"all\r");
}

TEST_F(LiveRangeTest, ParagraphsAreInserted)
{
    write(u"abc");
    content().insertParagraphAfter();
    EXPECT_EQ(text(), u"abc\r\r");
}

TEST_F(LiveRangeTest, PageBreakReplacesTheRangeAndBecomesIt)
{
    write(u"abcdef");
    LiveRange part = range(2, 4);
    part.insertBreak();
    EXPECT_EQ(text(), u"ab\fef\r");
    expectAt(part, 2, 3);
    EXPECT_EQ(document->mainStory()->paragraphCount(), 1u);
    EXPECT_EQ(document->sectionCount(), 1);
}

TEST_F(LiveRangeTest, PageBreakAtTheEndOfTheDocumentLeavesThePlaceBehindIt)
{
    LiveRange all = content();
    all.insertAfter(u"abc");
    all.setStart(3);
    all.insertBreak(BreakType::page);
    expectAt(all, 3, 4);
    all.insertAfter(u"next");
    EXPECT_EQ(text(), u"abc\fnext\r");
}

TEST_F(LiveRangeTest, OtherBreaks)
{
    range(0, 0).insertBreak(BreakType::line);
    range(0, 0).insertBreak(BreakType::column);
    EXPECT_EQ(text(), u"\x0e\v\r");
    EXPECT_EQ(errorOf([&] { range(0, 0).insertBreak(static_cast<BreakType>(1)); }), 4608);
}

TEST_F(LiveRangeTest, BreakRangesUnderTheOtherReadings)
{
    Switches switches;
    switches.pageBreakRangeCoversBreak = false;
    switches.sectionBreakRangeLiesBehind = false;
    document = Document::make(u"Document1", switches);
    LiveRange first = range(0, 0);
    first.insertBreak(BreakType::page);
    expectAt(first, 1, 1);
    LiveRange second = range(0, 0);
    second.insertBreak(BreakType::sectionNextPage);
    expectAt(second, 0, 1);
    EXPECT_EQ(text(), u"\f\f\r");
}

TEST_F(LiveRangeTest, SectionBreakReplacesNothingAndLeavesTheRangeBehindIt)
{
    write(u"abcdef");
    LiveRange part = range(2, 4);
    part.insertBreak(BreakType::sectionNextPage);
    EXPECT_EQ(text(), u"ab\fcdef\r");
    expectAt(part, 3, 5);
    EXPECT_EQ(document->sectionCount(), 2);
    EXPECT_EQ(document->mainStory()->paragraphCount(), 2u);
    LiveRange empty = range(4, 4);
    empty.insertBreak(BreakType::sectionContinuous);
    expectAt(empty, 5, 5);
}

TEST_F(LiveRangeTest, PageBreakTurnedIntoASectionBreakKeepsTheCount)
{
    LiveRange out = content();
    out.insertAfter(u"one\n");
    out.setStart(4);
    out.insertBreak();
    EXPECT_EQ(out.end(), 5);
    out.insertAfter(u"two");
    out.setStart(4);
    out.setEnd(5);
    EXPECT_EQ(out.remove(1), 1);
    out.setStart(4);
    out.insertBreak(BreakType::sectionNextPage);
    out.setEnd(8);
    out.setStart(8);
    out.insertAfter(u"!");
    EXPECT_EQ(text(), u"one\r\ftwo!\r");
    EXPECT_EQ(document->sectionCount(), 2);
}

TEST_F(LiveRangeTest, ParagraphStyleReachesEveryParagraphTouched)
{
    write(u"one\rtwo\rthree");
    range(1, 5).setStyle(u"heading 1");
    EXPECT_EQ(range(0, 1).style()->name(), u"Heading 1");
    EXPECT_EQ(range(4, 5).style()->name(), u"Heading 1");
    EXPECT_EQ(range(8, 9).style()->name(), u"Normal");
    range(9, 9).setStyle(-3);
    EXPECT_EQ(range(8, 9).style()->name(), u"Heading 2");
    EXPECT_EQ(range(0, 13).style()->name(), u"Heading 1");
    EXPECT_EQ(errorOf([&] { range(0, 0).setStyle(u"No such style"); }), 5834);
    EXPECT_EQ(errorOf([&] { range(0, 0).setStyle(-1000); }), 5834);
}

TEST_F(LiveRangeTest, AnEndOnTheParagraphBorderDoesNotTouchTheNextParagraph)
{
    write(u"one\rtwo");
    range(0, 4).setStyle(u"Title");
    EXPECT_EQ(range(4, 5).style()->name(), u"Normal");
}

TEST_F(LiveRangeTest, MixedStyleReadsAsNoneUnderTheOtherReading)
{
    Switches switches;
    switches.mixedStyleReadsFirst = false;
    document = Document::make(u"Document1", switches);
    write(u"one\rtwo");
    range(0, 1).setStyle(u"Title");
    EXPECT_EQ(content().style(), nullptr);
}

TEST_F(LiveRangeTest, CharacterStyleReachesTheCharactersOnly)
{
    write(u"abcdef");
    range(2, 4).setStyle(u"Hyperlink");
    EXPECT_EQ(range(2, 4).style()->name(), u"Hyperlink");
    EXPECT_EQ(range(1, 4).style()->name(), u"Normal");
    EXPECT_EQ(range(2, 4).font().underline, 1);
    EXPECT_EQ(range(4, 5).font().underline, 0);
    range(0, 0).setStyle(u"Hyperlink");
    EXPECT_EQ(range(0, 1).font().underline, 0);
    range(2, 4).setStyle(u"Default Paragraph Font");
    EXPECT_EQ(range(2, 4).style()->name(), u"Normal");
    EXPECT_EQ(document->mainStory()->runCount(), 1u);
}

TEST_F(LiveRangeTest, FontIsPutOnTheCharactersAndMixedReadsAsOpen)
{
    write(u"abcdef");
    FontProperties bold;
    bold.bold = true;
    bold.name = u"Arial";
    range(1, 3).setFont(bold);
    EXPECT_EQ(range(1, 3).font().bold, true);
    EXPECT_EQ(range(1, 3).font().name, u"Arial");
    EXPECT_EQ(range(1, 3).font().size, 12.0f);
    EXPECT_EQ(range(0, 2).font().bold, std::nullopt);
    EXPECT_EQ(range(0, 2).font().name, std::nullopt);
    EXPECT_EQ(range(0, 2).font().italic, false);
    EXPECT_EQ(range(3, 3).font().bold, true);
    EXPECT_EQ(document->mainStory()->runCount(), 3u);
    FontProperties plain;
    plain.bold = false;
    range(0, 6).setFont(plain);
    EXPECT_EQ(range(0, 6).font().bold, false);
}

TEST_F(LiveRangeTest, InsertedTextTakesTheFormatOfTheCharacterBefore)
{
    write(u"ab");
    FontProperties bold;
    bold.bold = true;
    range(0, 1).setFont(bold);
    range(1, 1).insertAfter(u"X");
    EXPECT_EQ(range(1, 2).font().bold, true);
    EXPECT_EQ(range(2, 3).font().bold, false);
    range(0, 0).insertAfter(u"Y");
    EXPECT_EQ(range(0, 1).font().bold, true);
}

TEST_F(LiveRangeTest, FontPutInAnEmptyParagraphFormatsItsMark)
{
    FontProperties italic;
    italic.italic = true;
    range(0, 0).setFont(italic);
    write(u"ab");
    EXPECT_EQ(range(0, 2).font().italic, true);
    range(1, 1).setFont({.bold = true});
    EXPECT_EQ(range(0, 2).font().bold, false);
}

TEST_F(LiveRangeTest, AlignmentReachesParagraphsAndMixedReadsAsOpen)
{
    write(u"one\rtwo\rthree");
    range(5, 5).setParagraphFormat({.alignment = Alignment::center});
    EXPECT_EQ(range(4, 5).paragraphFormat().alignment, Alignment::center);
    EXPECT_EQ(range(0, 5).paragraphFormat().alignment, std::nullopt);
    EXPECT_EQ(range(8, 9).paragraphFormat().alignment, Alignment::left);
    range(4, 5).setStyle(u"Heading 1");
    EXPECT_EQ(range(4, 5).paragraphFormat().alignment, Alignment::center);
}

TEST_F(LiveRangeTest, ParagraphStyleResetsAlignmentUnderTheOtherReading)
{
    Switches switches;
    switches.paragraphStyleKeepsDirectFormatting = false;
    document = Document::make(u"Document1", switches);
    range(0, 0).setParagraphFormat({.alignment = Alignment::center});
    range(0, 0).setStyle(u"Heading 1");
    EXPECT_EQ(range(0, 0).paragraphFormat().alignment, Alignment::left);
}

TEST_F(LiveRangeTest, ALinkedStyleOnAPartFormatsItsCharactersUnderTheOtherReading)
{
    readAs({.linkedStyleFormatsParagraph = false});
    write(u"abcdef\rx");
    range(1, 3).setStyle(u"Heading 1");
    EXPECT_EQ(range(0, 1).style()->name(), u"Normal");
    EXPECT_EQ(range(1, 2).style()->name(), u"Heading 1 Char");
    EXPECT_EQ(range(1, 3).font().size, 16.0f);
    EXPECT_EQ(range(3, 4).font().size, 12.0f);
    range(4, 5).setStyle(u"Heading 1");
    EXPECT_EQ(range(4, 5).style()->name(), u"Heading 1 Char");
    range(0, 7).setStyle(u"Heading 1"); // with its mark
    EXPECT_EQ(range(0, 1).style()->name(), u"Heading 1");
    range(7, 7).setStyle(u"Heading 2"); // collapsed
    EXPECT_EQ(range(7, 8).style()->name(), u"Heading 2");
    range(1, 2).setStyle(u"Normal"); // has no character style beside it
    EXPECT_EQ(range(0, 1).style()->name(), u"Normal");
}

TEST_F(LiveRangeTest, AParagraphStyleDropsTheFontOfMostOfTheTextUnderTheOtherReading)
{
    for (const bool keeps : {true, false}) {
        readAs({.paragraphStyleKeepsFontOfMost = keeps});
        write(u"abcd\refgh\r");
        range(0, 3).setFont({.bold = true});
        range(3, 4).setFont({.hidden = true});
        range(5, 7).setFont({.bold = true});
        range(0, 10).setStyle(u"Heading 3");
        EXPECT_EQ(document->mainStory()->directFont(0).bold.has_value(), keeps);
        EXPECT_EQ(document->mainStory()->directFont(3).hidden, true);
        EXPECT_EQ(document->mainStory()->directFont(5).bold, true) << "of half of the text";
    }
}

TEST_F(LiveRangeTest, APageBreakMayBringAParagraphMark)
{
    const auto textWith = [this](PageBreakMark reading, Position at) {
        readAs({.pageBreakParagraphMark = reading});
        write(u"ab\r");
        LiveRange place = range(at, at);
        place.insertBreak(BreakType::page);
        EXPECT_EQ(place.start(), at);
        EXPECT_EQ(place.end(), at + document->mainStory()->length() - 4);
        return text();
    };
    EXPECT_EQ(textWith(PageBreakMark::never, 0), u"\fab\r\r");
    EXPECT_EQ(textWith(PageBreakMark::atStartOfText, 0), u"\f\rab\r\r");
    EXPECT_EQ(textWith(PageBreakMark::atStartOfText, 1), u"a\fb\r\r");
    EXPECT_EQ(textWith(PageBreakMark::atStartOfText, 3), u"ab\r\f\r");
    EXPECT_EQ(textWith(PageBreakMark::always, 1), u"a\f\rb\r\r");
    LiveRange(document->mainStory(), 0, 0).insertBreak(BreakType::column);
    EXPECT_EQ(text(), u"\x0e"
                      u"a\f\rb\r\r");
}

TEST_F(LiveRangeTest, ADeletedStorysRangeCoversItsMarkUnderTheOtherReading)
{
    readAs({.deletedStoryRangeCollapses = false});
    write(u"abc");
    LiveRange part = range(0, 3);
    part.remove();
    expectAt(part, 0, 0);
    write(u"abc");
    LiveRange all = content();
    all.remove();
    expectAt(all, 0, 1);
}

TEST_F(LiveRangeTest, EndsBeyondTheStoryComeBackToItUnderTheOtherReading)
{
    readAs({.endBeyondStoryIsRefused = false});
    write(u"abc");
    LiveRange each = range(1, 2);
    each.setEnd(9);
    expectAt(each, 1, 4);
    each.setStart(9);
    expectAt(each, 3, 4);
    each.setEnd(-1);
    expectAt(each, 0, 0);
    EXPECT_EQ(errorOf([&] { each.setRange(0, 9); }), 4608);
}

TEST_F(LiveRangeTest, EverythingFailsAfterTheDocumentIsClosed)
{
    LiveRange each = content();
    document->close();
    EXPECT_EQ(errorOf([&] { each.start(); }), 5825);
    EXPECT_EQ(errorOf([&] { each.insertAfter(u"x"); }), 5825);
    EXPECT_EQ(errorOf([&] { LiveRange copy = each; }), 5825);
    EXPECT_EQ(errorOf([&] { each.remove(); }), 5825);
}

TEST(LiveRangeLifetime, RangeOutlivesItsDocument)
{
    DocumentPtr document = Document::make(u"Document1");
    LiveRange each(document->mainStory(), 0, 1);
    document.reset();
    EXPECT_EQ(errorOf([&] { each.text(); }), 5825);
}

TEST_F(LiveRangeTest, ChangesMakeTheDocumentUnsaved)
{
    const auto changes = [this](auto action) {
        document->setSaved(true);
        action();
        return !document->isSaved();
    };
    EXPECT_TRUE(changes([this] { write(u"abc"); }));
    EXPECT_TRUE(changes([this] { range(0, 1).remove(); }));
    EXPECT_TRUE(changes([this] { range(0, 1).setFont({.bold = true}); }));
    EXPECT_TRUE(changes([this] { range(0, 1).setStyle(-2); }));
    EXPECT_FALSE(changes([this] { range(0, 1).font(); }));
}

TEST_F(LiveRangeTest, AHundredThousandAppendsBesideManyRangesAreCheap)
{
    std::vector<std::unique_ptr<LiveRange>> ranges;
    LiveRange out = content();
    for (int i = 0; i < 100000; ++i) {
        out.insertAfter(i % 10 == 9 ? u"\n" : u"word ");
        if (i % 10 == 0)
            ranges.push_back(std::make_unique<LiveRange>(out));
    }
    EXPECT_EQ(document->mainStory()->length(), 90000 * 5 + 10000 + 1);
    EXPECT_EQ(document->mainStory()->paragraphCount(), 10001u);
    expectAt(*ranges.front(), 0, document->mainStory()->length());
}

} // namespace
} // namespace standin::model
