#include "RtfFixture.h"

#include "RtfText.h"

#include <gmock/gmock.h>

#include <limits>

namespace standin::rtf {
namespace {

using namespace model;
using testing::HasSubstr;
using testing::Not;

using RtfWriterTest = RtfTest;

TEST(RtfTextTest, EscapesWhatRtfReserves)
{
    EXPECT_EQ(escapeText(u"a\\b{c}d"), "a\\\\b\\{c\\}d");
    EXPECT_EQ(escapeText(u"\t\v\f\x0e"), "\\tab \\line \\page \\column ");
}

TEST(RtfTextTest, WritesOtherCharactersAsSignedWords)
{
    EXPECT_EQ(escapeText(u"\u00e9\u20ac\uffe5"), "\\u233?\\u8364?\\u-27?");
    EXPECT_EQ(escapeText(u"\U0001F600"), "\\u-10179?\\u-8704?");
    EXPECT_EQ(escapeText(u"\u00a0\x1e\x1f"), "\\~\\_\\-");
}

TEST(RtfTextTest, StaysValidWithHalfSurrogatesAndControlCharacters)
{
    EXPECT_EQ(escapeText(std::u16string{u'a', char16_t(0xD800), u'b', char16_t(0xDC00)}), "a\\u-3?b\\u-3?");
    EXPECT_EQ(escapeText(std::u16string{char16_t(0xD83D)}), "\\u-3?");
    EXPECT_EQ(escapeText(std::u16string_view(u"a\0\x01\x7f", 4)), "a   ");
}

TEST(RtfTextTest, LengthsStayWithinBounds)
{
    EXPECT_EQ(twips(72), 1440);
    EXPECT_EQ(twips(-5.4f), -108);
    EXPECT_EQ(twips(9999999), 31680);
    EXPECT_EQ(twips(-9999999), -31680);
    EXPECT_EQ(twips(std::numeric_limits<float>::quiet_NaN()), -31680);
}

TEST_F(RtfWriterTest, HasHeadTablesAndBalancedBraces)
{
    write(u"text {with} braces");
    const std::string bytes = rtf();
    EXPECT_TRUE(bytes.starts_with("{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0\\deflang1033"));
    EXPECT_THAT(bytes, HasSubstr("{\\f0\\froman\\fcharset0\\fprq2 Times New Roman;}"));
    EXPECT_THAT(bytes, HasSubstr(" heading 1;}"));
    EXPECT_THAT(bytes, HasSubstr(" Normal;}"));
    EXPECT_THAT(bytes, HasSubstr("\\additive"));
    int depth = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        ASSERT_LT(static_cast<unsigned char>(bytes[i]), 0x80u);
        if (bytes[i] == '\\') {
            ++i;
        } else {
            depth += bytes[i] == '{' ? 1 : (bytes[i] == '}' ? -1 : 0);
            ASSERT_TRUE(depth > 0 || i + 2 >= bytes.size());
        }
    }
    EXPECT_EQ(depth, 0);
}

TEST_F(RtfWriterTest, RepeatsTheStylesPropertiesWhereItIsUsed)
{
    write(u"Title\rtext");
    range(0, 1).setStyle(u"Heading 1");
    range(0, 1).setParagraphFormat({.alignment = Alignment::center});
    EXPECT_THAT(
        rtf(),
        HasSubstr("\\qc\\sb240\\sa60\\keepn\\outlinelevel0\\f1\\fs32\\b Title\\par\n\\pard\\plain\\s0\\ql"
                  "\\f0\\fs24 text\\par"));
}

TEST_F(RtfWriterTest, RunsAreGroupsAndTheMarkTakesTheLast)
{
    write(u"abcd");
    range(1, 2).setFont({.name = u"Arial", .size = 10.5f, .bold = true, .color = 0x0000FF});
    const std::string bytes = rtf();
    EXPECT_THAT(bytes, HasSubstr("{\\f0\\fs24 a}{\\f1\\fs21\\b\\cf"));
    EXPECT_THAT(bytes, HasSubstr(" b}\\f0\\fs24 cd\\par"));
    EXPECT_THAT(bytes, HasSubstr("\\red255\\green0\\blue0;"));
}

TEST_F(RtfWriterTest, SectionsCarryTheirPages)
{
    write(u"onetwo");
    range(3, 3).insertBreak(BreakType::sectionNextPage);
    document->section(2)->pageSetup.setOrientation(Orientation::landscape);
    const std::string bytes = rtf();
    EXPECT_THAT(
        bytes,
        HasSubstr("\\sectd\\sbkpage\\pgwsxn12240\\pghsxn15840\\marglsxn1800\\margrsxn1800\\margtsxn1440"
                  "\\margbsxn1440\\headery720\\footery720\n"));
    EXPECT_THAT(bytes,
                HasSubstr("one\\sect\n\\sectd\\sbkpage\\pgwsxn15840\\pghsxn12240\\marglsxn1440\\margrsxn1440"
                          "\\margtsxn1800\\margbsxn1800\\headery720\\footery720\\lndscpsxn\n"));
    EXPECT_THAT(bytes, Not(HasSubstr("\\landscape")));
}

TEST_F(RtfWriterTest, AFirstSectionNeverStartsInPlace)
{
    document->section(1)->pageSetup.sectionStart = SectionStart::continuous;
    EXPECT_THAT(rtf(), Not(HasSubstr("\\sbknone")));
    range(0, 0).insertBreak(BreakType::sectionContinuous);
    EXPECT_THAT(rtf(), HasSubstr("\\sect\n\\sectd\\sbknone"));
}

TEST_F(RtfWriterTest, HeadersAreWrittenWhereTheyBelongAndLeftOutWhereInherited)
{
    const auto primary = HeaderFooterIndex::primary;
    rangeOf(document->section(1)->story(Section::Part::header, primary)).insertAfter(u"head");
    rangeOf(document->section(1)->story(Section::Part::footer, HeaderFooterIndex::firstPage))
        .insertAfter(u"first");
    range(0, 0).insertBreak(BreakType::sectionNextPage);
    std::string bytes = rtf();
    EXPECT_EQ(bytes.find("{\\header\\pard"), bytes.rfind("{\\header\\pard"));
    EXPECT_THAT(bytes, HasSubstr(" head\\par\n}"));
    EXPECT_THAT(bytes, Not(HasSubstr("\\footerf")));
    document->section(1)->pageSetup.differentFirstPage = true;
    document->setOddAndEvenPages(true);
    bytes = rtf();
    EXPECT_THAT(bytes, HasSubstr("\\titlepg\n{\\headerr\\pard"));
    EXPECT_THAT(bytes, HasSubstr("{\\footerf\\pard"));
    EXPECT_THAT(bytes, HasSubstr("\\facingp"));
}

TEST_F(RtfWriterTest, PageBreakStaysInsideItsParagraph)
{
    write(u"onetwo");
    range(3, 3).insertBreak(BreakType::page);
    EXPECT_THAT(rtf(), HasSubstr(" one\\page two\\par"));
}

TEST_F(RtfWriterTest, FormattingThatChangesInsideASurrogatePairDoesNotCutIt)
{
    write(u"\U0001F600");
    range(0, 1).setFont({.bold = true});
    EXPECT_THAT(rtf(), HasSubstr("\\u-10179?\\u-8704?"));
}

TEST_F(RtfWriterTest, OddNamesOfStylesAndFontsBreakNothing)
{
    document->styles().add(u"a;b{c}\n", StyleType::paragraph);
    write(u"x");
    range(0, 1).setStyle(u"a;b{c}\n");
    range(0, 1).setFont({.name = u"F;o}nt"});
    EXPECT_THAT(rtf(), HasSubstr(" a b\\{c\\} ;}"));
    EXPECT_THAT(rtf(), HasSubstr(" F o\\}nt;}"));
}

} // namespace
} // namespace standin::rtf
