// Which way a file takes into the document, and contents that Word inserts.
#include "FileWriterTest.h"

#include "SamplePictures.h"

#include <algorithm>
#include <array>

namespace {

class MirovelSectionFileTest : public FileWriterTest
{
};

Calls fileInserted(std::int32_t at, const QdxString& file)
{
    const std::string place = "document.Range(" + std::to_string(at) + ", " + std::to_string(at) + ")";
    return {place + " -> " + place, place + ".InsertFile(" + quoted(file) + ", \"\", false, false, false)"};
}

// Fonts that a style run waits for come with it; here none does.
TEST_F(MirovelSectionFileTest, FontsAndThenAlignmentsAreAppliedInFrontOfIt)
{
    const QdxString file = write("a.txt", "in");
    writer().setTextAlign(2);
    writer().insertText(L"ab");
    writer().applyStyle();
    writer().setFont(heading9Font.data());
    writer().insertText(L"cd");
    takeCalls();
    writer().insertFile(file, 0);
    Calls calls = takeCalls();
    const Calls expected = join(rangeLaid(2, 4), fontWritten("body", heading9Font), rangeLaid(0, 4),
                                Calls{"body.ParagraphFormat -> body.ParagraphFormat",
                                      "body.ParagraphFormat.Alignment = 1", R"(body.InsertAfter("X"))"});
    calls.resize(std::min(calls.size(), expected.size()));
    EXPECT_EQ(calls, expected);
}

TEST_F(MirovelSectionFileTest, WithoutANameNothingHappens)
{
    openTrace(10);
    for (const std::int16_t kind : std::initializer_list<std::int16_t>{0, 2, 4})
        writer().insertFile("", kind);
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_EQ(log(), "");
}

TEST_F(MirovelSectionFileTest, AnAddressIsALinkToItselfWhateverTheKind)
{
    for (const std::int16_t kind : std::initializer_list<std::int16_t>{0, 1, 2, 4}) {
        startOver();
        writer().insertFile("http://example.org/a.xls", kind);
        EXPECT_EQ(takeCalls()[1], R"(body.InsertAfter("http://example.org/a.xls"))");
        EXPECT_LINES(linksAtEnd(), Calls{R"(body 0-24: "http://example.org/a.xls", "")"});
    }
}

TEST_F(MirovelSectionFileTest, AMissingFileIsTracedAndNothingIsWritten)
{
    openTrace(1);
    std::string lines;
    for (const char* name :
         {"c:\\docs\\no such.doc", "no such.txt", "no such.bmp", "no such.xls", "a b\\c d.doc"}) {
        for (const std::int16_t kind : std::initializer_list<std::int16_t>{0, 1, 2, 3, -1}) {
            writer().insertFile(name, kind);
            lines += std::string("ERR File not found: ") + name + "\r\n";
        }
    }
    EXPECT_LINES(takeCalls(), Calls{});
    EXPECT_EQ(log(), lines);
    EXPECT_EQ(text(), u"");
}

TEST_F(MirovelSectionFileTest, AMissingFileAsAHyperlinkIsOneWithDoubledBackslashes)
{
    openTrace(1);
    writer().insertFile("c:\\docs\\a.doc", 4);
    EXPECT_LINES(takeCalls(), (Calls{"body.End -> 0", R"(body.InsertAfter("a.doc"))", "body.End -> 5"}));
    EXPECT_EQ(log(), "ERR File not found: c:\\docs\\a.doc\r\n") << "it is traced all the same";
    EXPECT_EQ(insertionPosition(), 5);
    EXPECT_LINES(linksAtEnd(), Calls{R"(body 0-5: "", )" + quoted("c:\\\\docs\\\\a.doc")})
        << "no file of that name exists, so Word takes it for a place in the document";
}

TEST_F(MirovelSectionFileTest, AsALinkItIsAHyperlinkToItsPath)
{
    const QdxString file = write("a b.txt", "text");
    writer().insertFile(file, 2);
    EXPECT_EQ(takeCalls()[1], R"(body.InsertAfter("a b.txt"))");
    EXPECT_LINES(linksAtEnd(), Calls{"body 0-7: " + quoted(file) + ", \"\""});
    const QdxString picture = write("a.bmp", sample::bmp());
    startOver();
    writer().insertFile(picture, 2);
    EXPECT_LINES(linksAtEnd(), Calls{"body 0-5: " + quoted(picture) + ", \"\""})
        << "pictures are files like others";
}

TEST_F(MirovelSectionFileTest, AsAHyperlinkItHasDoubledBackslashes)
{
    const QdxString file = write("a.txt", "text");
    writer().insertFile(file, 4);
    QdxString doubled = file;
    doubled.replaceStr("\\", "\\\\");
    EXPECT_LINES(linksAtEnd(), Calls{"body 0-5: " + quoted(doubled) + ", \"\""})
        << "Windows finds it under that name too";
}

TEST_F(MirovelSectionFileTest, ALinkInACellIsWrittenThere)
{
    const QdxString file = write("a.txt", "text");
    openTable();
    writer().insertFile(file, 2);
    EXPECT_EQ(cellTexts(), u"ina.txt");
    EXPECT_LINES(linksAtEnd(), Calls{firstCell + " 2-7: " + quoted(file) + ", \"\""});
}

TEST_F(MirovelSectionFileTest, APictureIsInsertedAsOne)
{
    int number = 0;
    for (const auto& [name, content] :
         {std::pair("a.bmp", sample::bmp()), std::pair("a.jpg", sample::jpeg()),
          std::pair("a.jpeg", sample::jpeg()), std::pair("a.gif", sample::gif()),
          std::pair("a.emf", sample::emf())}) {
        const QdxString file = write(name, content);
        writer().insertFile(file, 1);
        EXPECT_EQ(takeCalls()[3], "body.InlineShapes.AddPicture(" + quoted(file) +
                                      ", false, true, missing) -> " + numbered("inlineShape", ++number));
    }
    EXPECT_EQ(text(), u"\x01\x01\x01\x01\x01");
    EXPECT_LINES(linksAtEnd(), Calls{});
}

TEST_F(MirovelSectionFileTest, APictureOfABareNameIsTakenFromTheInstallation)
{
    const QdxString installed = write("installed\\pix\\no such logo.gif", sample::gif());
    writer().insertFile("no such logo.gif", 0);
    EXPECT_EQ(takeCalls()[3],
              "body.InlineShapes.AddPicture(" + quoted(installed) + ", false, true, missing) -> inlineShape");
    startOver();
    writer().insertFile("no such logo.gif", 2);
    EXPECT_LINES(linksAtEnd(), Calls{"body 0-16: " + quoted(installed) + ", \"\""});
    startOver();
    writer().insertFile("no such logo.gif", 4);
    QdxString doubled = installed;
    doubled.replaceStr("\\", "\\\\");
    EXPECT_LINES(linksAtEnd(), Calls{"body 0-16: " + quoted(doubled) + ", \"\""});
}

TEST_F(MirovelSectionFileTest, AnyOtherFileIsInsertedByWord)
{
    const QdxString file = write("a b.txt", "one\r\ntwo");
    writer().insertText(L"in front ");
    takeCalls();
    writer().insertFile(file, 0);
    EXPECT_LINES(takeCalls(), join(styleRunApplied(0, 9, "-1", normalFont), Calls{R"(body.InsertAfter("X"))"},
                                   fileInserted(9, file),
                                   Calls{"body.End -> 18", "body.Start = 17", "body.Delete(1, 1) -> 1"}));
    EXPECT_EQ(insertionPosition(), 17);
    writer().applyStyle();
    EXPECT_LINES(takeCalls(), Calls{}) << "no run is open";
    EXPECT_EQ(text(), u"in front one\rtwo\r");
    writer().insertText(L"behind");
    EXPECT_EQ(text(), u"in front one\rtwo\rbehind");
}

TEST_F(MirovelSectionFileTest, WhatWaitsForTheTextInFrontIsAppliedFirst)
{
    const QdxString file = write("a.txt", "one");
    writer().setTextAlign(2);
    writer().setStyle("Heading 1", false);
    writer().insertText(L"Title");
    writer().setFont(FontLook{"Courier New", 9}.data());
    writer().insertText(L"!");
    takeCalls();
    writer().insertFile(file, 1);
    EXPECT_LINES(takeCalls(), join(rangeLaid(0, 6), Calls{"body.Style = -2"}, rangeLaid(0, 5),
                                   fontWritten("body", heading1Font), rangeLaid(5, 6),
                                   fontWritten("body", FontLook{"Courier New", 9}), rangeLaid(0, 6),
                                   Calls{"body.ParagraphFormat -> body.ParagraphFormat",
                                         "body.ParagraphFormat.Alignment = 1", R"(body.InsertAfter("X"))"},
                                   fileInserted(6, file),
                                   Calls{"body.End -> 11", "body.Start = 10", "body.Delete(1, 1) -> 1"}));
    writer().setTextAlign(0);
    writer().setStyle("Heading 1", false);
    EXPECT_LINES(takeCalls(), Calls{}) << "both are in force";
    EXPECT_LINES(finish(), Calls{"document.UndoClear()"}) << "nothing waits any more";
}

TEST_F(MirovelSectionFileTest, AnExtensionInCapitalsIsNoPicture)
{
    const QdxString file = write("Logo.GIF", "no picture to Word");
    writer().insertFile(file, 0);
    EXPECT_EQ(takeCalls().at(14), fileInserted(0, file)[1]);
}

TEST_F(MirovelSectionFileTest, InACellNothingIsFlushedAndNoPlaceholderUsed)
{
    const QdxString file = write("a.txt", "one");
    openTable();
    const std::int32_t position = insertionPosition();
    writer().insertFile(file, 0);
    EXPECT_LINES(takeCalls(), join(Calls{"table.Rows(1).Cells(1).Range.End -> 3"}, fileInserted(2, file)));
    EXPECT_EQ(insertionPosition(), position);
    EXPECT_EQ(cellTexts(), u"inone\r");
    writer().insertText(L"!");
    EXPECT_EQ(cellTexts(), u"inone\r!");
}

TEST_F(MirovelSectionFileTest, AnEmptyFileIsInsertedToo)
{
    writer().insertText(L"a");
    writer().insertFile(write("empty.txt", ""), 0);
    writer().insertText(L"b");
    EXPECT_EQ(insertionPosition(), static_cast<std::int32_t>(text().size()));
    EXPECT_EQ(text().front(), u'a');
    EXPECT_EQ(text().back(), u'b');
}

TEST_F(MirovelSectionFileTest, WhatWordCannotReadLeavesItsPlaceholder)
{
    const QdxString file = write("damaged.rtf", "{\\rtf1 ");
    writer().insertText(L"a");
    EXPECT_THAT(comErrorOf([&] { writer().insertFile(file, 0); }),
                isHresult(static_cast<HRESULT>(0x800A1499)));
    EXPECT_EQ(text(), u"aX");
    EXPECT_EQ(insertionPosition(), 2);
    writer().insertText(L"b");
    EXPECT_EQ(text(), u"aXb");
}

TEST_F(MirovelSectionFileTest, AFailureAtEachCallLeavesWhatWasDone)
{
    const QdxString file = write("a.txt", "one");
    const std::array<std::int32_t, 6> positions = {0, 1, 1, 1, 4, 4};
    expectFailuresToLeave(file, positions);
}

} // namespace
