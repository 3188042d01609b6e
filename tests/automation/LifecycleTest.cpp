// start, create, close, stop and showLast, in every state.
#include "FrontEndTest.h"
#include "OtherWord.h"

#include "Document.h"
#include "RunningApplication.h"

#include <map>

namespace {

std::string escaped(const std::string& name)
{
    std::string text;
    for (const char c : name)
        text += c == '\\' ? "\\\\" : std::string(1, c);
    return text;
}

std::string missingArguments(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += ", missing";
    return text;
}

std::string saveCall(const std::string& document, const std::string& name)
{
    return document + ".SaveAs(\"" + escaped(name) + "\"" + missingArguments(10) + ")";
}

/// What `create` tells Word, from the options to the emptied document.
Lines createCalls(const std::string& name)
{
    return {
        "application.Options -> application.Options",
        "application.Options.CheckGrammarAsYouType -> true",
        "application.Options.CheckGrammarAsYouType = false",
        "application.Options.CheckSpellingAsYouType -> true",
        "application.Options.CheckSpellingAsYouType = false",
        "application.Documents.Add(missing, missing, missing, missing) -> document",
        saveCall("document", name),
        "document.Range(missing, missing) -> body",
        "document.Styles -> document.Styles",
        "document.Styles.Item(-1) -> document.Styles(-1)",
        "document.Styles(-1).Font -> document.Styles(-1).Font",
        "document.Styles(-1).Font.Name -> \"Times New Roman\"",
        "document.Styles(-1).Font.Size -> 12f",
        "document.Styles(-1).Font.Bold -> 0",
        "document.Styles(-1).Font.Italic -> 0",
        "document.Styles(-1).Font.Underline -> 0",
        "document.Styles(-1).Font.StrikeThrough -> 0",
        "document.PageSetup -> document.PageSetup",
        "document.PageSetup.PageWidth -> 612f",
        "document.PageSetup.RightMargin -> 90f",
        "document.PageSetup.LeftMargin -> 90f",
        "body.Delete(missing, missing) -> 1",
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
    EXPECT_LINES(takeTranscript(), Lines{"application.Documents -> application.Documents"});
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
    const standin::RunningApplication running(*word.application());
    start();
    EXPECT_EQ(installed->created(), 0);
    EXPECT_LINES(takeTranscript(), Lines{"application.Documents -> application.Documents"});
    EXPECT_THAT(client->create(bstr(documentName())), isHresult(S_OK));
    EXPECT_EQ(word.model().documentCount(), 1);
}

TEST_F(LifecycleTest, AsksForWordWhenItIsNotInstalled)
{
    installed.reset();
    RecordedExceptionLog exceptions;
    EXPECT_EQ(outcome([&] { return client->start(); }),
              "QdxException: Cannot open Word\nPlease install Word.\n");
    EXPECT_LINES(exceptions.lines, Lines{"Exception throw: Cannot open Word\nPlease install Word.\n"});
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
        standin::InProcessWord started;
        installed.reset();
        installed = std::make_unique<standin::ClassRegistration>(started);
        started.failCall(1, refused);
        if (quitFails)
            started.failCall(2, E_ACCESSDENIED);
        EXPECT_EQ(outcome([&] { return client->start(); }),
                  "QdxException: Cannot open Word\nCOMERROR 0x800a1234\nUnknown error 0x800A1234");
        EXPECT_LINES(started.transcript(), (Lines{"application.Documents !! 0x800a1234",
                                                  std::string("application.Quit(missing, missing, missing)") +
                                                      (quitFails ? " !! 0x80070005" : "")}));
        EXPECT_EQ(started.hasQuit(), !quitFails);
        EXPECT_EQ(started.liveObjects(), 0);
    }
}

TEST_F(LifecycleTest, LeavesARunningWordAloneThatDoesNotAnswer)
{
    const standin::RunningApplication running(*word.application());
    word.failCall(1, refused);
    EXPECT_THROW(client->start(), QdxException);
    EXPECT_LINES(takeTranscript(), Lines{"application.Documents !! 0x800a1234"});
    EXPECT_FALSE(word.hasQuit());
}

std::string cannotOpenWord(HRESULT code)
{
    return std::string("QdxException: Cannot open Word\nCOMERROR ") + hexadecimal(code) + "\n" +
           systemMessage(code);
}

// It leaves the application pointer empty, and the first call through that fails.
TEST_F(LifecycleTest, TakesAnObjectThatIsNoWordForNone)
{
    Lines outcomes;
    for (const bool running : {true, false}) {
        for (const HRESULT refusal : {E_NOINTERFACE, E_ACCESSDENIED}) {
            OtherWord object([&](REFIID, void** out) {
                *out = nullptr;
                return refusal;
            });
            OtherWord factory([&](REFIID iid, void** out) { return object.QueryInterface(iid, out); });
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
    EXPECT_LINES(outcomes, (Lines{cannotOpenWord(E_POINTER), cannotOpenWord(E_ACCESSDENIED),
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
        EXPECT_LINES(takeTranscript(), Lines()) << "no document is open";
    };
    expectFailure(1, "application.Options");
    EXPECT_EQ(word.model().documentCount(), 0);
    expectFailure(8, "document.Range(missing, missing)");
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
    EXPECT_LINES(takeTranscript(), (Lines{
                                       "body.Start = 0",
                                       "body.End = 3",
                                       "body.Style = -1",
                                       "body.Start = 0",
                                       "body.End = 3",
                                       "body.Font -> body.Font",
                                       "body.Font.Name = \"Times New Roman\"",
                                       "body.Font.Size = 12f",
                                       "body.Font.Bold = 0",
                                       "body.Font.Italic = 0",
                                       "body.Font.Underline = 0",
                                       "body.Font.StrikeThrough = 0",
                                       "document.UndoClear()",
                                       "application.Options.CheckGrammarAsYouType = true",
                                       "application.Options.CheckSpellingAsYouType = true",
                                       saveCall("document", documentName()),
                                       "document.Close(missing, missing, missing)",
                                   }));
    EXPECT_THAT(contentOf(documentName()), testing::HasSubstr("abc"));
    EXPECT_EQ(word.model().documentCount(), 0);
}

TEST_F(LifecycleTest, StopsStepByStep)
{
    start();
    word.clearTranscript();
    EXPECT_THAT(client->stop(), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(),
                 (Lines{"application.Documents.Count -> 0", "application.Quit(missing, missing, missing)"}));
    EXPECT_TRUE(word.hasQuit());
}

TEST_F(LifecycleTest, SavesAndClosesEveryDocumentWhenItStops)
{
    openDocument();
    EXPECT_THAT(client->insertText(L"abc"_b), isHresult(S_OK));
    word.clearTranscript();
    EXPECT_THAT(client->stop(), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(), (Lines{"application.Documents.Count -> 1",
                                          "application.Documents.Close(-1, missing, missing)",
                                          "application.Quit(missing, missing, missing)"}));
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
    EXPECT_THAT(word.transcript(), testing::Contains(saveCall("document", folder.file("report") + ".doc")));
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
    EXPECT_THAT(calls, testing::Not(testing::Contains(testing::HasSubstr("document.SaveAs"))));
    EXPECT_THAT(calls, testing::Not(testing::Contains(testing::HasSubstr(".Close("))));
    // The first writer's pending work is done after the new document has been saved, before the new writer is
    // made.
    const auto indexOf = [&](const std::string& line) {
        return std::ranges::find(calls, line) - calls.begin();
    };
    EXPECT_LT(indexOf(saveCall("document2", folder.file("second.doc"))), indexOf("body.Style = -1"));
    EXPECT_LT(indexOf("body.Style = -1"), indexOf("document2.Range(missing, missing) -> document2.body"));
    EXPECT_THAT(client->close(), isHresult(S_OK));
    EXPECT_EQ(word.model().documentCount(), 1);
    EXPECT_THAT(client->close(), isHresult(S_OK)); // nothing more to close
    EXPECT_EQ(word.model().documentCount(), 1);
}

TEST_F(LifecycleTest, SavesTheNextDocumentAlthoughItsCreateFailed)
{
    openDocument();
    const auto first = word.model().documents().front();
    client->insertText(L"abc"_b);
    word.failCall(7, refused); // the first save
    EXPECT_THROW(client->create(bstr(folder.file("second.doc"))), QdxException);
    client->insertText(L"def"_b);
    EXPECT_EQ(first->mainStory()->text(0, 6), u"abcdef");
    word.clearTranscript();
    EXPECT_THAT(client->close(), isHresult(S_OK));
    EXPECT_THAT(takeTranscript(), testing::Contains(saveCall("document2", folder.file("second.doc"))));
    EXPECT_FALSE(first->isClosed());
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
    EXPECT_LINES(styled, (Lines{"document.Sections(1).Headers(1).Range.Style = -32",
                                "document.Sections(1).Footers(1).Range.Style = -33", "body.Style = -1"}));
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
    EXPECT_LINES(takeTranscript(), (Lines{
                                       "application.Options.CheckGrammarAsYouType = true",
                                       "application.Options.CheckSpellingAsYouType = true",
                                       saveCall("document", documentName()),
                                       "document.Close(missing, missing, missing)",
                                   }));
    EXPECT_THAT(client->close(), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(), Lines());
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
    EXPECT_LINES(opened, Lines{documentName()});
    EXPECT_LINES(takeTranscript(), Lines{"application.Visible = true"});
}

TEST_F(LifecycleTest, OnlyOpensWhatIsNoWordDocument)
{
    start();
    EXPECT_THAT(client->create(bstr(folder.file("a.rtf"))), isHresult(S_OK));
    client->close();
    word.clearTranscript();
    EXPECT_THAT(client->showLast(), isHresult(S_OK));
    EXPECT_LINES(opened, Lines{folder.file("a.rtf")});
    EXPECT_LINES(takeTranscript(), Lines());
}

TEST_F(LifecycleTest, TakesTheExtensionAnywhereForAWordDocument)
{
    start();
    EXPECT_THAT(client->create(bstr(folder.file("a.docs.rtf"))), isHresult(S_OK));
    word.clearTranscript();
    EXPECT_THAT(client->showLast(), isHresult(S_OK));
    EXPECT_LINES(takeTranscript(), Lines{"application.Visible = true"});
}

TEST_F(LifecycleTest, ShowsNothingBeforeAnyDocument)
{
    EXPECT_THAT(client->showLast(), isHresult(S_OK));
    EXPECT_LINES(opened, Lines{""});
    EXPECT_EQ(word.callCount(), 0);
}

class RunningDocumentTest : public FrontEndTest
{
protected:
    RunningDocumentTest() : FrontEndTest({{}, true}) {}
};

TEST_F(RunningDocumentTest, ClosesTheDocumentThatIsOpenUnderTheName)
{
    const standin::RunningApplication running(*word.application());
    const Word::DocumentsPtr documents = word.application()->GetDocuments();
    documents->Add()->SaveAs(bstr(folder.file("other.doc")));
    documents->Add()->SaveAs(bstr(folder.file("TEST.doc")));
    documents->Add()->SaveAs(bstr(folder.file("third.doc")));
    start();
    word.clearTranscript();
    EXPECT_THAT(client->create(bstr(documentName())), isHresult(S_OK));
    const Lines calls = takeTranscript();
    ASSERT_GE(calls.size(), 11U);
    EXPECT_LINES(Lines(calls.begin() + 5, calls.begin() + 12),
                 (Lines{
                     "application.Documents.Count -> 3",
                     "application.Documents.Item(1) -> document3",
                     "document3.FullName -> \"" + escaped(folder.file("third.doc")) + "\"",
                     "application.Documents.Item(2) -> document2",
                     "document2.FullName -> \"" + escaped(folder.file("TEST.doc")) + "\"",
                     "document2.Close(missing, missing, missing)",
                     "application.Documents.Add(missing, missing, missing, missing) -> document4",
                 }));
    EXPECT_EQ(word.model().documentCount(), 3);
}

TEST_F(RunningDocumentTest, AFailureInLookingForItReachesTheClientAsItIs)
{
    const standin::RunningApplication running(*word.application());
    word.application()->GetDocuments()->Add()->SaveAs(bstr(documentName()));
    start();
    const std::map<long, const char*> calls = {
        {6, "application.Documents.Count"}, {7, "application.Documents.Item(1)"}, {8, "document.FullName"}};
    for (const auto& [call, line] : calls) {
        word.clearTranscript();
        word.failCall(call, refused);
        EXPECT_EQ(outcome([&] { return client->create(bstr(documentName())); }), "_com_error 0x800a1234");
        EXPECT_EQ(takeTranscript().back(), std::string(line) + " !! 0x800a1234");
        EXPECT_EQ(word.model().documentCount(), 1) << "nothing is closed or added";
        EXPECT_THAT(client->insertText(L"lost"_b), isHresult(S_OK));
        EXPECT_LINES(takeTranscript(), Lines());
    }
    EXPECT_THAT(client->create(bstr(documentName())), isHresult(S_OK));
    EXPECT_EQ(word.model().documentCount(), 1);
}

TEST_F(RunningDocumentTest, LeavesWordAloneWhenAnotherProgramHasTheFileOpen)
{
    const standin::InProcessWordOptions announcing{{}, true};
    const standin::InProcessWord other(announcing);
    const Word::_DocumentPtr document = other.application()->GetDocuments()->Add();
    document->SaveAs(bstr(documentName()));
    start();
    word.clearTranscript();
    EXPECT_THAT(client->create(bstr(documentName())), isHresult(S_OK));
    const Lines calls = takeTranscript();
    EXPECT_EQ(calls[5], "application.Documents.Count -> 0");
    EXPECT_EQ(calls[6], "application.Documents.Add(missing, missing, missing, missing) -> document");
}

} // namespace
