// The trace log of a session, byte for byte.
#include "FrontEndTest.h"

namespace {

class EchoTest : public FrontEndTest
{
};

TEST_F(EchoTest, RendersTextAsItIs)
{
    openDocument();
    trace(10);
    client->insertText(L"a \"quoted\" \\ (text), \t;"_b);
    EXPECT_EQ(log(), logLines({"mirovel->insertText(\"a \"quoted\" \\ (text), \t;\");"}));
}

TEST_F(EchoTest, KeepsLineEndsInsideText)
{
    openDocument();
    trace(10);
    client->insertText(L"one\ntwo\r\nthree"_b);
    EXPECT_EQ(log(), "mirovel->insertText(\"one\r\ntwo\r\nthree\");\r\n");
}

TEST_F(EchoTest, WritesTheCodePageAndQuestionMarksForTheRest)
{
    openDocument();
    trace(10);
    client->insertText(L"\u00e4\u20ac \u4e2d\u0416 \U0001d11e"_b);
    EXPECT_EQ(log(), "mirovel->insertText(\"\xe4\x80 ?? ??\");\r\n");
}

TEST_F(EchoTest, WritesNegativeNumbers)
{
    trace(10);
    client->setTextAlign(-1);
    client->insertFile(L""_b, -32768);
    client->overrideRegistry(L""_b, L""_b, L""_b, 32767);
    EXPECT_EQ(log(), logLines({"mirovel->setTextAlign(-1);", "mirovel->insertFile(\"\",-32768);",
                               "mirovel->overrideRegistry(\"\",\"\",\"\",32767);"}));
}

TEST_F(EchoTest, QuotesOnlyTheSecondTextOfInsertImage)
{
    trace(10);
    client->insertImage(L"a \"b\".bmp"_b, L"http://x \"y\""_b);
    client->insertImage(L""_b, L""_b);
    EXPECT_EQ(log(), logLines({"mirovel->insertImage(a \"b\".bmp,\"http://x \"y\"\");",
                               "mirovel->insertImage(,\"\");"}));
}

TEST_F(EchoTest, NeverTellsTheRowHeight)
{
    trace(10);
    client->setTableRowHeight(20);
    client->setTableRowHeight(-1);
    EXPECT_EQ(log(), logLines({"mirovel->setTableRowHeight();", "mirovel->setTableRowHeight();"}));
}

TEST_F(EchoTest, NamesTheFontAttribute)
{
    openDocument();
    trace(10);
    for (const short attribute : std::initializer_list<short>{1, 2, 4, 8, 3, 0, 12, -1})
        client->setFontAttribute(attribute, VARIANT_TRUE);
    client->setFontAttribute(1, VARIANT_FALSE);
    client->setFontAttribute(3, 1);
    client->setFontAttribute(2, 7);
    EXPECT_EQ(log(), logLines({
                         "mirovel->setFontAttribute(DocBold,true);",
                         "mirovel->setFontAttribute(DocItalic,true);",
                         "mirovel->setFontAttribute(DocUnderline,true);",
                         "mirovel->setFontAttribute(DocStrike,true);",
                         "mirovel->setFontAttribute(true);",
                         "mirovel->setFontAttribute(true);",
                         "mirovel->setFontAttribute(true);",
                         "mirovel->setFontAttribute(true);",
                         "mirovel->setFontAttribute(DocBold,false);",
                         "mirovel->setFontAttribute(true);",
                         "mirovel->setFontAttribute(DocItalic,true);",
                     }));
}

TEST_F(EchoTest, EchoesTheLowerCasedNameWithoutTheAddedExtension)
{
    start();
    trace(10);
    std::string name = folder.file("Report");
    for (char& c : name)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    EXPECT_THAT(client->create(bstr(name)), isHresult(S_OK));
    EXPECT_EQ(log(), logLines({"mirovel->create(\"" + folder.file("report") + "\");", "// Page 1"}));
}

TEST_F(EchoTest, CountsOnlyThePagesThatItEchoes)
{
    openDocument();
    client->insertPageBreak();
    trace(9);
    client->insertPageBreak();
    trace(10);
    client->insertPageBreak();
    client->insertPageBreak();
    EXPECT_EQ(log(), logLines({"mirovel->insertPageBreak();", "", "// Page 2", "mirovel->insertPageBreak();",
                               "", "// Page 3"}));
}

TEST_F(EchoTest, CountsPagesAnewInEveryDocument)
{
    openDocument();
    trace(10);
    client->insertPageBreak();
    client->close();
    client->create(bstr(folder.file("b.doc")));
    client->insertPageBreak();
    EXPECT_EQ(log(), logLines({"mirovel->insertPageBreak();", "", "// Page 2", "mirovel->close();",
                               "mirovel->create(\"" + folder.file("b.doc") + "\");", "// Page 1",
                               "mirovel->insertPageBreak();", "", "// Page 2"}));
}

TEST_F(EchoTest, StaysSilentBelowLevelTen)
{
    trace(9);
    start();
    client->create(bstr(documentName()));
    client->insertText(L"text"_b);
    client->setFontAttribute(1, VARIANT_TRUE);
    client->insertPageBreak();
    client->setTextAlign(2);
    client->close();
    client->stop();
    EXPECT_EQ(log(), "");
}

TEST_F(EchoTest, SpeaksAboveLevelTenToo)
{
    trace(11);
    client->endTable();
    EXPECT_EQ(log(), logLines({"mirovel->endTable();"}));
}

TEST_F(EchoTest, ReadsAsAScriptOfTheSession)
{
    trace(10);
    start();
    client->create(bstr(documentName()));
    client->setStyle(L"Heading 1"_b);
    client->insertText(L"Title"_b);
    client->insertEndl();
    client->startHeader();
    client->insertText(L"head"_b);
    client->endHeader();
    client->startFooter();
    client->endFooter();
    client->setFontName(L"Courier New"_b);
    client->setFontSize(12);
    client->setOrientation(1);
    client->setOption(L"a"_b, L"b"_b);
    client->insertMark(1, VARIANT_TRUE);
    client->startFile(L"a"_b);
    client->insertLocate();
    client->pushDirectory(L"a"_b);
    client->popDirectory();
    client->insertDiagram(1, 2, 3);
    client->close();
    client->stop();
    client->showLast();
    client->stop();
    EXPECT_EQ(log(), logLines({
                         "mirovel->start();",
                         "mirovel->create(\"" + documentName() + "\");",
                         "// Page 1",
                         "mirovel->setStyle(\"Heading 1\");",
                         "mirovel->insertText(\"Title\");",
                         "mirovel->insertEndl();",
                         "mirovel->startHeader();",
                         "mirovel->insertText(\"head\");",
                         "mirovel->endHeader();",
                         "mirovel->startFooter();",
                         "mirovel->endFooter();",
                         "mirovel->setFontName(\"Courier New\");",
                         "mirovel->setFontSize(12);",
                         "mirovel->close();",
                         "mirovel->stop();",
                         "mirovel->start();", // showLast's own
                         "mirovel->stop();",
                     }));
}

} // namespace
