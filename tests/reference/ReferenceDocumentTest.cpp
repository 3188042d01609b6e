// What the calls mean, one rule a test.
#include "ReferenceDocument.h"

#include "DocumentComparison.h"
#include "RandomSession.h"

#include <gtest/gtest.h>

namespace reference {
namespace {

using M = Method;

class ReferenceDocumentTest : public testing::Test
{
protected:
    ReferenceDocumentTest() : document(isAddress) {}

    void say(M method, std::u16string text = {}, std::u16string target = {})
    {
        document.perform({method, std::move(text), std::move(target)});
    }
    void say(M method, int number, bool isOn = false) { document.perform({method, {}, {}, number, isOn}); }
    void insertFile(std::u16string name, int kind = 0)
    {
        document.perform({M::insertFile, std::move(name), {}, kind});
    }
    void write(std::u16string text) { say(M::insertText, std::move(text)); }

    [[nodiscard]] StoryContent story(std::size_t number = bodyStory) const
    {
        return document.content().stories.at(number).value();
    }
    [[nodiscard]] std::string text(std::size_t number = bodyStory) const { return printable(story(number)); }
    /// The n-th token that ends a paragraph.
    [[nodiscard]] Token end(std::size_t index, std::size_t number = bodyStory) const
    {
        for (const Token& token : story(number).tokens)
            if (!token.style.empty() && index-- == 0)
                return token;
        return {};
    }
    [[nodiscard]] Token token(std::size_t index) const { return story().tokens.at(index); }
    [[nodiscard]] Font font(std::size_t index) const { return token(index).font.value(); }
    [[nodiscard]] std::vector<std::size_t> tags(std::size_t number = bodyStory) const
    {
        std::vector<std::size_t> starts;
        for (const Tag& tag : story(number).tags)
            starts.push_back(tag.start);
        return starts;
    }

    ReferenceDocument document;
};

TEST_F(ReferenceDocumentTest, ANewDocumentIsOneEmptyParagraphAndSoAreItsHeaderAndFooter)
{
    EXPECT_EQ(text(), "<paragraph end>");
    EXPECT_EQ(text(headerStory(0)), "<paragraph end>");
    EXPECT_EQ(text(footerStory(0)), "<paragraph end>");
    EXPECT_TRUE(token(0).isFormatOpen);
}

TEST_F(ReferenceDocumentTest, EachCrLfAndCrAndLfEndsAParagraph)
{
    write(u"a\r\n\nb\r\rc\n\rd");
    EXPECT_EQ(text(), "a<paragraph end><paragraph end>b<paragraph end><paragraph end>c<paragraph end>"
                      "<paragraph end>d<paragraph end>");
}

TEST_F(ReferenceDocumentTest, AStyleEndsAParagraphThatHoldsAnything)
{
    say(M::setStyle, u"Heading 1");
    write(u"h");
    say(M::setStyle, u"Heading 12");
    say(M::setStyle, u"Heading 2");
    write(u"i");
    say(M::setStyle, u"Heading 2");
    write(u"j");
    EXPECT_EQ(text(), "h<paragraph end>ij<paragraph end>");
    EXPECT_EQ(end(0).style, u"Heading 1");
    EXPECT_EQ(end(1).style, u"Heading 2");
    EXPECT_EQ(font(0), (Font{u"Arial", 16, true}));
    EXPECT_EQ(font(2), (Font{u"Arial", 14, true, true}));
}

TEST_F(ReferenceDocumentTest, HeadingsBeyond9AreTheNinth)
{
    say(M::setStyle, u"Heading 12");
    write(u"a");
    EXPECT_EQ(end(0).style, u"Heading 9");
    EXPECT_EQ(font(0), (Font{u"Arial", 11}));
}

TEST_F(ReferenceDocumentTest, AnUnknownStyleOnlyEndsTheParagraph)
{
    say(M::setStyle, u"Heading 1");
    write(u"a");
    say(M::setStyle, u"No Such Style");
    write(u"b");
    EXPECT_EQ(text(), "a<paragraph end>b<paragraph end>");
    EXPECT_EQ(end(1).style, u"Heading 1");
}

TEST_F(ReferenceDocumentTest, ParagraphEndsRightWhereAStyleBeginsStayNormal)
{
    say(M::setStyle, u"Heading 1");
    say(M::insertEndl);
    write(u"\na\n\n");
    EXPECT_EQ(end(0).style, u"Normal");
    EXPECT_EQ(end(1).style, u"Normal");
    EXPECT_EQ(end(2).style, u"Heading 1");
    EXPECT_EQ(end(3).style, u"Heading 1");
    EXPECT_FALSE(end(3).isFormatOpen);
    EXPECT_TRUE(end(4).isFormatOpen);
}

TEST_F(ReferenceDocumentTest, AFontNameBeginsWithAFreshFontOfTheStylesSize)
{
    say(M::setStyle, u"Heading 1");
    say(M::setFontAttribute, 4, true);
    write(u"a");
    say(M::setFontName, u"Georgia");
    say(M::setFontAttribute, 2, true);
    write(u"b");
    say(M::setFontSize, 20);
    say(M::setFontAttribute, 8, true);
    say(M::setFontAttribute, 2, false);
    write(u"c");
    EXPECT_EQ(font(0), (Font{u"Arial", 16, true, false, true}));
    EXPECT_EQ(font(1), (Font{u"Georgia", 16, false, true}));
    EXPECT_EQ(font(2), (Font{u"Georgia", 20, false, false, false, true}));
}

TEST_F(ReferenceDocumentTest, AnAlignmentEndsAParagraphAndHoldsFromThere)
{
    write(u"a");
    say(M::setTextAlign, 2);
    write(u"b");
    say(M::setTextAlign, 2);
    write(u"c\n");
    say(M::setTextAlign, 3);
    say(M::setTextAlign, 4);
    write(u"d\n");
    say(M::setTextAlign, 7);
    write(u"e");
    EXPECT_EQ(text(), "a<paragraph end>bc<paragraph end>d<paragraph end>e<paragraph end>");
    EXPECT_EQ(end(0).alignment, Alignment::left);
    EXPECT_EQ(end(1).alignment, Alignment::centre);
    EXPECT_EQ(end(2).alignment, Alignment::justified);
    EXPECT_EQ(end(3).alignment, Alignment::left);
}

TEST_F(ReferenceDocumentTest, TheStylesAlignmentHoldsUntilOneIsSet)
{
    say(M::setStyle, u"Title");
    write(u"a\n");
    say(M::setTextAlign, 3);
    write(u"b\n");
    say(M::setTextAlign, 0);
    write(u"c");
    EXPECT_EQ(end(0).alignment, Alignment::centre);
    EXPECT_EQ(end(1).alignment, Alignment::right);
    EXPECT_EQ(end(2).alignment, Alignment::left);
}

TEST_F(ReferenceDocumentTest, APageBreakStandsInItsParagraph)
{
    say(M::setStyle, u"Heading 1");
    say(M::setFontSize, 9);
    write(u"a");
    say(M::insertPageBreak);
    write(u"b");
    EXPECT_EQ(text(), "a<page break>b<paragraph end>");
    EXPECT_EQ(font(2), font(0));
}

TEST_F(ReferenceDocumentTest, TheLastPageBreakBecomesASectionBreakWhereAHeaderStarts)
{
    write(u"a");
    say(M::insertPageBreak);
    write(u"b");
    say(M::insertPageBreak);
    write(u"c");
    say(M::startHeader);
    write(u"h");
    say(M::endHeader);
    say(M::startFooter);
    say(M::endFooter);
    write(u"d");
    EXPECT_EQ(text(), "a<page break>b<section end>cd<paragraph end>");
    EXPECT_EQ(document.content().stories.size(), 5u);
    EXPECT_EQ(text(headerStory(0)), "<paragraph end>");
    EXPECT_EQ(text(headerStory(1)), "h<paragraph end>");
    EXPECT_EQ(end(0, headerStory(1)).style, u"Header");
    EXPECT_EQ(text(footerStory(1)), "<paragraph end>");
}

TEST_F(ReferenceDocumentTest, ASectionBreakAtTheEndLeavesAnEmptyParagraph)
{
    write(u"a");
    say(M::insertPageBreak);
    say(M::startFooter);
    say(M::endFooter);
    say(M::setStyle, u"Heading 1");
    write(u"b");
    EXPECT_EQ(text(), "a<section end>b<paragraph end>");
    EXPECT_FALSE(document.content().stories.at(headerStory(1)));
}

TEST_F(ReferenceDocumentTest, AnOpenHeaderOfTheSameSectionIsGoneOnWith)
{
    say(M::startHeader);
    say(M::setFontSize, 9);
    write(u"a");
    say(M::startFooter);
    write(u"f");
    say(M::startHeader);
    write(u"b");
    say(M::endFooter);
    write(u"body");
    say(M::startHeader);
    write(u"c");
    EXPECT_EQ(text(headerStory(0)), "abc<paragraph end>");
    EXPECT_EQ(story(headerStory(0)).tokens.at(2).font->size, 9);
    EXPECT_EQ(text(footerStory(0)), "f<paragraph end>");
    EXPECT_EQ(text(), "body<paragraph end>");
}

TEST_F(ReferenceDocumentTest, AnEndedHeaderIsReplaced)
{
    say(M::startHeader);
    write(u"a");
    say(M::endHeader);
    say(M::startHeader);
    write(u"b");
    EXPECT_EQ(text(headerStory(0)), "b<paragraph end>");
}

TEST_F(ReferenceDocumentTest, StylesAreIgnoredInHeaders)
{
    say(M::startHeader);
    say(M::setStyle, u"Heading 1");
    write(u"a");
    say(M::endHeader);
    write(u"b");
    EXPECT_EQ(end(0, headerStory(0)).style, u"Header");
    EXPECT_EQ(end(0).style, u"Normal");
}

TEST_F(ReferenceDocumentTest, TheFirstRowDecidesTheNumberOfCells)
{
    write(u"in front");
    say(M::startTable);
    write(u"1");
    say(M::addCell);
    say(M::addRow);
    say(M::addRow);
    say(M::addCell);
    write(u"2");
    say(M::addCell);
    write(u"3");
    say(M::addRow);
    write(u"4");
    for (int i = 0; i < 3; ++i)
        say(M::addCell);
    write(u"5");
    say(M::endTable);
    write(u"behind");
    EXPECT_EQ(text(), "in front<paragraph end>12<cell end>3<cell end><row end>4<cell end>5<cell end><row end>"
                      "behind<paragraph end>");
}

TEST_F(ReferenceDocumentTest, ATableBringsNormalAndLeavesIt)
{
    say(M::setStyle, u"Heading 1");
    say(M::setTextAlign, 2);
    say(M::startTable);
    write(u"a");
    say(M::setStyle, u"Heading 2");
    write(u"b\n");
    say(M::insertPageBreak);
    say(M::endTable);
    write(u"c");
    EXPECT_EQ(text(), "ab<paragraph end><cell end><row end>c<paragraph end>");
    EXPECT_EQ(font(0), (Font{u"Times New Roman", 12}));
    EXPECT_EQ(font(1), (Font{u"Arial", 14, true, true}));
    EXPECT_EQ(end(0).style, u"Normal");
    EXPECT_EQ(end(0).alignment, Alignment::left);
    EXPECT_EQ(end(2).style, u"Normal");
    EXPECT_EQ(font(5), (Font{u"Times New Roman", 12}));
}

TEST_F(ReferenceDocumentTest, ANormalParagraphComesBetweenTwoTables)
{
    for (int i = 0; i < 2; ++i) {
        say(M::startTable);
        say(M::endTable);
    }
    EXPECT_EQ(text(), "<cell end><row end><paragraph end><cell end><row end><paragraph end>");
    EXPECT_TRUE(token(2).isFormatOpen);
}

TEST_F(ReferenceDocumentTest, AnAlignmentInACellHoldsFromItsCurrentParagraphOn)
{
    say(M::startTable);
    say(M::addRow);
    say(M::addCell);
    say(M::addCell);
    say(M::addRow);
    say(M::addCell);
    write(u"a\nb");
    say(M::setTextAlign, 3);
    say(M::addRow);
    say(M::addCell);
    say(M::addCell);
    say(M::setTextAlign, 2);
    say(M::endTable);
    const std::vector<Alignment> expected = {Alignment::left,  Alignment::left,  Alignment::left,
                                             Alignment::right, Alignment::right, Alignment::right,
                                             Alignment::centre};
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ(end(i).alignment, expected[i]) << i;
}

TEST_F(ReferenceDocumentTest, TheLastTableOfContentsCounts)
{
    say(M::setStyle, u"Heading 1");
    say(M::setFontSize, 30);
    say(M::setTextAlign, 3);
    write(u"a");
    say(M::insertTOC);
    say(M::insertTOC);
    write(u"b");
    const std::string heading = "Table of Contents<paragraph end><paragraph end>";
    EXPECT_EQ(text(), "a<paragraph end>" + heading + "<paragraph end>" + heading +
                          "<table of contents><paragraph end>b<paragraph end>");
    EXPECT_EQ(end(1).alignment, Alignment::centre);
    EXPECT_EQ(end(2).alignment, Alignment::centre);
    EXPECT_EQ(end(1).style, u"Normal");
    EXPECT_EQ(end(3).alignment, Alignment::right);
    EXPECT_EQ(font(2).size, 12);
    EXPECT_EQ(end(7).style, u"Heading 1");
    EXPECT_EQ(end(7).alignment, Alignment::right);
    EXPECT_EQ(story().tokens.end()[-2].font->size, 30);
}

TEST_F(ReferenceDocumentTest, AnEntryHoldsTextsAndLabelsWithSpacesForParagraphEnds)
{
    say(M::startTOCEntry);
    write(u"too early");
    say(M::endTOCEntry);
    say(M::insertTOC);
    say(M::setStyle, u"Heading 3");
    say(M::startTOCEntry);
    write(u"a\r\n\nb");
    say(M::insertField, 4);
    say(M::insertXref, u"label", u"http://a.example/");
    say(M::endTOCEntry);
    say(M::endTOCEntry);
    say(M::startTOCEntry);
    say(M::endTOCEntry);
    write(u".");
    const std::string body = text();
    EXPECT_EQ(body.substr(body.find("ents><paragraph end>") + 20),
              "a<paragraph end><paragraph end>b<field PAGE>label<entry 3 \"a blabel\">.<paragraph end>");
}

TEST_F(ReferenceDocumentTest, AnEntryInACellStandsThereAtTheLevelOfTheStyleNamed)
{
    say(M::insertTOC);
    say(M::startTable);
    say(M::setStyle, u"Heading 12");
    say(M::startTOCEntry);
    write(u"x");
    say(M::endTOCEntry);
    EXPECT_NE(text().find("x<entry 9 \"x\"><cell end>"), std::string::npos) << text();
}

TEST_F(ReferenceDocumentTest, LinksLeadToTagsPlacedAnywhere)
{
    say(M::startHeader);
    say(M::insertXref, u"h", u"GUID 1");
    say(M::endHeader);
    say(M::insertXref, u"b", u"nowhere");
    write(u"x<a href=\"#GUID 1\">y</a>z<a href=\"www.b.example\">w</a><a href=\"\">v</a>");
    say(M::insertTag, u"GUID 1");
    write(u"u");
    EXPECT_EQ(text(), "bxyzwvu<paragraph end>");
    EXPECT_FALSE(token(0).link);
    EXPECT_EQ(token(2).link, (LinkTarget{{}, Place{bodyStory, 6}}));
    EXPECT_EQ(token(4).link, (LinkTarget{u"www.b.example"}));
    EXPECT_FALSE(token(5).link);
    EXPECT_EQ(story(headerStory(0)).tokens.at(0).link, (LinkTarget{{}, Place{bodyStory, 6}}));
    EXPECT_EQ(tags(), std::vector<std::size_t>{6});
}

TEST_F(ReferenceDocumentTest, LinksThatTouchAreTwo)
{
    say(M::insertXref, u"ab", u"www.b.example");
    say(M::insertXref, u"c", u"www.b.example");
    EXPECT_TRUE(token(0).beginsLink);
    EXPECT_FALSE(token(1).beginsLink);
    EXPECT_TRUE(token(2).beginsLink);
}

TEST_F(ReferenceDocumentTest, ATagPlacedAgainMoves)
{
    say(M::insertTag, u"here");
    say(M::insertTag, u"the place");
    write(u"a");
    say(M::insertTag, u"here");
    EXPECT_EQ(tags(), (std::vector<std::size_t>{0, 1}));
    say(M::startHeader);
    say(M::insertTag, u"here");
    EXPECT_EQ(tags(), std::vector<std::size_t>{0});
    EXPECT_EQ(tags(headerStory(0)), std::vector<std::size_t>{0});
}

TEST_F(ReferenceDocumentTest, ATagInFrontOfATableIsAtItsBeginning)
{
    write(u"a\n");
    say(M::insertTag, u"here");
    say(M::startTable);
    write(u"b");
    say(M::insertTag, u"six");
    EXPECT_EQ(tags(), (std::vector<std::size_t>{2, 3}));
}

TEST_F(ReferenceDocumentTest, AFileStandsInParagraphsOfItsOwn)
{
    write(u"a");
    insertFile(u"lines.txt");
    insertFile(u"one line.txt");
    write(u"b\n");
    insertFile(u"one line.txt");
    EXPECT_EQ(text(),
              "a<paragraph end>First of file<paragraph end>Second of file<paragraph end><paragraph end>"
              "Fourth of file<paragraph end>File of one line<paragraph end>b<paragraph end>"
              "File of one line<paragraph end><paragraph end>");
    EXPECT_FALSE(token(0).isFromFile);
    EXPECT_TRUE(token(2).isFromFile);
    EXPECT_TRUE(end(1).isFromFile);
    EXPECT_FALSE(end(6).isFromFile);
    EXPECT_TRUE(end(8).isFormatOpen);
}

TEST_F(ReferenceDocumentTest, AFileKeepsItsFormattingAndWhatFollowsHasWhatIsInForce)
{
    say(M::setStyle, u"Heading 1");
    say(M::setTextAlign, 2);
    say(M::setFontSize, 30);
    write(u"a");
    insertFile(u"letter.rtf");
    say(M::setTextAlign, 4);
    write(u"b");
    EXPECT_EQ(text(), "a<paragraph end>Letter bold head<paragraph end>Subject<paragraph end>Dear reader"
                      "<paragraph end>b<paragraph end>");
    EXPECT_EQ(font(2), (Font{u"Verdana", 18}));
    EXPECT_EQ(font(9), (Font{u"Verdana", 18, true}));
    EXPECT_EQ(end(1).alignment, Alignment::centre);
    EXPECT_EQ(end(2).style, u"Heading 2");
    EXPECT_EQ(end(3).style, u"Normal");
    EXPECT_EQ(end(3).alignment, Alignment::right);
    EXPECT_EQ(end(4).style, u"Heading 1");
    EXPECT_EQ(end(4).alignment, Alignment::justified);
    EXPECT_EQ(story().tokens.end()[-2].font, (Font{u"Arial", 30, true}));
}

TEST(ReferenceDocumentOfWordThatLosesFileEndsTest, TheLastParagraphOfRichTextIsAnyHow)
{
    ReferenceDocument document(isAddress, true);
    document.perform({M::insertFile, u"letter.rtf"});
    std::vector<bool> areOpen;
    const DocumentContent content = document.content();
    for (const Token& each : content.stories.at(bodyStory)->tokens)
        if (each.kind == TokenKind::paragraphEnd)
            areOpen.push_back(each.isFormatOpen);
    EXPECT_EQ(areOpen, (std::vector{false, false, true, true}));
}

TEST_F(ReferenceDocumentTest, ATextFileSaysNothingOfFormats)
{
    insertFile(u"one line.txt");
    EXPECT_FALSE(token(0).font);
    EXPECT_TRUE(end(0).isFormatOpen);
}

TEST_F(ReferenceDocumentTest, ParagraphEndsBehindAFileAreInTheStyleInForce)
{
    say(M::setStyle, u"Heading 1");
    insertFile(u"one line.txt");
    say(M::insertEndl);
    write(u"a");
    insertFile(u"one line.txt");
    say(M::insertEndl);
    EXPECT_EQ(end(1).style, u"Normal"); // nothing was written in the style yet
    EXPECT_EQ(end(4).style, u"Heading 1");
}

TEST_F(ReferenceDocumentTest, AFileInACellStandsInParagraphsOfItsOwn)
{
    say(M::startTable);
    write(u"a");
    insertFile(u"letter.rtf");
    say(M::setTextAlign, 2);
    write(u"b");
    say(M::addRow);
    say(M::addCell);
    say(M::addRow);
    say(M::addCell);
    insertFile(u"memo.doc");
    say(M::endTable);
    EXPECT_EQ(text(),
              "a<paragraph end>Letter bold head<paragraph end>Subject<paragraph end>Dear reader"
              "<paragraph end>b<cell end><row end>Memo<paragraph end><paragraph end>done<paragraph end>"
              "<cell end><row end><paragraph end>");
    EXPECT_EQ(end(0).alignment, Alignment::left);
    EXPECT_EQ(end(3).alignment, Alignment::right);
    EXPECT_EQ(end(4).alignment, Alignment::centre);
    EXPECT_FALSE(end(4).isFormatOpen);
    EXPECT_EQ(end(5).alignment, Alignment::justified);
    EXPECT_TRUE(end(8).isFormatOpen);
    EXPECT_TRUE(token(2).isInTable);
}

TEST_F(ReferenceDocumentTest, NothingStandsBetweenAFileAndTablesOrTheTableOfContents)
{
    say(M::insertTOC);
    insertFile(u"one line.txt");
    for (int i = 0; i < 2; ++i) {
        say(M::startTable);
        say(M::endTable);
        insertFile(u"one line.txt");
    }
    const std::string file = "File of one line<paragraph end>";
    const std::string table = "<cell end><row end>";
    EXPECT_EQ(text(), "Table of Contents<paragraph end><paragraph end><table of contents><paragraph end>" +
                          file + table + file + table + file + "<paragraph end>");
}

TEST_F(ReferenceDocumentTest, ATagInFrontOfAFileIsAtItsBeginning)
{
    write(u"a\n");
    say(M::insertTag, u"here");
    insertFile(u"one line.txt");
    say(M::insertTag, u"behind");
    EXPECT_EQ(tags(), (std::vector<std::size_t>{2, 19}));
}

TEST_F(ReferenceDocumentTest, AFileIsNoPartOfAnEntry)
{
    say(M::insertTOC);
    say(M::startTOCEntry);
    write(u"a");
    insertFile(u"one line.txt");
    write(u"b");
    insertFile(u"one line.txt", 2);
    say(M::endTOCEntry);
    EXPECT_NE(text().find("<entry 1 \"a bone line.txt\">"), std::string::npos) << text();
}

TEST_F(ReferenceDocumentTest, FilesThatBecomePicturesObjectsAndLinks)
{
    insertFile(u"picture.bmp");
    insertFile(u"sheet.xls", 1);
    insertFile(u"sheet.xls", 2);
    insertFile(u"sheet.xls", 4);
    insertFile(u"picture.bmp", 2);
    insertFile(u"lines.txt", 4);
    insertFile(u"http://a.example/", 0);
    EXPECT_EQ(text(),
              "<picture bitmap 45x30><embedded object><linked object><embedded object>picture.bmplines.txt"
              "http://a.example/<paragraph end>");
    EXPECT_FALSE(token(0).link);
    EXPECT_EQ(token(4).link, (LinkTarget{u"picture.bmp"}));
    EXPECT_EQ(token(15).link, (LinkTarget{u"lines.txt"}));
    EXPECT_TRUE(token(15).beginsLink);
    EXPECT_EQ(token(24).link, (LinkTarget{u"http://a.example/"}));
}

TEST_F(ReferenceDocumentTest, AFileThatIsMissingCanOnlyBeLinkedTo)
{
    for (const int kind : {0, 1, 2})
        insertFile(u"missing.txt", kind);
    EXPECT_EQ(text(), "<paragraph end>");
    insertFile(u"missing.txt", 4);
    EXPECT_EQ(text(), "missing.txt<paragraph end>");
    EXPECT_EQ(token(0).link, (LinkTarget{u"missing.txt"}));
}

TEST_F(ReferenceDocumentTest, AnOrientationHoldsForTheSectionsThatThereAreAndForThoseMadeOfThem)
{
    EXPECT_EQ(document.content().pages, (std::vector<Page>{{false, 90}}));
    const auto breakSection = [this] {
        say(M::insertPageBreak);
        say(M::startHeader);
        say(M::endHeader);
    };
    breakSection();
    say(M::setOrientation, 1);
    breakSection();
    EXPECT_EQ(document.content().pages, (std::vector<Page>{{true, 130}, {true, 130}, {true, 130}}));
    say(M::setOrientation, 2);
    EXPECT_EQ(document.content().pages, (std::vector<Page>{{false, 130}, {false, 130}, {false, 130}}));
}

TEST_F(ReferenceDocumentTest, APictureMayBeALink)
{
    say(M::insertImage, std::u16string(pictureName), u"www.b.example");
    say(M::insertImage, std::u16string(pictureName));
    EXPECT_EQ(text(), "<picture bitmap 45x30><picture bitmap 45x30><paragraph end>");
    EXPECT_EQ(token(0).link, (LinkTarget{u"www.b.example"}));
    EXPECT_FALSE(token(1).link);
}

} // namespace
} // namespace reference
