#include "RtfFixture.h"

#include "Field.h"
#include "Hyperlink.h"
#include "TableOfContents.h"

#include <gmock/gmock.h>

namespace standin::rtf {
namespace {

using namespace model;
using testing::HasSubstr;

class RtfFieldsTest : public RtfTest
{
protected:
    void read(std::string_view bytes) { readRtf(bytes, *document); }
    std::u16string raw() const { return rawOf(*document->mainStory()); }
    static std::u16string rawOf(const Story& story) { return story.text(0, story.length()); }

    void heading(std::u16string_view text, std::int32_t level)
    {
        const Position at = document->mainStory()->length() - 1;
        LiveRange end = range(at, at);
        end.insertAfter(text);
        end.setStyle(-1 - level);
        end.insertParagraphAfter();
        end.collapse(CollapseDirection::end);
        end.setStyle(-1);
    }

    /// Writes the document, reads it again and compares what the two hold.
    void expectSameAfterReading()
    {
        const DocumentPtr again = Document::make(u"Again");
        readRtf(rtf(), *again);
        EXPECT_EQ(checkInvariants(*again), "");
        const Story& mine = *document->mainStory();
        const Story& its = *again->mainStory();
        EXPECT_EQ(rawOf(its), rawOf(mine));
        ASSERT_EQ(its.paragraphCount(), mine.paragraphCount());
        for (std::size_t i = 0; i < mine.paragraphCount(); ++i)
            EXPECT_EQ(its.paragraph(i).format->style->name(), mine.paragraph(i).format->style->name()) << i;
        for (Position at = 0; at < mine.length(); ++at)
            ASSERT_TRUE(its.effectiveFont(at) == mine.effectiveFont(at)) << at;
        expectSameBookmarks(*again);
    }

    void expectSameBookmarks(const Document& again)
    {
        const auto mine = document->bookmarks().all();
        const auto its = again.bookmarks().all();
        ASSERT_EQ(its.size(), mine.size());
        for (std::size_t i = 0; i < mine.size(); ++i) {
            EXPECT_EQ(its[i]->name(), mine[i]->name());
            EXPECT_EQ(its[i]->range().start(), mine[i]->range().start());
            EXPECT_EQ(its[i]->range().end(), mine[i]->range().end());
        }
    }
};

TEST_F(RtfFieldsTest, AFieldIsItsCodeAndItsResult)
{
    write(u"ab");
    addField(range(1, 1), {.type = 29, .text = u"\\p"});
    EXPECT_THAT(rtf(), HasSubstr("{\\f0\\fs24\\field{\\*\\fldinst{\\plain{\\f0\\fs24  FILENAME \\\\p }}}"
                                 "{\\fldrslt{\\plain{\\f0\\fs24 Document1}}}}"));
    expectSameAfterReading();
}

TEST_F(RtfFieldsTest, ACodeWithoutResultHasNone)
{
    write(u"ab");
    addField(range(1, 1), {.type = 9, .text = u"\"entry\" \\l 2"});
    EXPECT_THAT(rtf(), HasSubstr("\\v\\field{\\*\\fldinst{\\plain{\\f0\\fs24\\v  TC \"entry\" \\\\l 2 }}}"));
    EXPECT_EQ(rtf().find("fldrslt"), std::string::npos);
    expectSameAfterReading();
    addField(range(0, 0), {});
    expectSameAfterReading();
}

TEST_F(RtfFieldsTest, LinksKeepTheirAddresses)
{
    write(u"one two three");
    addHyperlink(range(8, 13), {u"c:\\my dir\\a.doc", u"place", u"tip"});
    addHyperlink(range(4, 7), {u"", u"place"});
    addHyperlink(range(0, 3), {u"http://a/?b={c}", u""});
    EXPECT_THAT(rtf(), HasSubstr(" HYPERLINK \"c:\\\\\\\\my dir\\\\\\\\a.doc\" \\\\l \"place\""));
    expectSameAfterReading();
}

TEST_F(RtfFieldsTest, BookmarksKeepTheirPlaces)
{
    write(u"one\rtwo");
    const auto add = [&](std::u16string_view name, Position start, Position end) {
        document->bookmarks().add(name, range(start, end));
    };
    add(u"empty", 0, 0);
    add(u"word", 0, 3);
    add(u"across", 2, 5);
    add(u"nested", 4, 5);
    add(u"atMark", 7, 7);
    add(u"beforeMark", 4, 7);
    add(u"allOfIt", 0, 8);
    add(u"finalMark", 7, 8);
    add(u"\u00c4_1", 5, 6);
    EXPECT_THAT(rtf(), HasSubstr("{\\*\\bkmkstart atMark}"));
    expectSameAfterReading();
}

// Not every reader finds a bookmark in which another one begins.
TEST_F(RtfFieldsTest, BookmarksWithoutTextStandBetweenEndsAndStarts)
{
    write(u"onetwo");
    document->bookmarks().add(u"behind", range(3, 6));
    document->bookmarks().add(u"point", range(3, 3));
    document->bookmarks().add(u"word", range(0, 3));
    EXPECT_THAT(rtf(), HasSubstr("{\\*\\bkmkend word}{\\*\\bkmkstart point}{\\*\\bkmkend point}"
                                 "{\\*\\bkmkstart behind}"));
}

TEST_F(RtfFieldsTest, BookmarksInsideAndAroundFieldsKeepTheirPlaces)
{
    write(u"ab");
    const FieldPlace field = addField(range(1, 1), {.type = 29}).place();
    document->bookmarks().add(u"around", range(field.begin, field.past()));
    document->bookmarks().add(u"code", range(field.codeStart(), field.codeEnd()));
    document->bookmarks().add(u"part", range(field.codeStart() + 2, field.resultStart() + 3));
    document->bookmarks().add(u"result", range(field.resultStart(), field.end));
    expectSameAfterReading();
}

TEST_F(RtfFieldsTest, ABookmarkCutsNoSurrogatePair)
{
    write(u"a\U0001F600b");
    document->bookmarks().add(u"half", range(0, 2));
    const std::string bytes = rtf();
    EXPECT_THAT(bytes, HasSubstr("\\u-10179?\\u-8704?"));
}

TEST_F(RtfFieldsTest, ATableOfContentsKeepsItsLinesAndLinks)
{
    write(u"front\r\r");
    heading(u"First", 1);
    heading(u"\fSecond", 2);
    addField(range(0, 0), {.type = 9, .text = u"\"Marked\" \\fC \\l \"3\""});
    addTableOfContents(
        range(document->mainStory()->paragraph(1).start, document->mainStory()->paragraph(1).start),
        {.useFields = true});
    EXPECT_EQ(rangeOf(document->mainStory()).text(),
              u"front\rMarked\t1\rFirst\t1\rSecond\t2\r\rFirst\r\fSecond\r\r");
    expectSameAfterReading();
}

TEST_F(RtfFieldsTest, FieldsNestInCodesAndResults)
{
    write(u"one two three");
    addHyperlink(range(0, 3), {u"http://first", u""});
    addHyperlink(range(8, 13), {u"http://second", u""});
    const Hyperlink link = hyperlinksIn(rangeOf(document->mainStory()))[0];
    addField(link.field().result(), {.type = 29});
    link.field().result().insertAfter(u"\rnext");
    expectSameAfterReading();
    addTableOfContents(link.field().code(), {});
    expectSameAfterReading();
}

TEST_F(RtfFieldsTest, OtherReadersSeeAPlainCodeWhereItHoldsAField)
{
    write(u"one two three");
    const Hyperlink link = addHyperlink(range(0, 3), {u"http://first", u""});
    const LiveRange code = link.field().code();
    addHyperlink(LiveRange(code.storyPtr(), code.start() + 4, code.start() + 6), {u"x", u""});
    const std::string bytes = rtf();
    const std::size_t inner = bytes.find("{\\*\\mvcodefield{\\f0\\fs24\\field");
    EXPECT_NE(inner, std::string::npos);
    EXPECT_THAT(bytes.substr(inner), HasSubstr("}}}}{\\mvcodetext ER}{\\f0\\fs24 LINK \"http://first\" }"));
    expectSameAfterReading();
}

TEST_F(RtfFieldsTest, FieldsInHeadersAreReadAgain)
{
    const auto story = document->section(1)->story(Section::Part::footer, HeaderFooterIndex::primary);
    addField(LiveRange(story, 0, 0), {.type = 33});
    document->bookmarks().add(u"foot", LiveRange(story, 0, story->length()));
    const DocumentPtr again = Document::make(u"Again");
    readRtf(rtf(), *again);
    const auto read = again->section(1)->story(Section::Part::footer, HeaderFooterIndex::primary);
    EXPECT_EQ(rawOf(*read), rawOf(*story));
    ASSERT_TRUE(again->bookmarks().find(u"foot"));
    EXPECT_EQ(again->bookmarks().find(u"foot")->range().end(), story->length());
}

TEST_F(RtfFieldsTest, ASectionMayEndInsideAField)
{
    write(u"ab");
    const FieldPlace field = addField(range(1, 1), {.type = 29}).place();
    document->breakSection(field.resultStart() + 2, SectionStart::newPage);
    expectSameAfterReading();
    EXPECT_EQ(document->sectionCount(), 2);
}

TEST_F(RtfFieldsTest, AFieldInATableCellIsReadAgain)
{
    read("{\\rtf1\\trowd\\cellx3000\\cellx6000\\intbl{\\field{\\*\\fldinst PAGE}{\\fldrslt 1}}\\cell "
         "{\\field{\\*\\fldinst A}{\\fldrslt x\\cell\\row}}\\pard z\\par}");
    EXPECT_EQ(checkInvariants(*document), "");
    EXPECT_EQ(fieldsIn(rangeOf(document->mainStory())).size(), 2u);
    expectSameAfterReading();
}

TEST_F(RtfFieldsTest, ReadsFieldsAsOtherProgramsWriteThem)
{
    read("{\\rtf1 a{\\field\\flddirty\\fldlock{\\*\\fldinst PAGE }{\\fldrslt 7}}b"
         "{\\field{\\*\\fldinst {\\b HYPER}{LINK \"x\\\\\\\\y\" }{\\*\\datafield 00}}{\\fldrslt {\\ul "
         "z}}}\\par}");
    EXPECT_EQ(raw(), u"a\x13PAGE \x14"
                     u"7\x15"
                     u"b\x13HYPERLINK \"x\\\\y\" \x14z\x15\r");
    EXPECT_EQ(hyperlinksIn(rangeOf(document->mainStory()))[0].target().address, u"x\\y");
}

TEST_F(RtfFieldsTest, ReadsEntriesForTablesOfContents)
{
    read("{\\rtf1 a{\\tc {\\b En}try\\tcf66\\tcl2}b{\\tcn Other}\\par}");
    EXPECT_EQ(raw(), u"a\x13 TC \"Entry\" \\f B \\l 2 \x15"
                     u"b\x13 TC \"Other\" \\l 1 \x15\r");
    EXPECT_EQ(rangeOf(document->mainStory()).text(), u"ab\r");
}

TEST_F(RtfFieldsTest, ReadsBrokenFieldsAndBookmarksWhole)
{
    read("{\\rtf1\\field x{\\fldrslt y\\fldrslt}{\\*\\fldinst z}{\\*\\bkmkend no}{\\*\\bkmkstart open}"
         "{\\*\\bkmkstart 1bad}{\\*\\bkmkend 1bad}{\\fldinst}{\\header{\\*\\bkmkend open}\\field h}\\field}");
    EXPECT_EQ(checkInvariants(*document), "");
    EXPECT_TRUE(document->bookmarks().all().empty());
    document = Document::make(u"Document1");
    read("{\\rtf1{\\*\\bkmkstart a}{\\*\\bkmkstart a}x{\\*\\bkmkend a}{\\fldrslt y}{\\*\\fldinst z}\\par}");
    EXPECT_EQ(raw(), u"xy\r");
    EXPECT_EQ(document->bookmarks().all().size(), 1u);
}

} // namespace
} // namespace standin::rtf
