#include "Mirovel.h"

#include "MirovelCall.h"
#include "ShellOpen.h"
#include "TemplateChoice.h"
#include "WriterChoice.h"

#include "BusyWord.h"
#include "WordConstants.h"
#include "sysSupport/SysCOMSupport.h"
#include "sysSupport/SysFile.h"

namespace {

constexpr char wordClass[] = "{000209FF-0000-0000-C000-000000000046}";

/// How long Word may take to let go of the files it had open, in milliseconds.
constexpr DWORD wordExitTime = 1000;

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
void quitWord(const Word::_ApplicationPtr& application)
try {
    application->Quit();
} catch (
    const _com_error&) { // NOLINT(bugprone-empty-catch): the failure before this one is the one to report
}

bool isWordDocument(const QdxString& fileName)
{
    return fileName.find(".doc") != QdxString::npos;
}

} // namespace

MIROVEL_NOT_INLINED STDMETHODIMP Mirovel::start()
try {
    if (session_->wordStarted)
        return S_OK;
    echo("start");
    const Word::CallScope calls(session_->wordCalls);
    runInFrame([&] { connectToWord(); },
               [&](const _com_error& error) {
                   if (error.Error() == wordNotInstalled)
                       throwLogged(QdxException("Cannot open Word\nPlease install Word.\n"));
                   reportComError(*session_, "Cannot open Word", error);
               });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

void Mirovel::connectToWord()
{
    DocSession& session = *session_;
    const IUnknownPtr running = findRunningWord();
    const Word::_ApplicationPtr application = running ? applicationOf(running) : startWord();
    try {
        session.documents = application->GetDocuments();
    } catch (const _com_error&) {
        if (!running)
            quitWord(application);
        throw;
    }
    session.application = application;
    session.wordStarted = true;
}

STDMETHODIMP Mirovel::create(BSTR fileName)
try {
    DocSession& session = *session_;
    if (!session.wordStarted)
        return E_FAIL;
    session.settings = SettingsRecord::read(session.registry);
    session.followSettings();
    const Word::CallScope calls(session.wordCalls);
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
    std::unique_ptr<DocumentWriter> writer = chooseWriter(session.settings, session.trace);
    framed("Saving document", [&] { saveDocument(*writer); });
    session.tocLevel = session.settings.integer(SettingName::tocLevel);
    session.saveEmf = session.settings.isOn(SettingName::saveEmf);
    completeDocument();
    writer->begin(session.application, session.document);
    session.writer = std::move(writer);
    session.documentOpen = true;
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
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
    if (!templateName.isEmpty()) {
        if (SysFile::exists(templateName)) {
            try {
                session.document = session.documents->Add(Word::text(toWide(templateName)));
                return;
            } catch (const _com_error&) {
                askAfterRefusedTemplate(templateName);
            }
        } else {
            askAfterMissingTemplate(templateName);
        }
    }
    framed("Adding document", [&] { session.document = session.documents->Add(); });
}

void Mirovel::saveDocument(const DocumentWriter& writer)
{
    const _bstr_t fileName = toWide(session_->fileName);
    session_->document->SaveAs(fileName, writer.saveFormat({fileName, fileName.length()}));
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
    DocSession& session = *session_;
    if (!session.documentOpen)
        return S_OK;
    echo("close");
    framed("Saving document", [&] {
        DocumentWriter& writer = session.currentWriter();
        writer.finish();
        restoreProofing();
        saveDocument(writer);
        session.document->Close();
        session.writer.reset();
        session.documentOpen = false;
    });
    deleteTemporaryFiles();
    return S_OK;
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
    if (!session_->wordStarted)
        return S_OK;
    echo("stop");
    const Word::CallScope calls(session_->wordCalls);
    framed("Cannot close all Word Documents", [&] { closeAllDocuments(); });
    session_->application->Quit();
    session_->wordStarted = false;
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

void Mirovel::closeAllDocuments()
{
    if (session_->documents->GetCount() > 0)
        session_->documents->Close(Word::integer(Word::wdSaveChanges));
}

STDMETHODIMP Mirovel::showLast()
try {
    const DocSession& session = *session_;
    const bool wordDocument = isWordDocument(session.fileName);
    if (wordDocument && !session.wordStarted)
        start();
    shellOpen(session.fileName);
    const Word::CallScope calls(session.wordCalls);
    if (wordDocument && session.wordStarted)
        session.application->PutVisible(VARIANT_TRUE);
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}
