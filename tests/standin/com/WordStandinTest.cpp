#include "TestSupport.h"

#include <Word.h>
#include <WordConstants.h>
#include <filesystem>
#include <fstream>

/// The server in a process of its own: registered by itself in this test's Wine prefix, started by COM.
namespace {
using standin_test::bytesOf;
using standin_test::ScratchFolder;

constexpr DWORD patience = 20000;
constexpr GUID wordLibrary = {0x00020905, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr CLSID applicationClass = {0x000209FF, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

/// Wine shows the host's files under Z:.
std::wstring programFile()
{
    std::wstring file = WORDSTANDIN_PROGRAM;
    if (file.rfind(L"/", 0) == 0)
        file = L"Z:" + file;
    for (wchar_t& character : file)
        if (character == L'/')
            character = L'\\';
    return file;
}

class Process
{
public:
    explicit Process(const std::wstring& arguments)
    {
        std::wstring line = L"\"" + programFile() + L"\" " + arguments;
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        EXPECT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                   &startup, &information_));
        CloseHandle(information_.hThread);
    }
    ~Process()
    {
        TerminateProcess(information_.hProcess, 99);
        CloseHandle(information_.hProcess);
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    DWORD exitCode() const
    {
        EXPECT_EQ(WaitForSingleObject(information_.hProcess, patience), WAIT_OBJECT_0);
        DWORD code = 99;
        GetExitCodeProcess(information_.hProcess, &code);
        return code;
    }

private:
    PROCESS_INFORMATION information_{};
};

DWORD runToEnd(const std::wstring& arguments)
{
    return Process(arguments).exitCode();
}

bool isRegistered()
{
    CLSID id{};
    return SUCCEEDED(CLSIDFromProgID(L"Word.Application", &id));
}

template <typename Condition>
bool becomesTrue(Condition&& condition)
{
    const ULONGLONG end = GetTickCount64() + patience;
    while (!condition()) {
        if (GetTickCount64() > end)
            return false;
        Sleep(20);
    }
    return true;
}

class WordStandin : public testing::Test
{
protected:
    void SetUp() override
    {
        SetEnvironmentVariableW(L"WORDSTANDIN_TRANSCRIPT", transcript().c_str());
        ASSERT_EQ(runToEnd(L"/regserver"), 0u);
    }

    void TearDown() override
    {
        for (const wchar_t* name : {L"WORDSTANDIN_TRANSCRIPT", L"WORDSTANDIN_FAIL", L"WORDSTANDIN_EXIT",
                                    L"WORDSTANDIN_SWITCHES", L"WORDSTANDIN_PROFILE"})
            SetEnvironmentVariableW(name, nullptr);
        EXPECT_EQ(runToEnd(L"/unregserver"), 0u);
        EXPECT_FALSE(isRegistered());
    }

    std::wstring transcript() const { return folder.file(L"transcript.txt"); }
    std::string transcriptText() const { return bytesOf(transcript()); }

    static Word::_ApplicationPtr createApplication()
    {
        Word::_ApplicationPtr application;
        EXPECT_THAT(application.CreateInstance(L"Word.Application", nullptr, CLSCTX_LOCAL_SERVER),
                    isHresult(S_OK));
        return application;
    }

    standin_test::Apartment apartment;
    ScratchFolder folder;
};

/// Each is the only one of its interface, and is let go of right behind a call.
TEST_F(WordStandin, HandsOutManyObjectsOneAfterTheOther)
{
    const Word::_ApplicationPtr application = createApplication();
    ITypeLib* library = nullptr; // held, so that the next call comes at once
    ASSERT_THAT(LoadRegTypeLib(wordLibrary, 8, 1, LOCALE_NEUTRAL, &library), isHresult(S_OK));
    const Word::RangePtr range = application->GetDocuments()->Add()->Range();
    for (int i = 0; i < 1000; ++i)
        range->GetParagraphFormat()->GetAlignment();
    application->Quit();
    library->Release();
}

TEST_F(WordStandin, WritesADocumentAndEndsAtQuit)
{
    const std::wstring file = folder.file(L"out.doc");
    {
        const Word::_ApplicationPtr application = createApplication();
        EXPECT_EQ(application->GetVisible(), VARIANT_FALSE);
        const Word::_DocumentPtr document = application->GetDocuments()->Add();
        const Word::RangePtr range = document->Range();
        range->InsertAfter(L"across");
        range->PutStyle(Word::integer(Word::wdStyleHeading1));
        range->GetFont()->PutSize(20.0f);
        EXPECT_EQ(range->GetEnd(), 7);
        EXPECT_THAT(comErrorOf([&] { document->GetStyles()->Item(Word::text(L"Nope")); }),
                    isHresult(wordError(5941)));
        EXPECT_THAT(comErrorOf([&] { range->Sort(); }), isHresult(E_NOTIMPL));
        document->SaveAs(Word::text(file.c_str()));
        application->Quit();
        EXPECT_TRUE(becomesTrue([&] { return FAILED(comErrorOf([&] { application->GetVisible(); })); }));
    }
    EXPECT_NE(bytesOf(file).find("across"), std::string::npos);
    EXPECT_EQ(
        transcriptText().rfind("application.Visible -> false\n"
                               "application.Documents -> application.Documents\n"
                               "application.Documents.Add(missing, missing, missing, missing) -> document\n"
                               "document.Range(missing, missing) -> body\n"
                               "body.InsertAfter(\"across\")\n"
                               "body.Style = -2\n"
                               "body.Font -> body.Font\n"
                               "body.Font.Size = 20f\n"
                               "body.End -> 7\n",
                               0),
        0u)
        << transcriptText();
}

TEST_F(WordStandin, EachCreationIsAWordOfItsOwn)
{
    const Word::_ApplicationPtr first = createApplication();
    const Word::_ApplicationPtr second = createApplication();
    first->GetDocuments()->Add();
    EXPECT_EQ(second->GetDocuments()->GetCount(), 0);
    first->Quit();
    EXPECT_EQ(second->GetDocuments()->GetCount(), 0);
    second->Quit();
}

TEST_F(WordStandin, ARunningWordIsFoundWithItsDocuments)
{
    const std::wstring file = folder.file(L"shown.doc");
    const Process running(L"/run");
    IUnknown* found = nullptr;
    ASSERT_TRUE(becomesTrue([&] { return SUCCEEDED(GetActiveObject(applicationClass, nullptr, &found)); }));
    const Word::_ApplicationPtr application(found);
    found->Release();
    EXPECT_EQ(application->GetVisible(), VARIANT_TRUE);
    const Word::_DocumentPtr document = application->GetDocuments()->Add();
    document->SaveAs(Word::text(file.c_str()));
    EXPECT_TRUE(standin_test::isRunning(file));
    document->Close();
    EXPECT_FALSE(standin_test::isRunning(file));
    application->Quit();
    EXPECT_EQ(running.exitCode(), 0u);
}

TEST_F(WordStandin, TakesItsReadingsFromTheEnvironment)
{
    SetEnvironmentVariableW(L"WORDSTANDIN_SWITCHES", L"deleteAnswersOne=0");
    const Word::_ApplicationPtr application = createApplication();
    const Word::_DocumentPtr document = application->GetDocuments()->Add();
    document->Range()->InsertAfter(L"abc");
    EXPECT_EQ(document->Range(Word::integer(0), Word::integer(3))->Delete(), 3);
    application->Quit();
    SetEnvironmentVariableW(L"WORDSTANDIN_SWITCHES", L"nonsense=0");
    EXPECT_EQ(runToEnd(L"/run"), 1u);
}

TEST_F(WordStandin, TakesItsReadingsFromAProfile)
{
    const std::wstring profile = folder.file(L"profile.json");
    const auto write = [&profile](const char* text) {
        std::ofstream(std::filesystem::path(profile)) << text;
    };
    SetEnvironmentVariableW(L"WORDSTANDIN_PROFILE", profile.c_str());
    SetEnvironmentVariableW(L"WORDSTANDIN_SWITCHES", L"oleObjectIsField=0");
    write(R"({"kit": 1, "switches": {"deleteAnswersOne": false}})");
    const Word::_ApplicationPtr application = createApplication();
    const Word::_DocumentPtr document = application->GetDocuments()->Add();
    document->Range()->InsertAfter(L"abc");
    EXPECT_EQ(document->Range(Word::integer(0), Word::integer(3))->Delete(), 3);
    application->Quit();
    write(R"({"switches": {"nonsense": false}})");
    EXPECT_EQ(runToEnd(L"/run"), 1u);
    SetEnvironmentVariableW(L"WORDSTANDIN_PROFILE", folder.file(L"none.json").c_str());
    EXPECT_EQ(runToEnd(L"/run"), 1u);
}

TEST_F(WordStandin, FailsAndEndsOnDemand)
{
    SetEnvironmentVariableW(L"WORDSTANDIN_FAIL", L"2:0x800A11FD");
    SetEnvironmentVariableW(L"WORDSTANDIN_EXIT", L"4");
    const Word::_ApplicationPtr application = createApplication();
    EXPECT_THAT(comErrorOf([&] { application->GetName(); }), isHresult(S_OK));
    EXPECT_THAT(comErrorOf([&] { application->GetName(); }), isHresult(wordError(4605)));
    EXPECT_THAT(comErrorOf([&] { application->GetName(); }), isHresult(S_OK));
    EXPECT_THAT(comErrorOf([&] { application->GetName(); }), isFailure());
    EXPECT_THAT(comErrorOf([&] { application->GetName(); }), isFailure());
}

TEST_F(WordStandin, RefusesToReplaceAnotherWord)
{
    constexpr wchar_t key[] = L"CLSID\\{000209FF-0000-0000-C000-000000000046}\\LocalServer32";
    constexpr wchar_t other[] = L"C:\\Office\\winword.exe /automation";
    ASSERT_EQ(runToEnd(L"/unregserver"), 0u);
    ASSERT_EQ(RegSetKeyValueW(HKEY_CLASSES_ROOT, key, nullptr, REG_SZ, other, sizeof other), ERROR_SUCCESS);
    EXPECT_EQ(runToEnd(L"/regserver"), 1u);
    EXPECT_EQ(runToEnd(L"/unregserver"), 1u);
    wchar_t kept[MAX_PATH] = {};
    DWORD size = sizeof kept;
    EXPECT_EQ(RegGetValueW(HKEY_CLASSES_ROOT, key, nullptr, RRF_RT_REG_SZ, nullptr, kept, &size),
              ERROR_SUCCESS);
    EXPECT_STREQ(kept, other);
    EXPECT_FALSE(isRegistered());
    RegDeleteTreeW(HKEY_CLASSES_ROOT, L"CLSID\\{000209FF-0000-0000-C000-000000000046}");
}

TEST_F(WordStandin, NonsenseIsRefused)
{
    EXPECT_EQ(runToEnd(L""), 2u);
    EXPECT_EQ(runToEnd(L"/nonsense"), 2u);
    SetEnvironmentVariableW(L"WORDSTANDIN_FAIL", L"nonsense");
    EXPECT_EQ(runToEnd(L"/run"), 1u);
}
} // namespace
