#include "Mirovel.h"

#include "MirovelCall.h"
#include "SettingsReport.h"
#include "ShellOpen.h"
#include "TemplateChoice.h"
#include "WordTypeLibrary.h"
#include "WriterChoice.h"

#include "BusyWord.h"
#include "TextConversion.h"
#include "WordConstants.h"
#include "sysSupport/SysCOMSupport.h"
#include "sysSupport/SysFile.h"

#include <chrono>
#include <string>

namespace {

using diagnostics::Event;

constexpr char wordClass[] = "{000209FF-0000-0000-C000-000000000046}";

/// How long Word may take to let go of the files it had open, in milliseconds.
constexpr DWORD wordExitTime = 1000;

/// What a document answers that somebody has closed.
constexpr auto objectDeleted = static_cast<HRESULT>(0x800A16C1);

/// Word is registered nowhere.
constexpr HRESULT wordNotInstalled = CO_E_CLASSSTRING;

constexpr char wordName[] = "Word.Application";

/// Null when none runs, or none that can be reached.
IUnknownPtr findRunningWord()
{
    IUnknownPtr running;
    const HRESULT found = Word::callPatiently({wordName, "GetActiveObject"},
                                              [&] { return SysCOMSupport::findRunning(wordClass, running); });
    return SUCCEEDED(found) ? running : IUnknownPtr();
}

Word::_ApplicationPtr applicationOf(IUnknown* running)
{
    Word::_ApplicationPtr application;
    const HRESULT asked = Word::callPatiently({wordName, "QueryInterface"}, [&] {
        return running->QueryInterface(__uuidof(Word::_Application), reinterpret_cast<void**>(&application));
    });
    if (FAILED(asked) && asked != E_NOINTERFACE)
        _com_issue_error(asked);
    return application;
}

Word::_ApplicationPtr startWord()
{
    Word::_ApplicationPtr application;
    const HRESULT created = Word::callPatiently({wordName, "CreateInstance"}, [&] {
        return application.CreateInstance(L"Word.Application", nullptr, CLSCTX_ALL);
    });
    if (FAILED(created) && created != E_NOINTERFACE)
        _com_issue_error(created);
    return application;
}

// Nobody sees the Word that `start` began, so nobody else would end it.
void quitUnused(const Word::_ApplicationPtr& application)
try {
    application->Quit();
} catch (
    const _com_error&) { // NOLINT(bugprone-empty-catch): the failure before this one is the one to report
}

void tell(DocSession& session, const char* what) noexcept
{
    session.diagnostics.tell([&] { return Event{.what = what}; });
}

/// Asks Word for more than it would be asked otherwise.
void tellWhichWord(DocSession& session, bool wasRunning) noexcept
{
    session.diagnostics.tell([&] {
        std::string word = wasRunning ? "Word found running" : "Word started";
        try {
            const auto text = [](const _bstr_t& said) {
                return toUtf8(std::wstring_view(said, said.length()));
            };
            word.append(", version ").append(text(session.application->GetVersion()));
            word.append(", build ").append(text(session.application->GetBuild()));
        } catch (const _com_error&) {
            word.append(", which does not say more of itself");
        }
        return Event{.what = std::move(word)};
    });
}

bool isWordDocument(const QdxString& fileName)
{
    return fileName.find(".doc") != QdxString::npos;
}

} // namespace

MIROVEL_NOT_INLINED STDMETHODIMP Mirovel::start()
try {
    const MethodScope method(*session_, "start");
    if (session_->wordStarted)
        return method.ignored(Silence::startedAlready);
    echo("start");
    runInFrame([&] { connectToWord(); },
               [&](const _com_error& error) {
                   session_->events.reporting(error.Error());
                   if (error.Error() == wordNotInstalled)
                       throwLogged(QdxException("Cannot open Word\nPlease install Word.\n"));
                   reportComError(*session_, "Cannot open Word", error);
               },
               [&] { session_->events.swallowed(swallowingRule); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

void Mirovel::connectToWord()
{
    DocSession& session = *session_;
    session.wordTypeLibrary = loadWordTypeLibrary();
    const bool own = session.settings.isOn(SettingName::ownInstance);
    const IUnknownPtr running = own ? IUnknownPtr() : findRunningWord();
    const Word::_ApplicationPtr application = running ? applicationOf(running) : startWord();
    try {
        session.documents = application->GetDocuments();
    } catch (const _com_error&) {
        if (!running)
            quitUnused(application);
        throw;
    }
    session.application = application;
    session.ownsWord = own;
    session.wordStarted = true;
    tellWhichWord(session, running != nullptr);
}

STDMETHODIMP Mirovel::create(BSTR fileName)
try {
    const MethodScope method(*session_, "create");
    DocSession& session = *session_;
    if (!session.wordStarted) {
        session.events.ignored(Silence::notStarted, {});
        method.raiseWhatWasSilent();
        return E_FAIL;
    }
    session.settings = SettingsRecord::read(session.registry);
    session.followSettings();
    session.diagnostics.setDocument(fileName ? fileName : L"");
    tellSettings(session);
    method.raiseWhatWasSilent();
    const Word::_DocumentPtr earlier = session.document;
    const QdxString earlierName = session.fileName;
    try {
        makeDocument(fileName);
    } catch (...) {
        goBackTo(earlier, earlierName);
        throw;
    }
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

// What the client says from now on goes to the writer that is left, so that one's document is to be saved. If
// it had the same name, it is closed.
void Mirovel::goBackTo(const Word::_DocumentPtr& document, const QdxString& name)
{
    DocSession& session = *session_;
    if (!session.writer || !session.writer->keepsDocument() || session.fileName == name)
        return;
    session.document = document;
    session.fileName = name;
    const _bstr_t wide = toWide(name);
    session.diagnostics.setDocument({wide, wide.length()});
}

void Mirovel::makeDocument(BSTR fileName)
{
    DocSession& session = *session_;
    switchProofingOff();

    session.fileName = toNarrow(fileName);
    session.fileName.toLower();
    session.pageNumber = 1;
    if (echoes()) {
        echo("create", Quoted{session.fileName});
        session.trace << "// Page 1" << std::endl;
    }
    if (SysFile::getExtension(session.fileName).isEmpty())
        session.fileName.append(".doc");

    closeRunningCopy();
    addDocument();
    if (session.ownsWord)
        session.ownDocuments.push_back(session.document);
    std::unique_ptr<DocumentWriter> writer = chooseWriter(session.settings, session.trace, &session.events);
    framed("Saving document", [&] { saveDocument(*writer); });
    session.tocLevel = session.settings.integer(SettingName::tocLevel);
    session.saveEmf = session.settings.isOn(SettingName::saveEmf);
    completeDocument();
    writer->begin(session.application, session.document);
    session.writer = std::move(writer);
    session.documentOpen = true;
    tell(session, "Document opened");
    session.events.documentIsSafe();
}

void Mirovel::switchProofingOff()
{
    DocSession& session = *session_;
    session.options = session.application->GetOptions();
    if (!session.options)
        return;
    session.savedGrammarCheck = session.options->GetCheckGrammarAsYouType();
    session.options->PutCheckGrammarAsYouType(VARIANT_FALSE);
    session.savedSpellingCheck = session.options->GetCheckSpellingAsYouType();
    session.options->PutCheckSpellingAsYouType(VARIANT_FALSE);
}

void Mirovel::restoreProofing()
{
    const DocSession& session = *session_;
    if (!session.options)
        return;
    session.options->PutCheckGrammarAsYouType(session.savedGrammarCheck);
    session.options->PutCheckSpellingAsYouType(session.savedSpellingCheck);
}

// Word cannot save over a document that is open under the same name.
void Mirovel::closeRunningCopy()
{
    const DocSession& session = *session_;
    if (!SysCOMSupport::isFileRunning(session.fileName))
        return;
    const long count = session.documents->GetCount();
    for (long index = 1; index <= count; ++index) {
        const Word::_DocumentPtr candidate = session.documents->Item(Word::integer(index));
        if (!candidate)
            return;
        QdxString name = toNarrow(candidate->GetFullName());
        name.toLower();
        if (name == session.fileName) {
            candidate->Close();
            return;
        }
    }
}

void Mirovel::addDocument()
{
    DocSession& session = *session_;
    const QdxString templateName = chooseTemplate(session.settings);
    session.diagnostics.tell([&] {
        return Event{.what = templateName.isEmpty() ? "Template chosen: Word's own default"
                                                    : "Template chosen: " + toUtf8(templateName)};
    });
    if (!templateName.isEmpty()) {
        if (SysFile::exists(templateName)) {
            try {
                session.document = session.documents->Add(Word::text(toWide(templateName)));
                return;
            } catch (const _com_error&) {
                askAfterRefusedTemplate(session, templateName);
            }
        } else {
            askAfterMissingTemplate(session, templateName);
        }
    }
    framed("Adding document", [&] { session.document = session.documents->Add(); });
}

void Mirovel::saveDocument(const DocumentWriter& writer)
{
    using std::chrono::steady_clock;
    const _bstr_t fileName = toWide(session_->fileName);
    const steady_clock::time_point start = steady_clock::now();
    session_->document->SaveAs(fileName, writer.saveFormat({fileName, fileName.length()}));
    session_->diagnostics.tell([&] {
        const auto time =
            std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now() - start).count();
        return Event{.what =
                         "Document saved in " + std::to_string(time) + " ms: " + toUtf8(session_->fileName)};
    });
}

// A writer that fails stays, so that it can go on.
void Mirovel::completeDocument()
{
    DocSession& session = *session_;
    if (session.writer)
        session.writer->finish();
    session.writer.reset();
}

MIROVEL_NOT_INLINED STDMETHODIMP Mirovel::close()
try {
    const MethodScope method(*session_, "close");
    DocSession& session = *session_;
    if (!session.documentOpen)
        return method.ignored(Silence::noDocument);
    echo("close");
    framed("Saving document", [&] {
        DocumentWriter& writer = session.currentWriter();
        writer.finish();
        restoreProofing();
        saveDocument(writer);
        session.document->Close();
        session.ownDocuments.remove_if([&](const Word::_DocumentPtr& document) {
            return document.GetInterfacePtr() == session.document.GetInterfacePtr();
        });
        session.writer.reset();
        session.documentOpen = false;
        tell(session, "Document closed");
        session.diagnostics.setDocument(L"");
    });
    if (!session.documentOpen)
        session.events.documentIsSafe();
    deleteTemporaryFiles();
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

// Word holds on to the files it has inserted until it ends.
void Mirovel::deleteTemporaryFiles()
{
    std::list<QdxString>& files = session_->temporaryFiles;
    if (files.empty())
        return;
    stop();
    Sleep(wordExitTime);
    for (const QdxString& file : files)
        SysFile::deleteFile(file);
    files.clear();
}

MIROVEL_NOT_INLINED STDMETHODIMP Mirovel::stop()
try {
    const MethodScope method(*session_, "stop");
    if (!session_->wordStarted)
        return method.ignored(Silence::notStarted);
    echo("stop");
    framed("Cannot close all Word Documents",
           [&] { session_->ownsWord ? closeOwnDocuments() : closeAllDocuments(); });
    quitWord();
    session_->wordStarted = false;
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

// Who has opened something in it meanwhile, a user or another program, keeps it.
void Mirovel::quitWord()
{
    DocSession& session = *session_;
    if (session.ownsWord && session.documents->GetCount() != 0) {
        tell(session, "Word is left running: others have documents open in it");
        return;
    }
    session.application->Quit();
    tell(session, "Word ended");
}

void Mirovel::closeOwnDocuments()
{
    std::list<Word::_DocumentPtr>& documents = session_->ownDocuments;
    for (; !documents.empty(); documents.pop_front()) {
        try {
            documents.front()->Close(Word::integer(Word::wdSaveChanges));
        } catch (const _com_error& error) {
            if (error.Error() != objectDeleted && error.Error() != RPC_E_DISCONNECTED)
                throw;
        }
    }
}

void Mirovel::closeAllDocuments()
{
    if (session_->documents->GetCount() > 0)
        session_->documents->Close(Word::integer(Word::wdSaveChanges));
}

STDMETHODIMP Mirovel::showLast()
try {
    const MethodScope method(*session_, "showLast");
    const DocSession& session = *session_;
    const bool wordDocument = isWordDocument(session.fileName);
    if (wordDocument && !session.wordStarted)
        start();
    shellOpen(session.fileName);
    if (wordDocument && session.wordStarted)
        session.application->PutVisible(VARIANT_TRUE);
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}
