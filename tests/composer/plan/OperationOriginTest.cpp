#include "OperationOrigin.h"

#include <gtest/gtest.h>

namespace {

using namespace compose;

std::u16string origin(const Operation& operation)
{
    return originOf(operation, [](const std::u16string& bookmark) { return u"tag of " + bookmark; });
}

TEST(OperationOriginTest, IsTheCallThatSaidIt)
{
    EXPECT_EQ(origin(WriteText{0, u"abc"}), u"insertText(\"abc\")");
    EXPECT_EQ(origin(PutStyle{{0, 1}, u"Heading 1"}), u"setStyle(\"Heading 1\")");
    EXPECT_EQ(origin(PutAlignment{{0, 1}, 2}), u"setTextAlign()");
    EXPECT_EQ(origin(PutFont{{0, 1}, {.name = u"Arial"}}), u"setFontName(\"Arial\")");
    EXPECT_EQ(origin(PutFont{{0, 1}, {.size = 12.0F}}), u"setFontSize(12)");
    EXPECT_EQ(origin(PutFont{{0, 1}, {.isBold = true}}), u"setFontAttribute()");
    EXPECT_EQ(origin(MakeTable{}), u"startTable()");
    EXPECT_EQ(origin(StyleTables{}), u"startTable()");
    EXPECT_EQ(origin(ExtendTable{}), u"addRow()");
    EXPECT_EQ(origin(AddField{0, 4}), u"insertField(4)");
    EXPECT_EQ(origin(AddEntry{0, u"entry"}), u"endTOCEntry(\"entry\")");
    EXPECT_EQ(origin(KeepContents{}), u"insertTOC()");
    EXPECT_EQ(origin(KeepBreak{}), u"insertPageBreak()");
    EXPECT_EQ(origin(BreakSection{}), u"insertPageBreak()");
}

TEST(OperationOriginTest, SaysTheClientsNames)
{
    EXPECT_EQ(origin(AddLink{{0, 1}, {.bookmark = u"b3"}}), u"insertXref(\"tag of b3\")");
    EXPECT_EQ(origin(AddLink{{0, 1}, {.address = u"http://a"}}), u"insertXref(\"http://a\")");
    EXPECT_EQ(origin(PlaceTag{0, u"b3"}), u"insertTag(\"tag of b3\")");
}

TEST(OperationOriginTest, SaysTheBeginningOfALongText)
{
    const std::u16string beginning(60, u'x');
    EXPECT_EQ(origin(WriteText{0, beginning}), u"insertText(\"" + beginning + u"\")");
    EXPECT_EQ(origin(WriteText{0, beginning + u"y"}), u"insertText(\"" + beginning + u"...\")");
}

} // namespace
