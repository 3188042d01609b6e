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
    static std::int32_t errorOf(const std::function<void()>& action)
    {
        try {
            action();
        } catch (const WordError& error) {
            return static_cast<std::int32_t>(error.number());
        }
        return 0;
    }
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

} // namespace
} // namespace standin::rtf
