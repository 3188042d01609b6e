// What is silent by default, what "Word"/"Strict" makes of it, and the line of the diagnostics in both.
#include "FrontEndTest.h"
#include "UnseenProcess.h"

#include <gmock/gmock.h>

#include <windows.h>

namespace {

using testing::HasSubstr;

constexpr HRESULT badPath = static_cast<HRESULT>(0x800A1499);

/// What happens before the call, and the call.
struct Case
{
    const char* name;
    const char* method;
    std::string what;   ///< "no document is open"
    std::string remedy; ///< "call create first"
    bool needsDocument;
    std::function<void(IDocument&)> before;
    std::function<HRESULT(IDocument&)> call;
    std::string byDefault = succeeds;
};

const auto nothing = [](IDocument&) {};

std::vector<Case> cases()
{
    const std::string noDocument = "no document is open";
    const std::string createFirst = "call create first";
    const std::string table = "the table is not ready for this call";
    const std::string inOrder =
        "call startTable, addRow, addCell for each cell, addRow again, at last endTable";
    const std::string inTable = "this cannot stand in a table";
    const std::string endFirst = "call endTable first";
    const std::string checkFile = "check the name; give the full path";
    const std::string checkStyle = "check the name; the style must be in the template";
    const auto startTable = [](IDocument& m) { m.startTable(); };
    return {
        {"create", "create", "Word has not been started", "call start first", false, nothing,
         [](IDocument& m) { return m.create(L"c:\\a.doc"_b); }, "0x80004005"},
        {"stop", "stop", "Word has not been started", "call start first", false, nothing,
         [](IDocument& m) { return m.stop(); }},
        {"close", "close", noDocument, createFirst, false, nothing, [](IDocument& m) { return m.close(); }},
        {"guarded", "insertText", noDocument, createFirst, false, nothing,
         [](IDocument& m) { return m.insertText(L"a"_b); }},
        {"unguarded", "insertTag", noDocument, createFirst, false, nothing,
         [](IDocument& m) { return m.insertTag(L"a"_b); }},
        {"behindClose", "insertEndl", noDocument, createFirst, true, [](IDocument& m) { m.close(); },
         [](IDocument& m) { return m.insertEndl(); }},
        {"style", "setStyle", "the document does not have the style \"No Such\"", checkStyle, true, nothing,
         [](IDocument& m) { return m.setStyle(L"No Such"_b); }},
        {"attribute", "setFontAttribute", "no font attribute has the number \"3\"",
         "give 1 (bold), 2 (italic), 4 (underlined) or 8 (struck)", true, nothing,
         [](IDocument& m) { return m.setFontAttribute(3, VARIANT_TRUE); }},
        {"field", "insertField", "no field has the number \"9\"",
         "give 1 (date), 2 (time), 3 (file name) or 4 (page)", true, nothing,
         [](IDocument& m) { return m.insertField(9); }},
        {"alignment", "setTextAlign", "no alignment has the number \"7\"",
         "give 1 (left), 2 (centred), 3 (right) or 4 (justified)", true, nothing,
         [](IDocument& m) { return m.setTextAlign(7); }},
        {"startTable", "startTable", table, inOrder, true, startTable,
         [](IDocument& m) { return m.startTable(); }},
        {"addRow", "addRow", table, inOrder, true, nothing, [](IDocument& m) { return m.addRow(); }},
        {"addCell", "addCell", table, inOrder, true, startTable, [](IDocument& m) { return m.addCell(); }},
        {"endTable", "endTable", table, inOrder, true, nothing, [](IDocument& m) { return m.endTable(); }},
        {"setTableRowHeight", "setTableRowHeight", table, inOrder, true, nothing,
         [](IDocument& m) { return m.setTableRowHeight(10); }},
        {"insertPageBreak", "insertPageBreak", inTable, endFirst, true, startTable,
         [](IDocument& m) { return m.insertPageBreak(); }},
        {"insertTOC", "insertTOC", inTable, endFirst, true, startTable,
         [](IDocument& m) { return m.insertTOC(); }},
        {"image", "insertImage", "the file is not there \"c:\\no such.gif\"", checkFile, true, nothing,
         [](IDocument& m) { return m.insertImage(L"c:\\no such.gif"_b, L""_b); }},
        {"file", "insertFile", "the file is not there \"c:\\no such.txt\"", checkFile, true, nothing,
         [](IDocument& m) { return m.insertFile(L"c:\\no such.txt"_b, 1); }},
        {"tag", "close", "links lead to a tag that never came \"Nowhere\"",
         "insert the tag, or check its name", true, [](IDocument& m) { m.insertXref(L"a"_b, L"Nowhere"_b); },
         [](IDocument& m) { return m.close(); }},
        {"setting", "overrideRegistry", "there is no setting of this name \"Word/TrackPositions\"",
         "check group and name", false, nothing,
         [](IDocument& m) { return m.overrideRegistry(L"Word"_b, L"TrackPositions"_b, L"enabled"_b, 1); }},
        {"override", "overrideRegistry", "the setting's value cannot be of its kind \"Word/TOCLevel\"",
         "give it a value of its kind, or delete it", false, nothing,
         [](IDocument& m) { return m.overrideRegistry(L"Word"_b, L"TOCLevel"_b, L"deep"_b, 1); }},
    };
}

struct Mode
{
    Case tested;
    int compose;
    bool isStrict;
};

std::vector<Mode> modes()
{
    std::vector<Mode> all;
    for (const Case& each : cases())
        for (const int compose : {0, 1, 2})
            for (const bool isStrict : {false, true})
                all.push_back({each, compose, isStrict});
    return all;
}

/// Both settings are compared.
std::vector<Mode> modesInDocument()
{
    std::vector<Mode> all = modes();
    std::erase_if(all, [](const Mode& mode) { return !mode.tested.needsDocument || mode.isStrict; });
    return all;
}

class StrictTest : public FrontEndTest
{
protected:
    /// A client with the diagnostics on.
    void begin(int compose, bool isStrict)
    {
        setting("Word", "WordTemplateName", "");
        setting("Log", "Diagnostics", folder.file("events.log"));
        setting("Word", "Compose", std::to_string(compose), 2);
        setting("Word", "Strict", isStrict ? "1" : "0", 3);
    }

    [[nodiscard]] std::string written() const { return diagnosticsOf("events"); }
};

void PrintTo(const Mode& mode, std::ostream* out)
{
    *out << mode.tested.name;
}

class SilentCaseTest : public StrictTest, public testing::WithParamInterface<Mode>
{
};

TEST_P(SilentCaseTest, IsToldToWhomWantsToKnow)
{
    const Case& tested = GetParam().tested;
    begin(GetParam().compose, GetParam().isStrict);
    if (tested.needsDocument)
        openDocument();
    tested.before(*client);
    const std::string text = std::string(tested.method) + ": " + tested.what + ": " + tested.remedy;
    EXPECT_EQ(outcome([&] { return tested.call(*client); }),
              GetParam().isStrict ? "QdxException: " + text : tested.byDefault);
    const std::string name = std::string(tested.name) == "tag"
                                 ? "Nothing done: "
                                 : "\t" + std::string(tested.method) + "\tNothing done: ";
    EXPECT_THAT(written(), HasSubstr(name + tested.what + "\t-\t-\t-\t" + tested.remedy));
}

class SilentCaseInDocumentTest : public SilentCaseTest
{
};

TEST_P(SilentCaseInDocumentTest, LeavesTheDocumentAsItWas)
{
    const Case& tested = GetParam().tested;
    std::string texts[2];
    for (const bool isStrict : {false, true}) {
        begin(GetParam().compose, isStrict);
        openDocument();
        client->insertText(L"before"_b);
        outcome([&] {
            tested.before(*client);
            return S_OK;
        });
        outcome([&] { return tested.call(*client); });
        outcome([&] { return client->insertText(L"behind"_b); });
        outcome([&] { return client->endTable(); });
        outcome([&] { return client->close(); });
        texts[isStrict] = contentOf(documentName());
        outcome([&] { return client->stop(); });
        client = newClient();
    }
    EXPECT_NE(texts[0], "(no file)");
    EXPECT_EQ(texts[0], texts[1]);
}

std::string nameOfMode(const testing::TestParamInfo<Mode>& mode)
{
    return std::string(mode.param.tested.name) + "_" + std::to_string(mode.param.compose) +
           (mode.param.isStrict ? "_strict" : "_default");
}

INSTANTIATE_TEST_SUITE_P(All, SilentCaseTest, testing::ValuesIn(modes()), nameOfMode);
INSTANTIATE_TEST_SUITE_P(All, SilentCaseInDocumentTest, testing::ValuesIn(modesInDocument()), nameOfMode);

TEST_F(StrictTest, IsOffByDefault)
{
    EXPECT_THAT(client->insertEndl(), isHresult(S_OK));
    const Setting stored("Word", "Strict", "yes");
    client = newClient();
    EXPECT_EQ(outcome([&] { return client->insertEndl(); }),
              "QdxException: insertEndl: no document is open: call create first");
}

TEST_F(StrictTest, LetsALogBeOpenedWhereThereIsNoDocument)
{
    begin(0, true);
    EXPECT_EQ(outcome([&] { return client->trace(10); }), succeeds);
    EXPECT_EQ(outcome([&] { return client->trace(0); }), succeeds);
}

TEST_F(StrictTest, TellsScriptsTheMethodToo)
{
    begin(0, true);
    EXPECT_EQ(invoke(*client, 4, {}).outcome,
              "Mirovel.Mirovel 0x80004005 insertEndl: no document is open: call create first");
}

TEST_F(StrictTest, TellsOfLinksWhenTheDocumentIsSafe)
{
    for (const int compose : {0, 1, 2}) {
        begin(compose, true);
        openDocument();
        client->insertXref(L"a"_b, L"Nowhere"_b);
        client->insertXref(L"b"_b, L"Elsewhere"_b);
        takeTranscript();
        EXPECT_EQ(
            outcome([&] { return client->close(); }),
            "QdxException: close: links lead to a tag that never came \"Elsewhere\": insert the tag, or "
            "check its name\nclose: links lead to a tag that never came \"Nowhere\": insert the tag, or "
            "check its name");
        EXPECT_THAT(takeTranscript().back(), HasSubstr(".Close("));
        EXPECT_EQ(outcome([&] { return client->close(); }),
                  "QdxException: close: no document is open: call create first");
        client->stop();
        client = newClient();
    }
}

TEST_F(StrictTest, KnowsTagsThatComeLate)
{
    for (const int compose : {0, 1, 2}) {
        begin(compose, true);
        openDocument();
        client->insertXref(L"a"_b, L"Later"_b);
        client->insertTag(L"Later"_b);
        EXPECT_THAT(client->close(), isHresult(S_OK));
        client->stop();
        client = newClient();
    }
}

TEST_F(StrictTest, FailsCreateForASettingThatCannotBeMeant)
{
    const Setting stored("Word", "TOCLevel", "deep");
    for (const bool isStrict : {false, true}) {
        client = newClient();
        begin(0, isStrict);
        start();
        setting("Word", "WordTemplateName", "");
        EXPECT_EQ(outcome([&] { return client->create(bstr(documentName())); }),
                  isStrict ? "QdxException: create: the setting's value cannot be of its kind "
                             "\"Word/TOCLevel\": give it a value of its kind, or delete it"
                           : succeeds);
        EXPECT_THAT(written(), HasSubstr("\tcreate\tNothing done: the setting's value cannot be of its kind "
                                         "\"Word/TOCLevel\"\t"));
        client->stop();
    }
}

TEST_F(StrictTest, FailsCreateForATemplateThatNobodyCanBeAskedAbout)
{
    const UnseenProcess unseen;
    for (const bool isStrict : {false, true}) {
        int asked = 0;
        const QdxMessageBoxOverride answer([&](HWND, const QdxString&, const QdxString&, UINT) {
            ++asked;
            return IDYES;
        });
        begin(0, isStrict);
        start();
        setting("Word", "WordTemplateName", "c:\\no such.dot");
        EXPECT_EQ(outcome([&] { return client->create(bstr(documentName())); }),
                  isStrict ? "QdxException: create: the template is not there, and nobody can be asked "
                             "\"c:\\no such.dot\": check Word/WordTemplateName"
                           : succeeds);
        EXPECT_EQ(asked, isStrict ? 0 : 1);
        EXPECT_THAT(written(), HasSubstr("\tcreate\tNothing done: the template is not there, and nobody can "
                                         "be asked \"c:\\no such.dot\"\t"));
        client->stop();
        client = newClient();
    }
}

TEST_F(StrictTest, AsksTheUserWhereThereIsOne)
{
    const QdxMessageBoxOverride answer([&](HWND, const QdxString&, const QdxString&, UINT) { return IDYES; });
    begin(0, true);
    start();
    setting("Word", "WordTemplateName", "c:\\no such.dot");
    EXPECT_THAT(client->create(bstr(documentName())), isHresult(S_OK));
}

TEST_F(StrictTest, RaisesWhatAFrameSwallows)
{
    for (const bool isStrict : {false, true}) {
        begin(0, isStrict);
        openDocument();
        word.failCall(1, badPath); // of a piece of the text
        const std::string told = outcome([&] { return client->insertText(L"a<a href=\"b\">c</a>"_b); });
        if (isStrict)
            EXPECT_THAT(told, testing::StartsWith("QdxException: insertText: a failure was swallowed "
                                                  "\"insertText\nCOMERROR 0x800a1499\n"));
        else
            EXPECT_EQ(told, succeeds);
        EXPECT_THAT(written(), HasSubstr("\tinsertText\tSwallowed: insertText COMERROR 0x800a1499 "));
        client->close();
        client->stop();
        client = newClient();
    }
}

TEST_F(StrictTest, SaysAllThatIsKnownOfAFailedCall)
{
    for (const bool isStrict : {false, true}) {
        begin(0, isStrict);
        openDocument();
        word.failCall(1, badPath);
        const std::string three = "QdxException: insertText\nCOMERROR 0x800a1499\nUnknown error 0x800A1499";
        EXPECT_EQ(
            outcome([&] { return client->insertText(L"abc"_b); }),
            isStrict ? three + "\nMicrosoft Word: The document name or path is not valid."
                               "\nWord call: Range.InsertAfter(\"abc\")"
                               "\nThe document's name or path is not valid."
                               "\nCheck that the folder exists, that the path is a full one and not too long."
                     : three);
        client->close();
        client->stop();
        client = newClient();
    }
}

TEST_F(StrictTest, TellsOfAFailureWithoutAFrameInTheSameWords)
{
    for (const bool isStrict : {false, true}) {
        begin(0, isStrict);
        openDocument();
        word.failCall(1, badPath);
        const std::string told = outcome([&] { return client->setOrientation(1); });
        if (isStrict)
            EXPECT_THAT(told, testing::StartsWith("QdxException: setOrientation\nCOMERROR 0x800a1499\n"));
        else
            EXPECT_EQ(told, "_com_error 0x800a1499");
        EXPECT_THAT(written(), HasSubstr("\terror\t"));
        client->close();
        client->stop();
        client = newClient();
    }
}

TEST_F(StrictTest, NamesTheClientsCallBehindAFailedFlush)
{
    begin(1, true);
    openDocument();
    client->setStyle(L"Heading 1"_b);
    client->insertText(L"Title"_b);
    takeTranscript();
    word.failFromCall(1, badPath);
    EXPECT_THAT(outcome([&] { return client->close(); }),
                HasSubstr("\nBrought in for: insertText(\"Title\")\n"));
    EXPECT_THAT(written(),
                HasSubstr("\tclose\tFailed while bringing into Word what waited, at the client's call "
                          "insertText(\"Title\")\t"));
    word.clearFaults();
}

} // namespace
