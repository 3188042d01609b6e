#include "RtfFixture.h"

namespace standin::rtf {
namespace {

using namespace model;

class RtfReaderTest : public RtfTest
{
protected:
    void read(std::string_view bytes) { readRtf(bytes, *document); }

    std::int32_t errorOfReading(std::string_view bytes)
    {
        return errorOf([&] { read(bytes); });
    }
};

TEST_F(RtfReaderTest, ReadsTextAndParagraphs)
{
    read("{\\rtf1\\ansi one\\par two\\line three\\tab x\\par}");
    EXPECT_EQ(text(), u"one\rtwo\vthree\tx\r");
    EXPECT_TRUE(document->isSaved());
}

TEST_F(RtfReaderTest, TextWithoutAClosingMarkKeepsItsFormat)
{
    read("{\\rtf1 a\\par\\pard\\qc b}");
    EXPECT_EQ(text(), u"a\rb\r");
    EXPECT_EQ(range(2, 3).paragraphFormat().alignment, Alignment::center);
    EXPECT_EQ(range(0, 1).paragraphFormat().alignment, Alignment::left);
}

TEST_F(RtfReaderTest, ReadsEscapesAndUnicode)
{
    read("{\\rtf1\\uc1 \\{\\}\\\\\\'e9\\'80\\u8364?\\u-10179?\\u-8704?\\~\\emdash "
         "{\\uc2\\u233\\'c3\\'a9}z\\par}");
    EXPECT_EQ(text(), u"{}\\\u00e9\u20ac\u20ac\U0001F600\u00a0\u2014\u00e9z\r");
}

TEST_F(RtfReaderTest, ReadsFontsAndColours)
{
    read("{\\rtf1{\\fonttbl{\\f0 Times New Roman;}{\\f7{\\*\\panose 02}Courier New{\\*\\falt x};}}"
         "{\\colortbl;\\red255\\green128\\blue1;}a{\\f7\\fs20\\b\\i0\\ul\\cf1 b}\\b c\\b0 d\\par}");
    EXPECT_EQ(text(), u"abcd\r");
    const FontProperties font = range(1, 2).font();
    EXPECT_EQ(font.name, u"Courier New");
    EXPECT_EQ(font.size, 10.0f);
    EXPECT_EQ(font.bold, true);
    EXPECT_EQ(font.italic, false);
    EXPECT_EQ(font.underline, 1);
    EXPECT_EQ(font.color, 0x0180FF);
    EXPECT_EQ(range(0, 1).font().name, u"Times New Roman");
    EXPECT_EQ(range(2, 3).font().bold, true);
    EXPECT_EQ(range(3, 4).font().bold, false);
}

TEST_F(RtfReaderTest, StyleSheetRedefinesAndAddsStyles)
{
    read("{\\rtf1{\\fonttbl{\\f0 Times New Roman;}{\\f1 Verdana;}}{\\stylesheet{\\f1\\fs20 Normal;}"
         "{\\s1\\sbasedon0\\snext0\\f1\\fs40\\b heading 1;}{\\s9\\sbasedon0\\qr\\f1\\fs20 Mine;}"
         "{\\*\\cs10\\additive\\i Own sign;}}"
         "\\pard\\s1\\f1\\fs40\\b Head\\par\\pard\\s9\\qr\\f1\\b0\\fs20 right {\\cs10\\i sign}\\par}");
    Styles& styles = document->styles();
    EXPECT_EQ(styles.normal().font.name, u"Verdana");
    EXPECT_EQ(styles.normal().font.size, 10.0f);
    EXPECT_EQ(styles.byNumber(-2)->resolvedFont().size, 20.0f);
    EXPECT_EQ(styles.byName(u"mine")->resolvedParagraph().alignment, Alignment::right);
    EXPECT_EQ(styles.byName(u"Own sign")->type(), StyleType::character);
    EXPECT_EQ(range(0, 4).style()->name(), u"Heading 1");
    EXPECT_EQ(document->mainStory()->runAt(0).format->font, FontProperties());
    EXPECT_EQ(range(5, 6).style()->name(), u"Mine");
    EXPECT_EQ(range(11, 15).style()->name(), u"Own sign");
    EXPECT_EQ(range(11, 15).font().italic, true);
}

TEST_F(RtfReaderTest, ParagraphsHaveLinesAboveAndBelow)
{
    read("{\\rtf1{\\stylesheet{\\fs24 Normal;}{\\s9\\sbasedon0\\brdrb\\brdrs\\brdrw15\\brsp20\\fs24 Ruled;}}"
         "\\pard\\s9\\brdrb\\brdrs\\brdrw15\\brsp20\\fs24 a\\par\\pard\\fs24 "
         "b\\par\\pard\\brdrt\\brdrs\\fs24 c\\par}");
    const ParagraphProperties ruled = document->styles().byName(u"Ruled")->resolvedParagraph();
    EXPECT_EQ(ruled.bottomBorder, (Border{true, 0.75f}));
    EXPECT_EQ(ruled.topBorder, Border());
    EXPECT_EQ(document->mainStory()->paragraph(0).format->properties, ParagraphProperties());
    EXPECT_EQ(range(2, 3).paragraphFormat().bottomBorder, Border());
    EXPECT_EQ(range(4, 5).paragraphFormat().topBorder, (Border{true, 0.5f}));
    const std::string written = writeRtf(*document);
    EXPECT_NE(written.find("\\brdrb\\brdrs\\brdrw15\\brsp20"), std::string::npos);
    const DocumentPtr again = Document::make(u"Document2");
    readRtf(written, *again);
    EXPECT_EQ(again->styles().byName(u"Ruled")->resolvedParagraph().bottomBorder, ruled.bottomBorder);
    EXPECT_EQ(writeRtf(*again), written);
}

TEST_F(RtfReaderTest, ReadsPagesSectionsHeaders)
{
    read("{\\rtf1\\paperw11906\\paperh16838\\margl1000\\sectd{\\header\\pard Head\\par}one\\par\\sect"
         "\\sectd\\sbknone\\lndscpsxn\\pgwsxn16838\\pghsxn11906{\\header Other}two\\par}");
    ASSERT_EQ(document->sectionCount(), 2);
    const SectionPtr first = document->section(1);
    const SectionPtr second = document->section(2);
    EXPECT_FLOAT_EQ(first->pageSetup.pageWidth, 595.3f);
    EXPECT_FLOAT_EQ(first->pageSetup.leftMargin, 50);
    EXPECT_EQ(second->pageSetup.orientation, Orientation::landscape);
    EXPECT_EQ(second->pageSetup.sectionStart, SectionStart::continuous);
    EXPECT_EQ(first->pageSetup.sectionStart, SectionStart::newPage);
    EXPECT_EQ(textOf(first->story(Section::Part::header, HeaderFooterIndex::primary)), u"Head\r");
    EXPECT_EQ(textOf(second->story(Section::Part::header, HeaderFooterIndex::primary)), u"Other\r");
    EXPECT_EQ(text(), u"one\r\ftwo\r");
}

TEST_F(RtfReaderTest, APageWiderThanHighIsLandscape)
{
    read("{\\rtf1\\sectd\\pgwsxn15840\\pghsxn12240 a\\par}");
    EXPECT_EQ(document->section(1)->pageSetup.orientation, Orientation::landscape);
}

TEST_F(RtfReaderTest, SkipsWhatItDoesNotKnow)
{
    read("{\\rtf1{\\info{\\title no}}{\\*\\generator {no} x;}\\strange3 a{\\*\\bkmkstart no}\\bin3 "
         "{}}b\\par}");
    EXPECT_EQ(text(), u"ab\r");
}

TEST_F(RtfReaderTest, RefusesWhatIsNoRtf)
{
    for (const char* bytes :
         {"", "plain text", "{", "{\\html}", "\xD0\xCF\x11\xE0", "{\\rtf1 cut", "{\\rtf1 {deep}"}) {
        document = Document::make(u"Document1");
        EXPECT_EQ(errorOfReading(bytes), 5273) << bytes;
    }
}

TEST_F(RtfReaderTest, RefusesEndlessNesting)
{
    EXPECT_EQ(errorOfReading("{\\rtf1" + std::string(20000, '{') + std::string(20000, '}') + "}"), 5273);
}

TEST_F(RtfReaderTest, WhatIsWrittenReadsBackAlike)
{
    write(u"Heading\rplain bold \u00e9\U0001F600\rnext\vline\r");
    range(0, 1).setStyle(u"Heading 2");
    range(14, 18).setFont({.name = u"Arial", .bold = true});
    range(20, 22).setStyle(u"Hyperlink");
    range(9, 9).setParagraphFormat({.alignment = Alignment::justify});
    range(23, 23).insertBreak(BreakType::sectionNextPage);
    document->section(2)->pageSetup.setOrientation(Orientation::landscape);
    rangeOf(document->section(2)->story(Section::Part::footer, HeaderFooterIndex::primary))
        .insertAfter(u"a\rfoot");

    const DocumentPtr original = document;
    const std::string bytes = rtf();
    document = Document::make(u"Document2");
    read(bytes);
    EXPECT_EQ(text(), textOf(original->mainStory()));
    const auto format = [](const DocumentPtr& each, Position at) {
        const LiveRange here(each->mainStory(), at, at + 1);
        return std::make_tuple(here.style()->name(), here.font().name, here.font().bold,
                               here.font().underline, here.paragraphFormat().alignment,
                               here.paragraphFormat().spaceBefore);
    };
    for (Position at = 0; at < original->mainStory()->length(); ++at)
        EXPECT_EQ(format(document, at), format(original, at)) << at;
    ASSERT_EQ(document->sectionCount(), 2);
    EXPECT_EQ(document->section(2)->pageSetup, original->section(2)->pageSetup);
    EXPECT_EQ(document->section(1)->pageSetup, original->section(1)->pageSetup);
    EXPECT_EQ(textOf(document->section(2)->story(Section::Part::footer, HeaderFooterIndex::primary)),
              u"a\rfoot\r");
    EXPECT_EQ(rtf(), bytes);
}

} // namespace
} // namespace standin::rtf
