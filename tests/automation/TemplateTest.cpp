// Which template a document is made from, and what the user is asked about it.
#include "FrontEndTest.h"

namespace {

constexpr HRESULT notFound = static_cast<HRESULT>(0x800A1436);
constexpr char emptyRtf[] = "{\\rtf1\\ansi\\pard\\par}";
constexpr char aborted[] = "QdxException: Document generation aborted by the user.";

struct Question
{
    HWND parent;
    std::string text;
    std::string caption;
    UINT flags;
};

class TemplateTest : public FrontEndTest
{
protected:
    TemplateTest()
    {
        client = newClient(); // without the base's own choice
        setting("Log", "LogName", folder.file("trace.log"));
    }

    HRESULT create() const { return client->create(bstr(documentName())); }

    /// The calls of Documents.Add, with the template's path from the folder on.
    [[nodiscard]] Lines additions() const
    {
        Lines calls;
        for (const std::string& line : word.transcript()) {
            const std::size_t call = line.find(".Add(");
            if (line.starts_with("application.Documents.Add("))
                calls.push_back(line.substr(call + 1));
        }
        return calls;
    }
    static std::string additionOf(const std::string& path)
    {
        std::string text = "Add(\"";
        for (const char c : path)
            text += c == '\\' ? "\\\\" : std::string(1, c);
        return text + "\", missing, missing, missing) -> document";
    }

    int answer = IDNO;
    std::vector<Question> questions;
    const Lines plainAddition = {"Add(missing, missing, missing, missing) -> document"};

private:
    QdxMessageBoxOverride user_{
        [this](HWND parent, const QdxString& text, const QdxString& caption, UINT flags) {
            questions.push_back({parent, text.data(), caption.data(), flags});
            return answer;
        }};
};

TEST_F(TemplateTest, IsInTheInstallationUnlessSetOtherwise)
{
    const std::string path = folder.write("templates\\Vantpl01.dot", emptyRtf);
    const Setting registered("Settings", "InstallDir", folder.file(""));
    start();
    EXPECT_THAT(create(), isHresult(S_OK));
    EXPECT_LINES(additions(), Lines{additionOf(path)});
    EXPECT_TRUE(questions.empty());
}

TEST_F(TemplateTest, IsInTheSessionsInstallationUnlessSetOtherwise)
{
    const std::string path = folder.write("templates\\Vantpl01.dot", emptyRtf);
    setting("Settings", "InstallDir", folder.file(""));
    start();
    EXPECT_THAT(create(), isHresult(S_OK));
    EXPECT_LINES(additions(), Lines{additionOf(path)});
}

TEST_F(TemplateTest, IsTheRegisteredOne)
{
    const std::string path = folder.write("registered.dot", emptyRtf);
    const Setting registered("Word", "WordTemplateName", path);
    start();
    EXPECT_THAT(create(), isHresult(S_OK));
    EXPECT_LINES(additions(), Lines{additionOf(path)});
}

TEST_F(TemplateTest, IsTheSessionsBeforeTheRegisteredOne)
{
    const Setting registered("Word", "WordTemplateName", folder.write("registered.dot", emptyRtf));
    const std::string path = folder.write("session.dot", emptyRtf);
    setting("Word", "WordTemplateName", path);
    start();
    EXPECT_THAT(create(), isHresult(S_OK));
    EXPECT_LINES(additions(), Lines{additionOf(path)});
}

TEST_F(TemplateTest, IsInTheRegisteredInstallationUnderABareName)
{
    const std::string path = folder.write("real\\Templates\\my.dot", emptyRtf);
    folder.write("session\\Templates\\my.dot", emptyRtf);
    const Setting registered("Settings", "InstallDir", folder.file("real"));
    setting("Settings", "InstallDir", folder.file("session"));
    setting("Word", "WordTemplateName", "my.dot");
    start();
    EXPECT_THAT(create(), isHresult(S_OK));
    EXPECT_LINES(additions(), Lines{additionOf(path)});
}

TEST_F(TemplateTest, IsWordsOwnWhenTheSettingIsEmpty)
{
    setting("Word", "WordTemplateName", "");
    start();
    EXPECT_THAT(create(), isHresult(S_OK));
    EXPECT_EQ(additions(), plainAddition);
    EXPECT_TRUE(questions.empty());
}

TEST_F(TemplateTest, LeavesNothingOfItsTextInTheDocument)
{
    setting("Word", "WordTemplateName",
            folder.write("a.dot", "{\\rtf1\\ansi\\pard Text of the template\\par}"));
    start();
    EXPECT_THAT(create(), isHresult(S_OK));
    EXPECT_THAT(client->insertText(L"abc"_b), isHresult(S_OK));
    EXPECT_EQ(documentText(), "abc");
}

TEST_F(TemplateTest, AsksWhenItDoesNotExist)
{
    setting("Word", "WordTemplateName", folder.file("gone.dot"));
    answer = IDYES;
    start();
    EXPECT_THAT(create(), isHresult(S_OK));
    ASSERT_EQ(questions.size(), 1U);
    EXPECT_EQ(questions[0].text,
              "Word template file " + folder.file("gone.dot") +
                  " does not exist.\nCheck template file settings (\"File->Template properties\" and "
                  "\"View->Default Document properties\").\nContinue?");
    EXPECT_EQ(questions[0].caption, "Lumarkscribe");
    EXPECT_EQ(questions[0].flags, 0x24U);
    EXPECT_EQ(questions[0].parent, nullptr);
    EXPECT_EQ(additions(), plainAddition);
}

TEST_F(TemplateTest, NamesTheDefaultWhenThatDoesNotExist)
{
    start();
    answer = IDYES;
    EXPECT_THAT(create(), isHresult(S_OK));
    ASSERT_EQ(questions.size(), 1U);
    EXPECT_THAT(questions[0].text,
                testing::StartsWith("Word template file templates\\Vantpl01.dot does not exist.\n"));
}

TEST_F(TemplateTest, AbortsWhenTheUserDoesNotWantToGoOnWithoutIt)
{
    setting("Word", "WordTemplateName", folder.file("gone.dot"));
    RecordedExceptionLog exceptions;
    start();
    for (const int button : {IDNO, IDCANCEL, 0}) {
        answer = button;
        EXPECT_EQ(outcome([&] { return create(); }), aborted);
    }
    EXPECT_LINES(exceptions.lines, Lines(3, "Exception throw: Document generation aborted by the user."));
    EXPECT_LINES(additions(), Lines());
    EXPECT_EQ(invoke(*client, 1, {documentName().c_str()}).outcome,
              "Mirovel.Mirovel 0x80004005 Document generation aborted by the user.");
}

TEST_F(TemplateTest, AsksWhenWordRefusesIt)
{
    const std::string path = folder.write("bad.dot", emptyRtf);
    setting("Word", "WordTemplateName", path);
    answer = IDYES;
    start();
    word.failCall(6, notFound);
    EXPECT_THAT(create(), isHresult(S_OK));
    ASSERT_EQ(questions.size(), 1U);
    EXPECT_EQ(questions[0].text,
              "Problem reported by MS-Word :\nError occurred in setting word template file " + path +
                  ".\nContinue?");
    EXPECT_EQ(questions[0].caption, "Lumarkscribe");
    EXPECT_EQ(questions[0].flags, 0x14U);
    ASSERT_EQ(additions().size(), 2U);
    EXPECT_THAT(additions()[0], testing::EndsWith("!! 0x800a1436"));
    EXPECT_EQ(additions()[1], plainAddition[0]);
}

TEST_F(TemplateTest, AbortsWhenTheUserDoesNotWantToGoOnAfterTheRefusal)
{
    setting("Word", "WordTemplateName", folder.write("bad.dot", emptyRtf));
    RecordedExceptionLog exceptions;
    start();
    word.failCall(6, notFound);
    EXPECT_EQ(outcome([&] { return create(); }), aborted);
    EXPECT_LINES(exceptions.lines, Lines{"Exception throw: Document generation aborted by the user."});
    EXPECT_EQ(additions().size(), 1U);
    EXPECT_EQ(word.model().documentCount(), 0);
}

TEST_F(TemplateTest, ReportsAFailureOfThePlainAdditionAfterTheUsersYes)
{
    setting("Word", "WordTemplateName", folder.write("bad.dot", emptyRtf));
    answer = IDYES;
    start();
    word.failFromCall(6, notFound);
    EXPECT_EQ(outcome([&] { return create(); }),
              "QdxException: Adding document\nCOMERROR 0x800a1436\nUnknown error 0x800A1436");
    word.clearFaults();
}

} // namespace
