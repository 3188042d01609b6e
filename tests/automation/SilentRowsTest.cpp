// Silent cases that need more than a call: in both settings, by both writers, with the line of the
// diagnostics.
#include "FrontEndTest.h"
#include "UnseenProcess.h"

#include <gmock/gmock.h>

#include <windows.h>

namespace {

using testing::HasSubstr;

class SilentRowsTest : public FrontEndTest
{
protected:
    void forEachMode(const std::function<void(bool isStrict)>& test)
    {
        for (const int compose : {0, 1, 2})
            for (const bool isStrict : {false, true}) {
                const testing::ScopedTrace trace(__FILE__, __LINE__,
                                                 std::to_string(compose) + (isStrict ? " strict" : ""));
                client = newClient();
                setting("Word", "WordTemplateName", "");
                setting("Log", "Diagnostics", folder.file(std::to_string(++files_) + ".log"));
                setting("Word", "Compose", std::to_string(compose), 2);
                setting("Word", "Strict", isStrict ? "1" : "0", 3);
                test(isStrict);
                outcome([&] { return client->close(); });
                outcome([&] { return client->stop(); });
            }
    }
    [[nodiscard]] std::string written() const { return diagnosticsOf(std::to_string(files_)); }

private:
    int files_ = 0;
};

TEST_F(SilentRowsTest, ATemplateThatWordRefusesWhereNobodyCanBeAsked)
{
    const UnseenProcess unseen;
    const std::string name = folder.write("refused.dot", "no template");
    forEachMode([&](bool isStrict) {
        int asked = 0;
        const QdxMessageBoxOverride answer([&](HWND, const QdxString&, const QdxString&, UINT) {
            ++asked;
            return IDYES;
        });
        setting("Word", "WordTemplateName", name);
        start();
        word.clearTranscript();
        // Word's options are asked for and put in front of it.
        word.failCall(6, static_cast<HRESULT>(0x800A1436));
        EXPECT_EQ(outcome([&] { return client->create(bstr(documentName())); }),
                  isStrict ? "QdxException: create: the template is not there, and nobody can be asked \"" +
                                 name + "\": check Word/WordTemplateName"
                           : succeeds);
        EXPECT_THAT(word.transcript().at(5), HasSubstr(".Add("));
        EXPECT_EQ(asked, isStrict ? 0 : 1);
        EXPECT_THAT(written(), HasSubstr("\tcreate\tNothing done: the template is not there, and nobody can "
                                         "be asked \"" +
                                         name + "\"\t"));
    });
}

TEST_F(SilentRowsTest, AStyleInAHeaderOrFooter)
{
    forEachMode([&](bool) {
        openDocument();
        client->startHeader();
        EXPECT_EQ(outcome([&] { return client->setStyle(L"Heading 1"_b); }), succeeds);
        client->endHeader();
        client->startFooter();
        EXPECT_EQ(outcome([&] { return client->setStyle(L"Heading 2"_b); }), succeeds);
        client->endFooter();
        EXPECT_THAT(written(), HasSubstr("\tsetStyle\tNothing done: headers and footers keep their own "
                                         "style, other than \"Heading 1\"\t"));
        EXPECT_THAT(written(), HasSubstr("\tsetStyle\tNothing done: headers and footers keep their own "
                                         "style, other than \"Heading 2\"\t"));
    });
}

TEST_F(SilentRowsTest, AnEntryWithoutATableOfContents)
{
    forEachMode([&](bool) {
        openDocument();
        EXPECT_EQ(outcome([&] { return client->startTOCEntry(); }), succeeds);
        EXPECT_EQ(outcome([&] { return client->insertText(L"an entry"_b); }), succeeds);
        EXPECT_EQ(outcome([&] { return client->endTOCEntry(); }), succeeds);
        for (const char* const method : {"startTOCEntry", "endTOCEntry"})
            EXPECT_THAT(written(),
                        HasSubstr(std::string("\t") + method +
                                  "\tNothing done: there is no table of contents for the entry\t"));
    });
}

} // namespace
