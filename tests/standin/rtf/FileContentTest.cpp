#include "FileContent.h"

#include "InlineShape.h"
#include "PlainText.h"
#include "RtfFixture.h"
#include "SamplePictures.h"
#include "Table.h"

namespace standin::rtf {
namespace {

using namespace model;

class FileContentTest : public RtfTest
{
protected:
    void insert(LiveRange place, std::string_view bytes) { insertFileContent(place, bytes); }
    void insert(Position at, std::string_view bytes) { insert(range(at, at), bytes); }
};

TEST_F(FileContentTest, TextIsReadByItsByteOrderMarkOrAsCodePage1252)
{
    EXPECT_EQ(readPlainText("a\x80\xe9"), u"a\u20ac\u00e9");
    EXPECT_EQ(readPlainText("\xEF\xBB\xBF\xC3\xA9\xF0\x9F\x98\x80"), u"\u00e9\U0001F600");
    EXPECT_EQ(readPlainText(std::string_view("\xFF\xFE"
                                             "a\0\xAC\x20",
                                             6)),
              u"a\u20ac");
    EXPECT_EQ(readPlainText(std::string_view("\xFE\xFF\0a\x20\xAC", 6)), u"a\u20ac");
    EXPECT_EQ(readPlainText(""), u"");
}

TEST_F(FileContentTest, MalformedUtf8IsReplaced)
{
    EXPECT_EQ(readPlainText("\xEF\xBB\xBF"
                            "a\xC3(\xC0\x80\xED\xA0\x80\xF0\x9F"),
              u"a\uFFFD(\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST_F(FileContentTest, TextGoesInWithItsLastParagraphEnded)
{
    write(u"aX");
    LiveRange place = range(1, 1);
    insertFileContent(place, "one\r\ntwo");
    EXPECT_EQ(text(), u"aone\rtwo\rX\r");
    EXPECT_EQ(place.start(), 1);
    EXPECT_EQ(place.end(), 9);
    insert(range(1, 9), "x\n");
    EXPECT_EQ(text(), u"ax\rX\r");
}

TEST_F(FileContentTest, EmptyFileIsAnEmptyParagraph)
{
    write(u"ab");
    insert(1, "");
    EXPECT_EQ(text(), u"a\rb\r");
}

TEST_F(FileContentTest, TextTakesTheFormattingOfItsPlace)
{
    write(u"ab");
    rangeOf(document->mainStory()).setFont({.bold = true});
    rangeOf(document->mainStory()).setStyle(-2);
    insert(1, "x\r\ny");
    EXPECT_EQ(range(1, 4).font().bold, true);
    EXPECT_EQ(range(0, 5).style()->name(), u"Heading 1");
}

TEST_F(FileContentTest, RtfKeepsItsFormatting)
{
    write(u"aX");
    LiveRange place = range(1, 1);
    insertFileContent(place, "{\\rtf1{\\fonttbl{\\f0 Arial;}}\\pard\\qc one\\par\\b two\\b0\\par}");
    EXPECT_EQ(text(), u"aone\rtwo\rX\r");
    EXPECT_EQ(place.start(), 1);
    EXPECT_EQ(place.end(), 9);
    EXPECT_EQ(range(0, 1).paragraphFormat().alignment, Alignment::center);
    EXPECT_EQ(range(5, 8).font().bold, true);
    EXPECT_EQ(range(9, 10).paragraphFormat().alignment, Alignment::left);
    EXPECT_EQ(range(9, 10).font().bold, false);
}

TEST_F(FileContentTest, StylesThatAreMissingComeAlongAndOthersKeepTheirMeaning)
{
    document->styles().find(u"Heading 1")->font.size = 40.0f;
    insert(0, "{\\rtf1{\\stylesheet{\\s0 Normal;}{\\s1\\fs20\\sbasedon0 heading 1;}{\\s20\\fs66\\sbasedon1 "
              "Special;}"
              "{\\*\\cs21\\i Slanted;}}\\pard\\s1\\fs20 one\\par\\pard\\s20\\fs66 two\\par\\pard "
              "{\\cs21\\i three}\\par}");
    EXPECT_EQ(range(0, 1).style()->name(), u"Heading 1");
    EXPECT_EQ(range(0, 1).style()->resolvedFont().size, 40.0f);
    EXPECT_EQ(range(4, 5).style()->name(), u"Special");
    EXPECT_EQ(range(4, 5).font().size, 33.0f);
    EXPECT_EQ(range(4, 5).style()->base()->name(), u"Heading 1");
    EXPECT_EQ(range(8, 9).style()->name(), u"Slanted");
    EXPECT_EQ(range(8, 9).font().italic, true);
}

TEST_F(FileContentTest, TablesAndPicturesComeAlong)
{
    write(u"aX");
    const DocumentPtr other = Document::make(u"Other");
    LiveRange place(other->mainStory(), 0, 0);
    Table::add(place, 1, 2).cell(1, 2).range().insertAfter(u"x");
    LiveRange first = Table(other->mainStory(), 0).cell(1, 1).range();
    addPicture(first, *readPicture(sample::png()));
    const std::string bytes = writeRtf(*other);
    insert(1, bytes);
    EXPECT_EQ(text(), u"a\r\x01\r\ax\r\a\r\a\rX\r");
    insert(0, bytes);
    EXPECT_EQ(tablesOf(rangeOf(document->mainStory())).size(), 2u);
    EXPECT_EQ(shapesIn(rangeOf(document->mainStory())).size(), 2u);
}

TEST_F(FileContentTest, TablesBecomeTextInsideACell)
{
    LiveRange start = range(0, 0);
    const Table table = Table::add(start, 1, 1);
    insert(
        0,
        "{\\rtf1\\trowd\\cellx99\\cellx199\\pard\\intbl a\\cell b\\cell\\row\\pard\\sectd c\\sect d\\par}");
    EXPECT_EQ(table.cell(1, 1).range().text(), u"a\tb\t\rc\rd\r\r\a");
    EXPECT_EQ(document->sectionCount(), 1);
}

TEST_F(FileContentTest, SectionsComeAlongButTheLastOnesSettings)
{
    write(u"aX");
    insert(1, "{\\rtf1\\sectd\\pgwsxn10000\\pghsxn9000 one\\sect\\sectd\\pgwsxn8000\\pghsxn9000 two\\par}");
    EXPECT_EQ(text(), u"aone\ftwo\rX\r");
    EXPECT_EQ(document->sectionCount(), 2);
    EXPECT_FLOAT_EQ(document->section(1)->pageSetup.pageWidth, 500);
    EXPECT_FLOAT_EQ(document->section(2)->pageSetup.pageWidth, 612);
}

TEST_F(FileContentTest, FieldsAndBookmarksComeAlong)
{
    write(u"aX");
    insert(
        1,
        "{\\rtf1 {\\*\\bkmkstart here}one{\\*\\bkmkend here}{\\field{\\*\\fldinst PAGE}{\\fldrslt 1}}\\par}");
    EXPECT_EQ(document->mainStory()->fields().startingIn(0, document->mainStory()->length()).size(), 1u);
    const BookmarkPtr bookmark = document->bookmarks().find(u"here");
    ASSERT_NE(bookmark, nullptr);
    EXPECT_EQ(bookmark->range().text(), u"one");
}

TEST_F(FileContentTest, FilesThatCannotBeReadChangeNothing)
{
    write(u"abc");
    EXPECT_EQ(errorOf([&] { insert(range(1, 2), "{\\rtf1 broken"); }), 5273);
    EXPECT_THROW(insert(range(1, 2), "\xD0\xCF\x11\xE0 and so on"), NotSupported);
    EXPECT_EQ(text(), u"abc\r");
}

TEST_F(FileContentTest, NothingGoesInFrontOfARowsMark)
{
    LiveRange start = range(0, 0);
    Table::add(start, 1, 1);
    EXPECT_EQ(errorOf([&] { insert(1, "{\\rtf1 x}"); }), 5251);
    EXPECT_EQ(errorOf([&] { insert(1, "x"); }), 5251);
}

/// Fragments as programs write them that leave the look to the document.
class FragmentTest : public FileContentTest
{
protected:
    static std::string fragment(const std::string& body)
    {
        return "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0{\\fonttbl{\\f0 Courier New;}{\\f1 Arial;}}"
               "{\\colortbl;\\red0\\green0\\blue255;}{\\stylesheet{\\s0 Normal;}"
               "{\\s1\\sbasedon0\\snext0 heading 1;}{\\s2\\b\\qc\\sbasedon0 heading 2;}"
               "{\\s20\\sbasedon0 Own Text;}{\\*\\cs18\\additive\\ul\\cf1 Hyperlink;}}" +
               body + "}";
    }
    /// Puts it into a document with these switches.
    void insertWith(const Switches& switches, Position at, const std::string& body)
    {
        const std::u16string before = document->mainStory()->text(0, document->mainStory()->length() - 1);
        document = Document::make(u"Document1", switches);
        write(before);
        insert(at, fragment(body));
    }
    const Story& story() const { return *document->mainStory(); }
    const FontProperties& direct(Position at) const { return story().directFont(at); }
    const ParagraphProperties& directParagraph(Position at) const { return story().directParagraph(at); }
    std::u16string all() const { return story().text(0, story().length()); }
    const std::u16string& styleAt(Position at) const { return story().paragraphAt(at).format->style->name(); }
};

TEST_F(FragmentTest, BookmarksThatItMeetsAreKeptOrLost)
{
    const auto leftWith = [this](OverlappedBookmarks reading, const std::string& bytes) {
        document = Document::make(u"Document1", {.insertFileOverlappedBookmarks = reading});
        write(u"abcdef");
        document->bookmarks().add(u"around", range(1, 5));
        document->bookmarks().add(u"at", range(3, 3));
        document->bookmarks().add(u"other", range(4, 4));
        insert(3, bytes);
        return document->bookmarks().all().size();
    };
    for (const std::string& bytes :
         {fragment("{\\*\\bkmkstart own}x{\\*\\bkmkend own}\\par"), std::string("x")}) {
        const std::size_t own = bytes == "x" ? 0 : 1;
        EXPECT_EQ(leftWith(OverlappedBookmarks::kept, bytes), 3 + own);
        EXPECT_EQ(leftWith(OverlappedBookmarks::lostInside, bytes), 2 + own);
        EXPECT_EQ(leftWith(OverlappedBookmarks::lostTouching, bytes), 1 + own);
    }
}

TEST_F(FragmentTest, WhatSaysNothingHasNoDirectFormatting)
{
    document->styles().find(u"Normal")->font.name = u"Verdana";
    insert(0, fragment("\\pard\\plain\\s1 one\\par\\pard\\plain two\\par\\pard\\plain\\s20 three\\par"));
    EXPECT_EQ(all(), u"one\rtwo\rthree\r\r");
    EXPECT_EQ(story().run(0).end, story().length());
    EXPECT_EQ(direct(0), FontProperties());
    for (const Position at : {0, 4, 8})
        EXPECT_EQ(directParagraph(at), ParagraphProperties()) << at;
    EXPECT_EQ(styleAt(0), u"Heading 1");
    EXPECT_EQ(styleAt(4), u"Normal");
    EXPECT_EQ(styleAt(8), u"Own Text");
    EXPECT_EQ(range(8, 9).font().name, u"Verdana");
    EXPECT_EQ(range(0, 1).font().size, 16.0f);
}

TEST_F(FragmentTest, WithoutAStyleSheetThereIsNoneEither)
{
    document->styles().find(u"Normal")->font.name = u"Verdana";
    insert(0, "{\\rtf1\\deff1{\\fonttbl{\\f0 Arial;}{\\f1 Courier New;}}\\pard\\plain one\\par two\\par}");
    EXPECT_EQ(direct(0), FontProperties());
    EXPECT_EQ(range(0, 3).font().name, u"Verdana");
}

TEST_F(FragmentTest, DirectIsWhatTheTextSaysBeyondItsStylesEntry)
{
    insert(0, fragment("\\pard\\plain\\s2\\b\\qc a{\\b0 b}{\\i\\fs40\\f1\\strike\\ul\\cf1 c}\\par"
                       "\\pard\\plain\\s2\\b\\ql d\\par\\pard\\plain\\s1\\qj\\b0 e\\par"));
    EXPECT_EQ(direct(0), FontProperties());
    EXPECT_EQ(direct(1), FontProperties{.bold = false});
    EXPECT_EQ(direct(2), (FontProperties{.name = u"Arial",
                                         .size = 20.0f,
                                         .italic = true,
                                         .strikeThrough = true,
                                         .underline = 1,
                                         .color = 0xFF0000}));
    EXPECT_EQ(directParagraph(0), ParagraphProperties());
    EXPECT_EQ(directParagraph(4), ParagraphProperties{.alignment = Alignment::left});
    EXPECT_EQ(directParagraph(6), ParagraphProperties{.alignment = Alignment::justify});
    EXPECT_EQ(direct(6), FontProperties()); // its style's entry is not bold
}

TEST_F(FragmentTest, OrWhateverTheTextSays)
{
    insertWith({.insertFileKeepsDifferencesOnly = false}, 0,
               "\\pard\\plain\\s2\\b\\qc a\\par\\pard\\plain\\s1\\ql\\b0 b\\par");
    EXPECT_EQ(direct(0), FontProperties{.bold = true});
    EXPECT_EQ(directParagraph(0), ParagraphProperties{.alignment = Alignment::center});
    EXPECT_EQ(direct(2), FontProperties{.bold = false});
    EXPECT_EQ(directParagraph(2), ParagraphProperties{.alignment = Alignment::left});
}

TEST_F(FragmentTest, TheDefaultFontStaysBehindOrCreepsIn)
{
    insertWith({.insertFileLeavesDefaultFont = false}, 0, "\\pard\\plain\\s1 a{\\f1 b}{\\fs40\\b c}\\par");
    EXPECT_EQ(direct(0), (FontProperties{.name = u"Courier New", .size = 12.0f}));
    EXPECT_EQ(direct(1), (FontProperties{.name = u"Arial", .size = 12.0f}));
    EXPECT_EQ(direct(2), (FontProperties{.name = u"Courier New", .size = 20.0f, .bold = true}));
}

TEST_F(FragmentTest, StylesOfTheDocumentKeepTheirMeaningWhateverTheirCase)
{
    const StylePtr own = document->styles().add(u"OWN text", StyleType::paragraph);
    own->font.italic = true;
    const std::int32_t count = document->styles().count();
    insert(0, fragment("\\pard\\plain\\s20 a\\par\\pard\\plain\\s2\\b\\qc b\\par"));
    EXPECT_EQ(document->styles().count(), count);
    EXPECT_EQ(styleAt(0), u"OWN text");
    EXPECT_EQ(range(0, 1).font().italic, true);
    EXPECT_EQ(range(2, 3).font().size, 14.0f);
    EXPECT_EQ(range(2, 3).paragraphFormat().alignment, Alignment::left);
}

TEST_F(FragmentTest, TheLastParagraphEndsWithItsMark)
{
    write(u"aX");
    insert(1, fragment("\\pard\\qc one\\par two\\par"));
    EXPECT_EQ(all(), u"aone\rtwo\rX\r");
    insert(0, fragment("no word for the end"));
    EXPECT_EQ(all(), u"no word for the end\raone\rtwo\rX\r");
}

TEST_F(FragmentTest, OrJoinsWhatStandsBehind)
{
    write(u"aX");
    insertWith({.insertFileLastParagraph = LastParagraph::dropped}, 1,
               "\\pard\\qc one\\par\\pard\\qr\\b two{\\*\\bkmkstart m}three{\\*\\bkmkend m}\\par");
    EXPECT_EQ(all(), u"aone\rtwothreeX\r");
    EXPECT_EQ(directParagraph(0).alignment, Alignment::center);
    EXPECT_EQ(directParagraph(5), ParagraphProperties());
    EXPECT_EQ(direct(12).bold, true);
    EXPECT_EQ(direct(13), FontProperties());
    EXPECT_EQ(document->bookmarks().find(u"m")->range().text(), u"three");
}

TEST_F(FragmentTest, OrLeavesAnEmptyParagraphBehindIt)
{
    write(u"aX");
    insertWith({.insertFileLastParagraph = LastParagraph::surplus}, 1, "\\pard\\qc one\\par");
    EXPECT_EQ(all(), u"aone\r\rX\r");
    EXPECT_EQ(directParagraph(5).alignment, Alignment::center);
    insertWith({.insertFileLastParagraph = LastParagraph::surplus}, 0, "one");
    EXPECT_EQ(all().substr(0, 4), u"one\r");
    EXPECT_NE(all()[4], u'\r');
}

TEST_F(FragmentTest, GoesInFrontOfASentinelAndToTheStorysEnd)
{
    write(u"before #behind");
    const LiveRange sentinel = range(7, 8);
    document->bookmarks().add(u"sentinel", sentinel);
    insert(7, fragment("\\pard\\plain\\s1 one\\par"));
    EXPECT_EQ(all(), u"before one\r#behind\r");
    EXPECT_EQ(sentinel.end(), 12);
    EXPECT_EQ(document->bookmarks().find(u"sentinel")->range().end(), 12);
    EXPECT_EQ(styleAt(0), u"Heading 1");
    EXPECT_EQ(styleAt(12), u"Normal");
    insert(story().length() - 1, fragment("\\pard\\plain end\\par"));
    EXPECT_EQ(all(), u"before one\r#behindend\r\r");
}

TEST_F(FragmentTest, TheRangeCoversTheTextOrLiesInFront)
{
    write(u"aX");
    LiveRange place = range(1, 1);
    insertFileContent(place, fragment("one\\par"));
    EXPECT_EQ(place.end(), 5);
    document = Document::make(u"Document1", {.insertFileRange = InsertedRange::inFront});
    write(u"abX");
    LiveRange other = range(1, 2);
    insertFileContent(other, fragment("one\\par"));
    EXPECT_EQ(all(), u"aone\rX\r");
    EXPECT_EQ(other.start(), 1);
    EXPECT_EQ(other.end(), 1);
    document = Document::make(u"Document1", {.insertFileRange = InsertedRange::behind});
    write(u"abX");
    LiveRange third = range(1, 2);
    insertFileContent(third, fragment("one\\par"));
    EXPECT_EQ(third.start(), 5);
    EXPECT_EQ(third.end(), 5);
}

TEST_F(FragmentTest, ABookmarkMovesOrIsDroppedWhenItsNameIsTaken)
{
    const std::string body = "{\\*\\bkmkstart M}one{\\*\\bkmkend M}{\\*\\bkmkstart p}{\\*\\bkmkend p}\\par";
    for (const bool moves : {true, false}) {
        document = Document::make(u"Document1", {.insertFileMovesBookmarks = moves});
        write(u"aX");
        document->bookmarks().add(u"m", range(1, 2));
        insert(0, fragment(body));
        EXPECT_EQ(document->bookmarks().find(u"M")->range().text(), moves ? u"one" : u"X");
        EXPECT_EQ(document->bookmarks().find(u"p")->range().start(), 3);
    }
}

TEST_F(FragmentTest, APolicyRefusesRtf)
{
    document = Document::make(u"Document1", {.insertFileTakesRtf = false});
    write(u"abc");
    EXPECT_EQ(errorOf([&] { insert(range(1, 2), fragment("one\\par")); }), 4198);
    EXPECT_EQ(text(), u"abc\r");
    insert(range(1, 2), "text");
    EXPECT_EQ(text(), u"atext\rc\r");
}

TEST_F(FragmentTest, FieldsComeAsTheyAre)
{
    insert(
        0,
        fragment(
            "\\pard\\plain {\\v\\field{\\*\\fldinst{ TC \"t\" \\\\l 2 }}}"
            "{\\field{\\*\\fldinst{ DATE \\\\@ \"yyyy\" }}{\\fldrslt{2000}}}"
            "{\\field{\\*\\fldinst{ HYPERLINK  \\\\l \"there\" }}{\\fldrslt{\\cs18\\ul\\cf1 link}}}\\par"));
    EXPECT_EQ(text(), u"2000link\r\r");
    EXPECT_EQ(all(), u"\x13 TC \"t\" \\l 2 \x15\x13 DATE \\@ \"yyyy\" \x14"
                     u"2000\x15\x13 HYPERLINK  \\l \"there\" \x14link\x15\r\r");
    EXPECT_EQ(direct(1), FontProperties{.hidden = true});
    const std::size_t link = all().find(u"link");
    EXPECT_EQ(direct(static_cast<Position>(link)), FontProperties());
    EXPECT_EQ(story().runAt(static_cast<Position>(link)).format->style->name(), u"Hyperlink");
}

TEST_F(FragmentTest, CharactersComeByTheirNumbers)
{
    insert(0, fragment(
                  "\\u8364?\\u-10179?\\u-8704?\\u-257?{\\uc0\\u233}\\'e9\\{\\\\\\}\\tab\\line\\page x\\par"));
    EXPECT_EQ(all(), u"\u20ac\U0001F600\uFEFF\u00e9\u00e9{\\}\t\v\fx\r\r");
}

TEST_F(FragmentTest, TablesKeepTheirRowsAndParagraphs)
{
    write(u"aX");
    insert(1,
           fragment("\\trowd\\trgaph108\\trleft-108\\trrh-567\\clbrdrt\\brdrs\\brdrw10\\cellx2000\\cellx5000"
                    "\\pard\\plain\\intbl one\\par\\pard\\plain\\intbl\\s1 two\\cell"
                    "\\pard\\plain\\intbl\\qr x\\cell\\row"
                    "\\trowd\\trrh300\\cellx2000\\cellx5000\\pard\\plain\\intbl y\\cell z\\cell\\row"
                    "\\pard\\plain tail\\par"));
    EXPECT_EQ(all(), u"a\rone\rtwo\ax\a\ay\az\a\atail\rX\r");
    const Table table(document->mainStory(), 2);
    EXPECT_EQ(table.row(1).format().heightRule, RowHeightRule::exactly);
    EXPECT_FLOAT_EQ(table.row(1).format().height, 28.35f);
    EXPECT_EQ(table.row(2).format().heightRule, RowHeightRule::atLeast);
    EXPECT_FLOAT_EQ(table.cell(1, 2).format().width, 150);
    EXPECT_TRUE(table.cell(1, 1).format().top.isVisible);
    EXPECT_EQ(table.cell(1, 1).range().text(), u"one\rtwo\r\a");
    EXPECT_EQ(styleAt(6), u"Heading 1");
    EXPECT_EQ(direct(6), FontProperties());
}

TEST_F(FragmentTest, GoesIntoAHeaderWithItsTable)
{
    const auto header = document->section(1)->story(Section::Part::header, HeaderFooterIndex::primary);
    insert(LiveRange(header, 0, 0),
           fragment("\\trowd\\cellx2000\\pard\\plain\\intbl x\\cell\\row\\pard\\plain one\\sect two\\par"));
    EXPECT_EQ(header->text(0, header->length()), u"x\a\aone\rtwo\r\r");
    EXPECT_EQ(tablesOf(rangeOf(header)).size(), 1u);
    EXPECT_EQ(document->sectionCount(), 1);
}

TEST_F(FragmentTest, GoesIntoACellInTheMiddleOfItsText)
{
    write(u"X");
    LiveRange start = range(0, 0);
    const Table table = Table::add(start, 1, 2);
    table.cell(1, 1).range().insertAfter(u"ab");
    insert(1, fragment("\\pard\\plain\\s1 one\\par\\pard\\plain two\\par"));
    EXPECT_EQ(all(), u"aone\rtwo\rb\a\a\aX\r");
    EXPECT_EQ(table.cell(1, 1).range().text(), u"aone\rtwo\rb\r\a");
    EXPECT_EQ(styleAt(0), u"Heading 1");
    EXPECT_EQ(styleAt(9), u"Normal");
}

} // namespace
} // namespace standin::rtf
