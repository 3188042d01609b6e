// Spreadsheets and presentations are inserted as objects.
#include "FileWriterTest.h"

#include "InlineShape.h"

namespace {

namespace model = standin::model;

class MirovelSectionObjectTest : public FileWriterTest
{
protected:
    const QdxString sheet_ = write("report.xls", "sheet");
    const QdxString slides_ = write("show.ppt", "slides");
};

std::string objectAdded(int shapes, const std::string& classType, const QdxString& file, const char* link,
                        const char* icon, const char* label, const std::string& range = "body")
{
    return range + ".InlineShapes.AddOLEObject(" + classType + ", " + quoted(file) + ", " + link +
           ", true, \"" + icon + "\", 1s, \"" + label + "\", missing) -> " + numbered("inlineShape", shapes);
}

TEST_F(MirovelSectionObjectTest, ASpreadsheetIsEmbeddedAsAnIcon)
{
    writer().insertText(L"a ");
    takeCalls();
    writer().insertFile(sheet_, 0);
    // An embedded object stands in a field: the code ` EMBED Excel.Sheet `, the object and three characters.
    EXPECT_LINES(
        takeCalls(),
        (Calls{R"(body.InsertAfter("X"))", "body.Start = 2", "body.InlineShapes -> body.InlineShapes",
               objectAdded(1, "\"Excel.Sheet\"", sheet_, "false", "excel.exe", "report.xls"),
               "body.End -> 26", "body.Start = 25", "body.Delete(1, 1) -> 1"}));
    EXPECT_EQ(insertionPosition(), 25);
    EXPECT_EQ(text(), u"a \x13 EMBED Excel.Sheet \x14\x01\x15");
    writer().insertText(L" b");
    EXPECT_EQ(text(), u"a \x13 EMBED Excel.Sheet \x14\x01\x15 b");
}

TEST_F(MirovelSectionObjectTest, APresentationIsEmbeddedAsAnIcon)
{
    writer().insertFile(slides_, 1);
    EXPECT_EQ(takeCalls()[3],
              objectAdded(1, "\"PowerPoint.Show\"", slides_, "false", "PowerPnt.exe", "show.ppt"));
}

TEST_F(MirovelSectionObjectTest, AsALinkItHasNoClass)
{
    writer().insertFile(sheet_, 2);
    EXPECT_EQ(takeCalls()[3], objectAdded(1, "empty", sheet_, "true", "excel.exe", "report.xls"));
    writer().insertFile(slides_, 2);
    EXPECT_EQ(takeCalls()[3], objectAdded(2, "empty", slides_, "true", "PowerPnt.exe", "show.ppt"));
    EXPECT_TRUE(text().find(u" LINK ") != std::u16string::npos);
    EXPECT_LINES(linksAtEnd(), Calls{});
}

TEST_F(MirovelSectionObjectTest, AsAHyperlinkOrAnythingElseItIsEmbeddedAllTheSame)
{
    int number = 0;
    for (const std::int16_t kind : std::initializer_list<std::int16_t>{4, 3, -1, 32767}) {
        writer().insertFile(sheet_, kind);
        EXPECT_EQ(takeCalls()[3],
                  objectAdded(++number, "\"Excel.Sheet\"", sheet_, "false", "excel.exe", "report.xls"));
    }
    EXPECT_LINES(linksAtEnd(), Calls{});
}

TEST_F(MirovelSectionObjectTest, InACellUsesNoPlaceholder)
{
    openTable();
    const std::int32_t position = insertionPosition();
    writer().insertFile(sheet_, 0);
    EXPECT_LINES(
        takeCalls(),
        (Calls{"table.Rows(1).Cells(1).Range.End -> 3", "table.Rows(1).Cells(1).Range.Start = 2",
               "table.Rows(1).Cells(1).Range.InlineShapes -> table.Rows(1).Cells(1).Range.InlineShapes",
               objectAdded(1, "\"Excel.Sheet\"", sheet_, "false", "excel.exe", "report.xls",
                           "table.Rows(1).Cells(1).Range")}));
    EXPECT_EQ(insertionPosition(), position);
    EXPECT_EQ(cellTexts(), u"in\x13 EMBED Excel.Sheet \x14\x01\x15");
}

TEST_F(MirovelSectionObjectTest, ExtensionsAreComparedWithTheirCase)
{
    openTrace(1);
    writer().insertFile("no such.XLS", 0);
    EXPECT_EQ(log(), "ERR File not found: no such.XLS\r\n");
    writer().insertFile("no such.PPT", 4);
    EXPECT_LINES(linksAtEnd(), Calls{R"(body 0-11: "", "no such.PPT")"}) << "any file, so a link";
}

TEST_F(MirovelSectionObjectTest, AMissingOneAsAHyperlinkIsAskedOfWord)
{
    openTrace(1);
    EXPECT_THAT(comErrorOf([&] { writer().insertFile("c:\\no such.xls", 4); }), isFailure());
    EXPECT_EQ(log(), "ERR File not found: c:\\no such.xls\r\n");
    EXPECT_EQ(text(), u"X") << "the placeholder stays";
    EXPECT_EQ(styleRunAtEnd().second, 1);
}

TEST_F(MirovelSectionObjectTest, AFailureAtEachCallLeavesWhatWasDone)
{
    const std::array<std::int32_t, 7> positions = {0, 1, 1, 1, 1, 23, 23};
    expectFailuresToLeave(sheet_, positions);
}

} // namespace
