// start, create, close, stop and showLast, in every state.
#include "FrontEndTest.h"

#include "Document.h"

#include <map>

namespace {

constexpr HRESULT refused = static_cast<HRESULT>(0x800A1234);

std::string escaped(const std::string& name)
{
    std::string text;
    for (const char c : name)
        text += c == '\\' ? "\\\\" : std::string(1, c);
    return text;
}

std::string missing(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += ", missing";
    return text;
}

std::string saveCall(const std::string& document, const std::string& name)
{
    return document + ".SaveAs(\"" + escaped(name) + "\"" + missing(10) + ")";
}

/// What `create` tells Word, from the options to the emptied document.
Lines createCalls(const std::string& name)
{
    return {
        "Application@1.Options -> Options@1",
        "Options@1.CheckGrammarAsYouType -> true",
        "Options@1.CheckGrammarAsYouType = false",
        "Options@1.CheckSpellingAsYouType -> true",
        "Options@1.CheckSpellingAsYouType = false",
        "Documents@1.Add(missing, missing, missing, missing) -> Document@1",
        saveCall("Document@1", name),
        "Document@1.Range(missing, missing) -> Range@1",
        "Document@1.Styles -> Styles@1",
        "Styles@1.Item(-1) -> Style@1",
        "Style@1.Font -> Font@1",
        "Font@1.Name -> \"Times New Roman\"",
        "Font@1.Size -> 12f",
        "Font@1.Bold -> 0",
        "Font@1.Italic -> 0",
        "Font@1.Underline -> 0",
        "Font@1.StrikeThrough -> 0",
        "Document@1.PageSetup -> PageSetup@1",
        "PageSetup@1.PageWidth -> 612f",
        "PageSetup@1.RightMargin -> 90f",
        "PageSetup@1.LeftMargin -> 90f",
        "Range@1.Delete(missing, missing) -> 1",
    };
}

class LifecycleTest : public FrontEndTest
{
protected:
    using FrontEndTest::FrontEndTest;
};

TEST_F(LifecycleTest, StartsANewWordWithoutShowingIt)
{
    start();
    EXPECT_EQ(takeTranscript(), Lines{"Application@1.Documents -> Documents@1"});
    EXPECT_EQ(installed->created(), 1);
    EXPECT_EQ(word.application()->GetVisible(), VARIANT_FALSE);
}

TEST_F(LifecycleTest, StartsOnlyOnce)
{
    start();
    start();
    EXPECT_EQ(word.callCount(), 1);
    EXPECT_EQ(installed->created(), 1);
}

TEST_F(LifecycleTest, AttachesToARunningWord)
{
    const standin::RunningApplication running(word);
    start();
    EXPECT_EQ(installed->created(), 0);
    EXPECT_EQ(takeTranscript(), Lines{"Application@1.Documents -> Documents@1"});
    EXPECT_THAT(client->create(bstr(documentName())), isHresult(S_OK));
    EXPECT_EQ(word.model().documentCount(), 1);
}

TEST_F(LifecycleTest, AsksForWordWhenItIsNotInstalled)
{
    installed.reset();
    RecordedExceptionLog exceptions;
    EXPECT_EQ(outcome([&] { return client->start(); }),
              "QdxException: Cannot open Word\nPlease install Word.\n");
    EXPECT_EQ(exceptions.lines, Lines{"Exception throw: Cannot open Word\nPlease install Word.\n"});
    EXPECT_EQ(invoke(*client, 17, {}).outcome,
              "Mirovel.Mirovel 0x80004005 Cannot open Word\nPlease install Word.\n");
    EXPECT_THAT(client->create(bstr(documentName())), isHresult(E_FAIL));
    installed = std::make_unique<standin::ClassRegistration>(word);
    EXPECT_THAT(client->start(), isHresult(S_OK));
}

TEST_F(LifecycleTest, StaysIdleWhenWordDoesNotAnswer)
{
    word.failCall(1, refused);
    EXPECT_THROW(client->start(), QdxException);
    EXPECT_THAT(client->create(bstr(documentName())), isHresult(E_FAIL));
    EXPECT_THAT(client->start(), isHresult(S_OK));
}

TEST_F(LifecycleTest, EndsTheWordThatItStartedInVain)
{
    for (const bool quitFails : {false, true}) {
        standin::Session started;
        installed.reset();
        installed = std::make_unique<standin::ClassRegistration>(started);
        started.failCall(1, refused);
        if (quitFails)
            started.failCall(2, E_ACCESSDENIED);
        EXPECT_EQ(outcome([&] { return client->start(); }),
                  "QdxException: Cannot open Word\nCOMERROR 0x800a1234\nUnknown error 0x800A1234");
        EXPECT_EQ(started.transcript(), (Lines{"Application@1.Documents !! 0x800a1234",
                                               std::string("Application@1.Quit(missing, missing, missing)") +
                                                   (quitFails ? " !! 0x80070005" : "")}));
        EXPECT_EQ(started.hasQuit(), !quitFails);
        EXPECT_EQ(started.liveObjects(), 0);
    }
}

TEST_F(LifecycleTest, LeavesARunningWordAloneThatDoesNotAnswer)
{
    const standin::RunningApplication running(word);
    word.failCall(1, refused);
    EXPECT_THROW(client->start(), QdxException);
    EXPECT_EQ(takeTranscript(), Lines{"Application@1.Documents !! 0x800a1234"});
    EXPECT_FALSE(word.hasQuit());
}

constexpr CLSID wordClass = {0x000209FF, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

/// Anything but Word.
class OtherObject : public IUnknown
{
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override
    {
        *out = IsEqualIID(iid, IID_IUnknown) ? this : nullptr;
        return *out ? S_OK : refusal;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }

    HRESULT refusal = E_NOINTERFACE;
};

/// Gives the one object that it is told.
class OtherFactory : public IClassFactory
{
public:
    explicit OtherFactory(OtherObject& object) : object_(object) {}
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override
    {
        const bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IClassFactory);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID iid, void** out) override
    {
        return object_.QueryInterface(iid, out);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

private:
    OtherObject& object_;
};

std::string cannotOpenWord(HRESULT code)
{
    char number[16];
    wsprintfA(number, "0x%08x", static_cast<unsigned>(code));
    return std::string("QdxException: Cannot open Word\nCOMERROR ") + number + "\n" + systemMessage(code);
}

// It leaves the application pointer empty, and the first call through that fails.
TEST_F(LifecycleTest, TakesAnObjectThatIsNoWordForNone)
{
    OtherObject object;
    OtherFactory factory(object);
    Lines outcomes;
    for (const bool running : {true, false}) {
        for (const HRESULT refusal : {E_NOINTERFACE, E_ACCESSDENIED}) {
            object.refusal = refusal;
            DWORD registration = 0;
            if (running) {
                ASSERT_THAT(RegisterActiveObject(&object, wordClass, ACTIVEOBJECT_STRONG, &registration),
                            isHresult(S_OK));
                outcomes.push_back(outcome([&] { return client->start(); }));
                RevokeActiveObject(registration, nullptr);
            } else {
                installed.reset(); // of two factories for one class, the first is asked
                ASSERT_THAT(CoRegisterClassObject(wordClass, &factory, CLSCTX_INPROC_SERVER,
                                                  REGCLS_MULTIPLEUSE, &registration),
                            isHresult(S_OK));
                installed = std::make_unique<standin::ClassRegistration>(word); // makes the ProgID known
                outcomes.push_back(outcome([&] { return client->start(); }));
                CoRevokeClassObject(registration);
            }
        }
    }
    EXPECT_EQ(outcomes, (Lines{cannotOpenWord(E_POINTER), cannotOpenWord(E_ACCESSDENIED),
                               cannotOpenWord(E_POINTER), cannotOpenWord(E_ACCESSDENIED)}));
    EXPECT_EQ(installed->created(), 0);
    EXPECT_THAT(client->create(bstr(documentName())), isHresult(E_FAIL));
    installed.reset();
    installed = std::make_unique<standin::ClassRegistration>(word); // now alone
    EXPECT_EQ(outcome([&] { return client->start(); }), "0x00000000");
}

TEST_F(LifecycleTest, RefusesToCreateWithoutWord)
{
    trace(10);
    EXPECT_THAT(client->create(bstr(documentName())), isHresult(E_FAIL));
    EXPECT_EQ(log(), "");
    EXPECT_EQ(word.callCount(), 0);
}

TEST_F(LifecycleTest, CreatesTheDocumentStepByStep)
{
    start();
    word.clearTranscript();
    EXPECT_THAT(client->create(bstr(documentName())), isHresult(S_OK));
    EXPECT_EQ(takeTranscript(), createCalls(documentName()));
    EXPECT_THAT(contentOf(documentName()), testing::StartsWith("{\\rtf"));
}

// Only Add and SaveAs are reported with what was being done.
TEST_F(LifecycleTest, AFailureElsewhereInCreateReachesTheClientAsItIs)
{
    start();
    const auto expectFailure = [&](long call, const std::string& line) {
        word.clearTranscript();
        word.failCall(call, refused);
        EXPECT_EQ(outcome([&] { return client->create(bstr(documentName())); }), "_com_error 0x800a1234");
        EXPECT_EQ(takeTranscript().back(), line + " !! 0x800a1234");
        EXPECT_THAT(client->insertText(L"lost"_b), isHresult(S_OK));
        EXPECT_THAT(client->close(), isHresult(S_OK));
        EXPECT_EQ(takeTranscript(), Lines()) << "no document is open";
    };
    expectFailure(1, "Application@1.Options");
    EXPECT_EQ(word.model().documentCount(), 0);
    expectFailure(8, "Document@1.Range(missing, missing)");
    EXPECT_EQ(word.model().documentCount(), 1) << "it stays with Word";
    EXPECT_THAT(client->create(bstr(folder.file("second.doc"))), isHresult(S_OK));
    EXPECT_THAT(client->insertText(L"abc"_b), isHresult(S_OK));
    EXPECT_THAT(client->close(), isHresult(S_OK));
}

TEST_F(LifecycleTest, ClosesTheDocumentStepByStep)
{
    openDocument();
    client->insertText(L"abc"_b);
    word.clearTranscript();
    EXPECT_THAT(client->close(), isHresult(S_OK));
    EXPECT_EQ(takeTranscript(), (Lines{
                                    "Range@1.Start = 0",
                                    "Range@1.End = 3",
                                    "Range@1.Style = -1",
                                    "Range@1.Start = 0",
                                    "Range@1.End = 3",
                                    "Range@1.Font -> Font@2",
                                    "Font@2.Name = \"Times New Roman\"",
                                    "Font@2.Size = 12f",
                                    "Font@2.Bold = 0",
                                    "Font@2.Italic = 0",
                                    "Font@2.Underline = 0",
                                    "Font@2.StrikeThrough = 0",
                                    "Document@1.UndoClear()",
                                    "Options@1.CheckGrammarAsYouType = true",
                                    "Options@1.CheckSpellingAsYouType = true",
                                    saveCall("Document@1", documentName()),
                                    "Document@1.Close(missing, missing, missing)",
                                }));
    EXPECT_THAT(contentOf(documentName()), testing::HasSubstr("abc"));
    EXPECT_EQ(word.model().documentCount(), 0);
}

TEST_F(LifecycleTest, StopsStepByStep)
{
    start();
    word.clearTranscript();
    EXPECT_THAT(client->stop(), isHresult(S_OK));
    EXPECT_EQ(takeTranscript(),
              (Lines{"Documents@1.Count -> 0", "Application@1.Quit(missing, missing, missing)"}));
    EXPECT_TRUE(word.hasQuit());
}

TEST_F(LifecycleTest, SavesAndClosesEveryDocumentWhenItStops)
{
    openDocument();
    EXPECT_THAT(client->insertText(L"abc"_b), isHresult(S_OK));
    word.clearTranscript();
    EXPECT_THAT(client->stop(), isHresult(S_OK));
    EXPECT_EQ(takeTranscript(), (Lines{"Documents@1.Count -> 1", "Documents@1.Close(-1, missing, missing)",
                                       "Application@1.Quit(missing, missing, missing)"}));
    EXPECT_THAT(contentOf(documentName()), testing::HasSubstr("abc"));
}

TEST_F(LifecycleTest, FailsToCloseADocumentThatStopHasClosed)
{
    openDocument();
    EXPECT_THAT(client->stop(), isHresult(S_OK));
    EXPECT_THAT(outcome([&] { return client->close(); }),
                testing::StartsWith("QdxException: Saving document\nCOMERROR 0x"));
    EXPECT_THAT(client->stop(), isHresult(S_OK));
}

TEST_F(LifecycleTest, RestoresTheProofingThatItFound)
{
    word.model().options.checkGrammarAsYouType = false;
    openDocument();
    EXPECT_FALSE(word.model().options.checkGrammarAsYouType);
    EXPECT_FALSE(word.model().options.checkSpellingAsYouType);
    EXPECT_THAT(client->close(), isHresult(S_OK));
    EXPECT_FALSE(word.model().options.checkGrammarAsYouType);
    EXPECT_TRUE(word.model().options.checkSpellingAsYouType);
}

TEST_F(LifecycleTest, LowerCasesTheNameAndAddsTheExtension)
{
    start();
    const std::string name = folder.file("Report");
    EXPECT_THAT(client->create(bstr(name)), isHresult(S_OK));
    EXPECT_THAT(word.transcript(), testing::Contains(saveCall("Document@1", folder.file("report") + ".doc")));
}

TEST_F(LifecycleTest, KeepsAnyExtension)
{
    start();
    for (const char* name : {"a.rtf", "b.x.y", "c."}) {
        word.clearTranscript();
        EXPECT_THAT(client->create(bstr(folder.file(name))), isHresult(S_OK));
        EXPECT_THAT(word.transcript(),
                    testing::Contains(testing::HasSubstr(escaped(folder.file(name)) + "\", ")));
        EXPECT_THAT(client->close(), isHresult(S_OK));
    }
}

TEST_F(LifecycleTest, AbandonsTheEarlierDocumentInASecondCreate)
{
    openDocument();
    client->insertText(L"abc"_b);
    word.clearTranscript();
    EXPECT_THAT(client->create(bstr(folder.file("second.doc"))), isHresult(S_OK));
    EXPECT_EQ(word.model().documentCount(), 2);
    const Lines calls = takeTranscript();
    EXPECT_THAT(calls, testing::Not(testing::Contains(testing::HasSubstr("Document@1.SaveAs"))));
    EXPECT_THAT(calls, testing::Not(testing::Contains(testing::HasSubstr(".Close("))));
    // The first writer's pending work is done after the new document has been saved, before the new writer is
    // made.
    const auto indexOf = [&](const std::string& line) {
        return std::ranges::find(calls, line) - calls.begin();
    };
    EXPECT_LT(indexOf(saveCall("Document@2", folder.file("second.doc"))), indexOf("Range@1.Style = -1"));
    EXPECT_LT(indexOf("Range@1.Style = -1"), indexOf("Document@2.Range(missing, missing) -> Range@2"));
    EXPECT_THAT(client->close(), isHresult(S_OK));
    EXPECT_EQ(word.model().documentCount(), 1);
    EXPECT_THAT(client->close(), isHresult(S_OK)); // nothing more to close
    EXPECT_EQ(word.model().documentCount(), 1);
}

TEST_F(LifecycleTest, EndsHeadersAndFootersBeforeTheBodyInASecondCreate)
{
    openDocument();
    client->startHeader();
    client->insertText(L"head"_b);
    client->startFooter();
    client->insertText(L"foot"_b);
    word.clearTranscript();
    EXPECT_THAT(client->create(bstr(folder.file("second.doc"))), isHresult(S_OK));
    Lines styled;
    for (const std::string& line : takeTranscript())
        if (line.find(".Style = ") != std::string::npos)
            styled.push_back(line);
    EXPECT_EQ(styled, (Lines{"Range@2.Style = -32", "Range@3.Style = -33", "Range@1.Style = -1"}));
    EXPECT_THAT(client->insertText(L"body"_b), isHresult(S_OK));
    EXPECT_THAT(word.transcript().back(), testing::HasSubstr(".InsertAfter(\"body\")"));
}

TEST_F(LifecycleTest, ClosesAgainAfterAFailedClose)
{
    openDocument();
    client->insertText(L"abc"_b);
    word.failCall(2, refused);
    EXPECT_THROW(client->close(), QdxException);
    word.clearTranscript();
    EXPECT_THAT(client->close(), isHresult(S_OK));
    EXPECT_EQ(takeTranscript(), (Lines{
                                    "Options@1.CheckGrammarAsYouType = true",
                                    "Options@1.CheckSpellingAsYouType = true",
                                    saveCall("Document@1", documentName()),
                                    "Document@1.Close(missing, missing, missing)",
                                }));
    EXPECT_THAT(client->close(), isHresult(S_OK));
    EXPECT_EQ(takeTranscript(), Lines());
}

TEST_F(LifecycleTest, StartsAgainAfterStop)
{
    openDocument();
    client->close();
    client->stop();
    EXPECT_THAT(client->create(bstr(documentName())), isHresult(E_FAIL));
    trace(10);
    EXPECT_THAT(client->stop(), isHresult(S_OK));
    EXPECT_THAT(client->close(), isHresult(S_OK));
    EXPECT_EQ(log(), "");
}

TEST_F(LifecycleTest, OpensTheLastDocumentAndShowsWord)
{
    openDocument();
    client->close();
    word.clearTranscript();
    EXPECT_THAT(client->showLast(), isHresult(S_OK));
    EXPECT_EQ(opened, Lines{documentName()});
    EXPECT_EQ(takeTranscript(), Lines{"Application@1.Visible = true"});
}

TEST_F(LifecycleTest, OnlyOpensWhatIsNoWordDocument)
{
    start();
    EXPECT_THAT(client->create(bstr(folder.file("a.rtf"))), isHresult(S_OK));
    client->close();
    word.clearTranscript();
    EXPECT_THAT(client->showLast(), isHresult(S_OK));
    EXPECT_EQ(opened, Lines{folder.file("a.rtf")});
    EXPECT_EQ(takeTranscript(), Lines());
}

TEST_F(LifecycleTest, TakesTheExtensionAnywhereForAWordDocument)
{
    start();
    EXPECT_THAT(client->create(bstr(folder.file("a.docs.rtf"))), isHresult(S_OK));
    word.clearTranscript();
    EXPECT_THAT(client->showLast(), isHresult(S_OK));
    EXPECT_EQ(takeTranscript(), Lines{"Application@1.Visible = true"});
}

TEST_F(LifecycleTest, ShowsNothingBeforeAnyDocument)
{
    EXPECT_THAT(client->showLast(), isHresult(S_OK));
    EXPECT_EQ(opened, Lines{""});
    EXPECT_EQ(word.callCount(), 0);
}

class RunningDocumentTest : public FrontEndTest
{
protected:
    RunningDocumentTest() : FrontEndTest({{}, true}) {}
};

TEST_F(RunningDocumentTest, ClosesTheDocumentThatIsOpenUnderTheName)
{
    const standin::RunningApplication running(word);
    const Word::DocumentsPtr documents = word.application()->GetDocuments();
    documents->Add()->SaveAs(bstr(folder.file("other.doc")));
    documents->Add()->SaveAs(bstr(folder.file("TEST.doc")));
    documents->Add()->SaveAs(bstr(folder.file("third.doc")));
    start();
    word.clearTranscript();
    EXPECT_THAT(client->create(bstr(documentName())), isHresult(S_OK));
    const Lines calls = takeTranscript();
    ASSERT_GE(calls.size(), 11U);
    EXPECT_EQ(Lines(calls.begin() + 5, calls.begin() + 12),
              (Lines{
                  "Documents@2.Count -> 3",
                  "Documents@2.Item(1) -> Document@3",
                  "Document@3.FullName -> \"" + escaped(folder.file("third.doc")) + "\"",
                  "Documents@2.Item(2) -> Document@2",
                  "Document@2.FullName -> \"" + escaped(folder.file("TEST.doc")) + "\"",
                  "Document@2.Close(missing, missing, missing)",
                  "Documents@2.Add(missing, missing, missing, missing) -> Document@4",
              }));
    EXPECT_EQ(word.model().documentCount(), 3);
}

TEST_F(RunningDocumentTest, AFailureInLookingForItReachesTheClientAsItIs)
{
    const standin::RunningApplication running(word);
    word.application()->GetDocuments()->Add()->SaveAs(bstr(documentName()));
    start();
    const std::map<long, const char*> calls = {
        {6, "Documents@2.Count"}, {7, "Documents@2.Item(1)"}, {8, "Document@1.FullName"}};
    for (const auto& [call, line] : calls) {
        word.clearTranscript();
        word.failCall(call, refused);
        EXPECT_EQ(outcome([&] { return client->create(bstr(documentName())); }), "_com_error 0x800a1234");
        EXPECT_EQ(takeTranscript().back(), std::string(line) + " !! 0x800a1234");
        EXPECT_EQ(word.model().documentCount(), 1) << "nothing is closed or added";
        EXPECT_THAT(client->insertText(L"lost"_b), isHresult(S_OK));
        EXPECT_EQ(takeTranscript(), Lines());
    }
    EXPECT_THAT(client->create(bstr(documentName())), isHresult(S_OK));
    EXPECT_EQ(word.model().documentCount(), 1);
}

TEST_F(RunningDocumentTest, LeavesWordAloneWhenAnotherProgramHasTheFileOpen)
{
    const standin::SessionOptions announcing{{}, true};
    const standin::Session other(announcing);
    const Word::_DocumentPtr document = other.application()->GetDocuments()->Add();
    document->SaveAs(bstr(documentName()));
    start();
    word.clearTranscript();
    EXPECT_THAT(client->create(bstr(documentName())), isHresult(S_OK));
    const Lines calls = takeTranscript();
    EXPECT_EQ(calls[5], "Documents@1.Count -> 0");
    EXPECT_EQ(calls[6], "Documents@1.Add(missing, missing, missing, missing) -> Document@1");
}

} // namespace
