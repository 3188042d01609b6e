#include "RtfTableLook.h"

#include "RtfFixture.h"
#include "Table.h"

#include <gmock/gmock.h>

namespace standin::rtf {
namespace {

using namespace model;
using testing::HasSubstr;
using testing::Not;

constexpr std::int32_t blue = 0xFF0000;
constexpr std::int32_t grey = 0x808080;

constexpr char sheet[] =
    "{\\rtf1{\\colortbl;\\red0\\green0\\blue255;\\red128\\green128\\blue128;}{\\stylesheet{\\s0\\fs24 "
    "Normal;}"
    "{\\*\\ts300\\tsrowd\\trbrdrt\\brdrs\\brdrw20\\brdrcf1\\trbrdrb\\brdrs\\brdrw20\\brdrcf1"
    "\\trbrdrh\\brdrs\\brdrw10\\brdrcf2\\trbrdrv\\brdrs\\brdrw5\\trpaddl108\\trpaddt40\\trpaddb20\\trpaddfl3"
    "\\tblind0\\tsvertalc\\tsbrdrt\\snext300 Ruled;}"
    "{\\*\\ts300\\tsrowd\\tscfirstrow\\tsbrdrb\\brdrs\\brdrw15\\brdrcf1\\tscellcbpat2\\b\\cf1\\snext300 "
    "Ruled;}}"
    "\\pard\\plain\\fs24 a\\par}";

class RtfTableLookTest : public RtfTest
{
protected:
    RtfTableLookTest() { readRtf(sheet, *document); }

    [[nodiscard]] const TableLook& look() const { return document->styles().byName(u"Ruled")->table; }
    Table addStyled(std::int32_t rows, std::int32_t columns)
    {
        LiveRange place = range(0, 0);
        Table table = Table::add(place, rows, columns);
        table.range().setStyle(u"Ruled");
        return table;
    }
    [[nodiscard]] std::string body() const
    {
        const std::string written = rtf();
        return written.substr(written.find("\\sectd"));
    }
    /// What is written of the row with that number.
    [[nodiscard]] std::string writtenRow(int number) const
    {
        const std::string written = rtf();
        std::size_t at = written.find("\\trowd");
        for (; number > 1; --number)
            at = written.find("\\trowd", at + 1);
        return written.substr(at, written.find('\n', at) - at);
    }
};

TEST_F(RtfTableLookTest, IsReadFromAStyleSheet)
{
    const StylePtr style = document->styles().byName(u"Ruled");
    EXPECT_EQ(style->type(), StyleType::table);
    const TableLook expected{.top = {true, 1, blue},
                             .left = {},
                             .bottom = {true, 1, blue},
                             .right = {},
                             .insideHorizontal = {true, 0.5F, grey},
                             .insideVertical = {true, 0.25F},
                             .paddingAbove = 2,
                             .paddingBelow = 1,
                             .alignment = VerticalAlignment::center,
                             .headingBottom = {true, 0.75F, blue},
                             .headingFont = {.bold = true, .color = blue},
                             .headingShading = grey};
    EXPECT_EQ(look(), expected);
    EXPECT_EQ(text(), u"a\r");
}

TEST_F(RtfTableLookTest, ComesBackFromAFile)
{
    const TableLook expected = look();
    addStyled(1, 1);
    rewrite();
    EXPECT_EQ(look(), expected);
    EXPECT_EQ(document->styles().byName(u"Ruled")->type(), StyleType::table);
}

TEST_F(RtfTableLookTest, ANameOfAParagraphStyleStaysOne)
{
    document = Document::make(u"Document2");
    document->styles().add(u"Ruled", StyleType::paragraph);
    readRtf(sheet, *document);
    EXPECT_EQ(document->styles().byName(u"Ruled")->type(), StyleType::paragraph);
}

TEST_F(RtfTableLookTest, IsSaidAgainOfEachRow)
{
    addStyled(4, 2);
    const std::string start = "\\trowd\\ts200\\trgaph108\\trleft0\\tblind0\\tblindtype3\\trpaddl108\\trpaddr1"
                              "08\\trpaddfl3\\trpaddfr3"
                              "\\trpaddt40\\trpaddft3\\trpaddb20\\trpaddfb3";
    const std::string edge = "\\brdrs\\brdrw20\\brdrcf2";
    const std::string heading = "\\brdrs\\brdrw15\\brdrcf2";
    const std::string line = "\\brdrs\\brdrw10\\brdrcf3";
    const auto row = [&](const std::string& above, const std::string& below, const char* shading) {
        const std::string first = "\\clvertalc\\clbrdrt" + above + "\\clbrdrb" + below +
                                  "\\clbrdrr\\brdrs\\brdrw5" + shading + "\\cellx4428";
        const std::string second = "\\clvertalc\\clbrdrt" + above + "\\clbrdrl\\brdrs\\brdrw5\\clbrdrb" +
                                   below + shading + "\\cellx8856";
        return start + first + second;
    };
    EXPECT_EQ(writtenRow(1), row(edge, heading, "\\clcbpat3"));
    EXPECT_EQ(writtenRow(2), row(heading, line, ""));
    EXPECT_EQ(writtenRow(3), row(line, line, ""));
    EXPECT_EQ(writtenRow(4), row(line, edge, ""));
}

TEST_F(RtfTableLookTest, OneRowHasBothEdges)
{
    addStyled(1, 1);
    EXPECT_THAT(writtenRow(1), HasSubstr("\\clbrdrt\\brdrs\\brdrw20\\brdrcf2\\clbrdrb\\brdrs\\brdrw20"));
}

TEST_F(RtfTableLookTest, ALineOfACellsOwnComesFirst)
{
    Table table = addStyled(1, 1);
    RowFormat format = table.row(1).format();
    format.cells[0].top = {true, 3};
    table.row(1).setFormat(format);
    EXPECT_THAT(writtenRow(1), HasSubstr("\\clbrdrt\\brdrs\\brdrw60\\clbrdrb\\brdrs\\brdrw20"));
}

TEST_F(RtfTableLookTest, TheFirstRowsTextIsWrittenInItsFont)
{
    Table table = addStyled(2, 1);
    table.cell(1, 1).range().insertAfter(u"head");
    table.cell(2, 1).range().insertAfter(u"below");
    EXPECT_THAT(body(), HasSubstr("\\fs24\\b\\cf2 head\\cell"));
    EXPECT_THAT(body(), HasSubstr("\\fs24 below\\cell"));
    EXPECT_THAT(body(), HasSubstr("\\fs24 a"));
    EXPECT_EQ(table.cell(1, 1).range().font().bold, false) << "it is the style that says so";
    table.cell(1, 1).range().setFont({.bold = false, .color = 0});
    EXPECT_THAT(body(), Not(HasSubstr("\\b\\cf2 head")));
}

TEST_F(RtfTableLookTest, TablesComeBackInTheirStyleAndPlace)
{
    addStyled(2, 2);
    rewrite();
    const Table again(document->mainStory(), 0);
    ASSERT_TRUE(again.row(2).format().style);
    EXPECT_EQ(again.row(2).format().style->name(), u"Ruled");
    EXPECT_FLOAT_EQ(again.row(1).format().leftEdge, -5.4F);
    EXPECT_NEAR(again.cell(1, 1).format().width, 221.4F, 0.05F);
    const std::string once = rtf();
    rewrite();
    EXPECT_EQ(rtf(), once);
}

TEST_F(RtfTableLookTest, AStyleThatTheSheetLacksIsNone)
{
    document = Document::make(u"Document2");
    readRtf("{\\rtf1\\trowd\\ts7\\cellx1000\\pard\\intbl a\\cell\\row}", *document);
    EXPECT_EQ(Table(document->mainStory(), 0).row(1).format().style, nullptr);
}

TEST_F(RtfTableLookTest, TablesWithoutAStyleAreWrittenAsBefore)
{
    LiveRange place = range(0, 0);
    Table::add(place, 1, 1);
    EXPECT_EQ(writtenRow(1), "\\trowd\\trgaph108\\trleft-108\\cellx8748");
}

} // namespace
} // namespace standin::rtf
