// Arguments that no client should pass: a documented outcome each, and nothing left behind.
#include "FrontEndTest.h"

#include <filesystem>

namespace {

class BadInputTest : public FrontEndTest
{
protected:
    /// Every method with a text, each argument given as `text`.
    std::vector<std::pair<const char*, std::function<HRESULT()>>> callsWith(BSTR text)
    {
        IDocument& m = *client.GetInterfacePtr();
        return {
            {"insertText", [&m, text] { return m.insertText(text); }},
            {"setStyle", [&m, text] { return m.setStyle(text); }},
            {"setFontName", [&m, text] { return m.setFontName(text); }},
            {"setOption", [&m, text] { return m.setOption(text, text); }},
            {"insertFile", [&m, text] { return m.insertFile(text, 1); }},
            {"overrideRegistry", [&m, text] { return m.overrideRegistry(text, text, text, 1); }},
            {"insertImage", [&m, text] { return m.insertImage(text, text); }},
            {"insertTag", [&m, text] { return m.insertTag(text); }},
            {"insertXref", [&m, text] { return m.insertXref(text, text); }},
            {"startFile", [&m, text] { return m.startFile(text); }},
            {"pushDirectory", [&m, text] { return m.pushDirectory(text); }},
        };
    }
};

TEST_F(BadInputTest, TakesNullTextForEmptyTextWithoutDocument)
{
    for (const auto& [name, call] : callsWith(nullptr))
        EXPECT_EQ(outcome(call), "0x00000000") << name;
    EXPECT_THAT(client->create(nullptr), isHresult(E_FAIL));
}

TEST_F(BadInputTest, TakesNullTextForEmptyText)
{
    openDocument();
    trace(10);
    for (const auto& [name, call] : callsWith(nullptr))
        EXPECT_EQ(outcome(call), "0x00000000") << name;
    EXPECT_EQ(log(), logLines({
                         "mirovel->insertText(\"\");",
                         "mirovel->setStyle(\"\");",
                         "mirovel->setFontName(\"\");",
                         "mirovel->insertFile(\"\",1);",
                         "mirovel->overrideRegistry(\"\",\"\",\"\",1);",
                         "mirovel->insertImage(,\"\");",
                         "mirovel->insertTag(\"\");",
                         "mirovel->insertXref(\"\",\"\");",
                     }));
    EXPECT_EQ(documentText(), "");
}

TEST_F(BadInputTest, TakesEmptyText)
{
    openDocument();
    const _bstr_t empty = L""_b;
    for (const auto& [name, call] : callsWith(empty))
        EXPECT_EQ(outcome(call), "0x00000000") << name;
    EXPECT_EQ(documentText(), "");
}

TEST_F(BadInputTest, EndsTextAtItsFirstNul)
{
    openDocument();
    trace(10);
    EXPECT_THAT(client->insertText(L"ab\0cd"_b), isHresult(S_OK));
    EXPECT_THAT(client->insertText(L"x\0<a href=\"t\">L</a>"_b), isHresult(S_OK));
    EXPECT_THAT(client->insertXref(L"L\0x"_b, L"t\0y"_b), isHresult(S_OK));
    EXPECT_EQ(documentText(), "abxL");
    EXPECT_EQ(log(), logLines({"mirovel->insertText(\"ab\");", "mirovel->insertText(\"x\");",
                               "mirovel->insertXref(\"L\",\"t\");"}));
}

TEST_F(BadInputTest, PassesUnpairedSurrogatesOn)
{
    openDocument();
    trace(10);
    const wchar_t text[] = {L'a', 0xD800, L'b', 0xDC00, 0};
    EXPECT_THAT(client->insertText(_bstr_t(text)), isHresult(S_OK));
    EXPECT_EQ(word.transcript().back(), "body.InsertAfter(\"a\\ud800b\\udc00\")");
    EXPECT_EQ(log(), logLines({"mirovel->insertText(\"a?b?\");"}));
}

TEST_F(BadInputTest, TakesAMegabyteOfText)
{
    openDocument();
    trace(10);
    const std::string text(1 << 20, 'x');
    EXPECT_THAT(client->insertText(bstr(text)), isHresult(S_OK));
    EXPECT_EQ(documentText(), text);
    EXPECT_EQ(log(), "mirovel->insertText(\"" + text + "\");\r\n");
}

TEST_F(BadInputTest, TakesAMegabyteForEveryText)
{
    const _bstr_t text = bstr(std::string(1 << 20, 'x'));
    for (const auto& [name, call] : callsWith(text))
        EXPECT_EQ(outcome(call), "0x00000000") << name;
}

TEST_F(BadInputTest, RefusesNullOutParameters)
{
    EXPECT_EQ(outcome([&] { return client->getPropPages(nullptr); }), "_com_error 0x80004003");
    EXPECT_EQ(outcome([&] { return client->getDocType(nullptr); }), "_com_error 0x80004003");
}

TEST_F(BadInputTest, OverwritesWhatStandsInOutParameters)
{
    BSTR answer = reinterpret_cast<BSTR>(static_cast<std::uintptr_t>(0xDEADBEEF));
    ASSERT_THAT(client->getDocType(&answer), isHresult(S_OK));
    EXPECT_EQ(_bstr_t(answer, false), _bstr_t(L"Word"));
    answer = reinterpret_cast<BSTR>(static_cast<std::uintptr_t>(0xDEADBEEF));
    ASSERT_THAT(client->getPropPages(&answer), isHresult(S_OK));
    EXPECT_EQ(SysStringLen(answer), 38U);
    SysFreeString(answer);
}

TEST_F(BadInputTest, GivesADocumentWithoutNameOnlyItsExtension)
{
    start();
    word.failCall(7, E_ACCESSDENIED); // so that nothing is written
    EXPECT_THAT(outcome([&] { return client->create(nullptr); }),
                testing::StartsWith("QdxException: Saving document\nCOMERROR 0x80070005\n"));
    EXPECT_THAT(word.transcript().back(), testing::HasSubstr(".SaveAs(\".doc\", "));
}

/// Every method with a number, each with one at the ends of its range.
TEST_F(BadInputTest, TakesEveryNumber)
{
    openDocument();
    IDocument& m = *client.GetInterfacePtr();
    for (const short number : std::initializer_list<short>{-32768, -1, 0, 32767}) {
        EXPECT_EQ(outcome([&] { return m.insertField(number); }), "0x00000000") << number;
        EXPECT_EQ(outcome([&] { return m.setTextAlign(number); }), "0x00000000") << number;
        EXPECT_EQ(outcome([&] { return m.setFontAttribute(number, number); }), "0x00000000") << number;
        EXPECT_EQ(outcome([&] { return m.setOrientation(number); }), "0x00000000") << number;
        EXPECT_EQ(outcome([&] { return m.insertFile(L"c:\\no such.txt"_b, number); }), "0x00000000")
            << number;
        EXPECT_EQ(outcome([&] { return m.insertDiagram(number, number, number); }), "0x00000000") << number;
        EXPECT_EQ(outcome([&] { return m.insertMark(number, number); }), "0x00000000") << number;
        EXPECT_EQ(outcome([&] { return m.setTableRowHeight(number); }), "0x00000000") << number;
    }
    EXPECT_THAT(client->close(), isHresult(S_OK));
}

TEST_F(BadInputTest, TakesFileNamesThatLeadNowhere)
{
    openDocument();
    trace(1);
    std::string expected;
    struct Name
    {
        const wchar_t* given;
        const char* traced;
    };
    for (const Name& name : std::vector<Name>{{L" ", " "},
                                              {L"\u4e2d.bmp", "?.bmp"},
                                              {L"*.*", "*.*"},
                                              {L"c:\\", "c:\\"},
                                              {L"..", ".."},
                                              {L"\\\\?\\nowhere\\a.doc", "\\\\?\\nowhere\\a.doc"}}) {
        EXPECT_EQ(outcome([&] { return client->insertFile(_bstr_t(name.given), 1); }), "0x00000000");
        EXPECT_EQ(outcome([&] { return client->insertImage(_bstr_t(name.given), nullptr); }), "0x00000000");
        for (int i = 0; i < 2; ++i)
            expected += std::string("ERR File not found: ") + name.traced + "\r\n";
    }
    EXPECT_LINES(takeTranscript(), Lines());
    EXPECT_EQ(log(), expected);
}

// Word gets the name as it is.
TEST_F(BadInputTest, RelativeNamesCountFromTheCurrentDirectory)
{
    openDocument();
    folder.write("relative.txt", "text");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.file(""));
    EXPECT_EQ(outcome([&] { return client->insertFile(L"relative.txt"_b, 1); }), "0x00000000");
    std::filesystem::current_path(before);
    EXPECT_THAT(takeTranscript(), testing::Contains(testing::HasSubstr(".InsertFile(\"relative.txt\", ")));
    EXPECT_EQ(documentText(), "text\r");
}

// Directories are no stack: a name counts from the process's current directory.
TEST_F(BadInputTest, PushedDirectoriesDoNotCount)
{
    openDocument();
    trace(1);
    folder.write("pushed only.bmp", "x");
    EXPECT_THAT(client->pushDirectory(bstr(folder.file(""))), isHresult(S_OK));
    EXPECT_THAT(client->insertFile(L"pushed only.bmp"_b, 1), isHresult(S_OK));
    EXPECT_THAT(client->popDirectory(), isHresult(S_OK));
    EXPECT_THAT(client->popDirectory(), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(), Lines());
    EXPECT_EQ(log(), "ERR File not found: pushed only.bmp\r\n");
}

TEST_F(BadInputTest, AsksNothingOfWordForCallsWithoutEffect)
{
    openDocument();
    EXPECT_THAT(client->insertDiagram(1, 2, 3), isHresult(S_OK));
    EXPECT_THAT(client->setOption(L"a"_b, L"b"_b), isHresult(S_OK));
    EXPECT_THAT(client->insertMark(7, VARIANT_TRUE), isHresult(S_OK));
    EXPECT_THAT(client->startFile(L"a"_b), isHresult(S_OK));
    EXPECT_THAT(client->insertLocate(), isHresult(S_OK));
    EXPECT_THAT(client->pushDirectory(L"c:\\"_b), isHresult(S_OK));
    EXPECT_THAT(client->popDirectory(), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(), Lines());
}

} // namespace
