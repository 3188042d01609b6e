#include "RtfTables.h"

#include "RtfFixture.h"
#include "Table.h"

namespace standin::rtf {
namespace {

using namespace model;

class RtfTablesTest : public RtfTest
{
protected:
    Table add(Position at, std::int32_t rows, std::int32_t columns,
              Table::Borders borders = Table::Borders::none)
    {
        LiveRange place = range(at, at);
        return Table::add(place, rows, columns, borders);
    }
    Table tableAt(Position position) const { return {document->mainStory(), position}; }
    void read(std::string_view body) { readRtf("{\\rtf1 " + std::string(body) + "}", *document); }
};

TEST_F(RtfTablesTest, WritesARowDefinitionInFrontOfEachRow)
{
    RowFormat row;
    row.cells.resize(2);
    row.cells[0].width = 100;
    row.cells[1].width = 50;
    row.cells[1].bottom.isVisible = true;
    row.heightRule = RowHeightRule::exactly;
    row.height = 28.35f;
    EXPECT_EQ(rowDefinition(row),
              "\\trowd\\trgaph108\\trleft-108\\trrh-567\\cellx1892\\clbrdrb\\brdrs\\brdrw10\\cellx2892\n");
}

TEST_F(RtfTablesTest, WritesNoLineOfABorderThatIsNotThere)
{
    add(0, 1, 1);
    EXPECT_EQ(rtf().find("\\brdrs"), std::string::npos);
}

TEST_F(RtfTablesTest, WritesCellsAndRowEnds)
{
    write(u"end");
    Table table = add(0, 1, 2);
    table.cell(1, 1).range().insertAfter(u"a\rb");
    const std::string written = rtf();
    EXPECT_NE(
        written.find(
            "\\pard\\plain\\intbl\\s0\\ql\\f0\\fs24 a\\par\n\\pard\\plain\\intbl\\s0\\ql\\f0\\fs24 b\\cell\n"
            "\\pard\\plain\\intbl\\s0\\ql\\f0\\fs24 \\cell\n\\row\n\\pard\\plain\\s0\\ql\\f0\\fs24 end"),
        std::string::npos)
        << written.substr(written.find("\\sectd"));
}

TEST_F(RtfTablesTest, TablesComeBackFromRtf)
{
    write(u"before\rafter");
    Table table = add(7, 2, 2, Table::Borders::single);
    table.cell(1, 1).range().insertAfter(u"one\rtwo");
    table.cell(2, 2).range().insertAfter(u"four");
    table.row(1).addCell();
    table.row(1).cell(1).setWidth(100, RulerStyle::none);
    table.row(1).setHeight(30, RowHeightRule::exactly);
    table.row(2).setHeight(20, RowHeightRule::atLeast);
    table.cell(2, 1).range().setParagraphFormat({.alignment = Alignment::center});
    table.cell(2, 2).range().setStyle(-2);
    const std::u16string expected = text();
    rewrite();
    EXPECT_EQ(text(), expected);
    const Table again = tableAt(7);
    EXPECT_EQ(again.rowCount(), 2);
    EXPECT_EQ(again.row(1).cellCount(), 3);
    EXPECT_NEAR(again.cell(1, 1).format().width, 100, 0.05f);
    EXPECT_NEAR(again.cell(1, 3).format().width, 221.4f, 0.05f);
    EXPECT_TRUE(again.cell(2, 1).format().left.isVisible);
    EXPECT_EQ(again.row(1).format().heightRule, RowHeightRule::exactly);
    EXPECT_FLOAT_EQ(again.row(1).format().height, 30);
    EXPECT_EQ(again.row(2).format().heightRule, RowHeightRule::atLeast);
    EXPECT_FLOAT_EQ(again.row(2).format().height, 20);
    EXPECT_FLOAT_EQ(again.row(2).format().leftEdge, -5.4f);
    EXPECT_EQ(again.cell(2, 1).range().paragraphFormat().alignment, Alignment::center);
    EXPECT_EQ(again.cell(2, 2).range().style()->name(), u"Heading 1");
    EXPECT_EQ(again.cell(1, 1).range().text(), u"one\rtwo\r\a");
}

TEST_F(RtfTablesTest, TableThatEndsTheDocumentComesBackWithItsParagraph)
{
    add(0, 1, 1);
    rewrite();
    EXPECT_EQ(text(), u"\r\a\r\a\r");
}

TEST_F(RtfTablesTest, TableInAHeaderComesBack)
{
    const auto story = document->section(1)->story(Section::Part::header, HeaderFooterIndex::primary);
    LiveRange place(story, 0, 0);
    Table::add(place, 1, 2).cell(1, 2).range().insertAfter(u"x");
    rewrite();
    EXPECT_EQ(textOf(document->section(1)->story(Section::Part::header, HeaderFooterIndex::primary)),
              u"\r\ax\r\a\r\a\r");
}

TEST_F(RtfTablesTest, RowWithoutItsEndIsClosedBeforeTheNextParagraph)
{
    read("\\trowd\\cellx1000\\pard\\intbl a\\cell\\pard b\\par");
    EXPECT_EQ(text(), u"a\r\a\r\ab\r");
}

TEST_F(RtfTablesTest, RowWithoutItsEndIsClosedAtTheFilesEnd)
{
    read("\\trowd\\cellx1000\\pard\\intbl a\\par b\\par");
    EXPECT_EQ(text(), u"a\rb\r\r\a\r\a\r");
}

TEST_F(RtfTablesTest, TextBehindTheLastCellBecomesACell)
{
    read("\\trowd\\cellx1000\\pard\\intbl a\\cell b\\row\\pard c");
    EXPECT_EQ(text(), u"a\r\ab\r\a\r\ac\r");
    EXPECT_EQ(tableAt(0).row(1).cellCount(), 2);
    EXPECT_NEAR(tableAt(0).cell(1, 2).format().width, 50, 0.01f);
}

TEST_F(RtfTablesTest, SectionEndsAnOpenRow)
{
    read("\\pard\\intbl a\\cell b\\sect c");
    EXPECT_EQ(text(), u"a\r\a\r\ab\fc\r");
    EXPECT_EQ(document->sectionCount(), 2);
}

TEST_F(RtfTablesTest, EndOfARowThatWasNotBegunIsNothing)
{
    read("a\\row b");
    EXPECT_EQ(text(), u"ab\r");
}

TEST_F(RtfTablesTest, TablesInsideCellsAreReadAsTheirText)
{
    read("\\trowd\\cellx1000\\pard\\intbl a\\par\\itap2 "
         "b\\nestcell{\\*\\nesttableprops\\trowd\\cellx9\\nestrow}"
         "{\\nonesttables\\par}c\\cell\\row\\pard");
    EXPECT_EQ(text(), u"a\rb\rc\r\a\r\a\r");
}

} // namespace
} // namespace standin::rtf
