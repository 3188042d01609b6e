#include "Mirovel.h"

#include "MirovelCall.h"
#include "StubCall.h"

#include "DocumentWriter.h"

namespace {

constexpr wchar_t propertyPageClass[] = L"{5C2E7A11-3B41-4D8E-9F62-A1B3C4D5E6F7}";
constexpr wchar_t documentType[] = L"Word";
constexpr wchar_t programId[] = L"Mirovel.Mirovel";

/// How often an object that is destroyed tries to complete its document: once for each part that may fail.
constexpr int mostCompletions = 4;

void returnText(BSTR* out, const wchar_t* text)
{
    if (!out)
        _com_issue_error(E_POINTER);
    *out = SysAllocString(text);
    if (!*out)
        _com_issue_error(E_OUTOFMEMORY);
}

/// An ended Word does not answer either, so that nothing is claimed of one that does not.
void tellThatWordStays(DocSession& session, bool visible, bool answers) noexcept
{
    session.diagnostics.tell([&] {
        const char* const what = !answers  ? "Word is left as it is: it does not answer"
                                 : visible ? "Word is left running: its window is visible"
                                           : "Word is left running: it could not be ended";
        return diagnostics::Event{.severity = diagnostics::Severity::warning, .what = what};
    });
}

} // namespace

Mirovel::Mirovel() : IDispatchImpl(programId), session_(std::make_unique<DocSession>()) {}

Mirovel::~Mirovel()
{
    DocSession& session = *session_;
    session.quietErrors = true;
    session.events.setQuiet();
    const MethodScope method(session, "Release");
    if (session.wordStarted) {
        // A Word that does not say stays: the user may be looking at it.
        bool visible = true;
        bool answers = false;
        framed("Looking for Word's window", [&] {
            visible = session.application->GetVisible() != VARIANT_FALSE;
            answers = true;
        });
        // Word had its time with that call; the host need not wait for each of the others as well.
        if (!answers)
            session.wordCalls.busyTimeout = {};
        if (!visible) {
            framed("Closing the document", [&] { close(); });
            framed("Stopping Word", [&] { stop(); });
        }
        if (session.wordStarted)
            tellThatWordStays(session, visible, answers);
    }
    // What fails leaves the rest to be completed.
    for (int i = 0; i < mostCompletions && session.writer && !session.writer->isFinished(); ++i)
        framed("Completing the document", [&] { session.writer->finish(); });
}

HRESULT Mirovel::failed(const void* caller) const
{
    session_->events.toldTheClient();
    if (!session_->events.isStrict())
        return leaveMethod(caller, IID_IDocument, programId);
    try {
        raiseWithText(*session_);
    } catch (...) {
        return leaveMethod(caller, IID_IDocument, programId);
    }
}

STDMETHODIMP Mirovel::InterfaceSupportsErrorInfo(REFIID iid) noexcept
{
    return IsEqualIID(iid, IID_IDocument) ? S_OK : S_FALSE;
}

STDMETHODIMP Mirovel::getPropPages(BSTR* bstrCLSID)
try {
    const MethodScope method(*session_, "getPropPages");
    returnText(bstrCLSID, propertyPageClass);
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::getDocType(BSTR* docType)
try {
    const MethodScope method(*session_, "getDocType");
    returnText(docType, documentType);
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

// Kept for clients that were written against them.

STDMETHODIMP Mirovel::insertDiagram(long /*ptr*/, short /*width*/, short /*height*/)
try {
    const MethodScope method(*session_, "insertDiagram");
    if (!session_->documentOpen)
        return method.ignored(Silence::noDocument);
    runInDiagramFrame(*session_, "Inserting diagram", [] {});
    return method.ignored(Silence::withoutEffect);
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::setOption(BSTR /*option*/, BSTR /*value*/)
{
    const MethodScope method(*session_, "setOption");
    return method.ignored(Silence::withoutEffect);
}

STDMETHODIMP Mirovel::insertMark(long /*ptr*/, VARIANT_BOOL /*isPrimary*/)
{
    const MethodScope method(*session_, "insertMark");
    return method.ignored(Silence::withoutEffect);
}

STDMETHODIMP Mirovel::startFile(BSTR /*fileName*/)
{
    const MethodScope method(*session_, "startFile");
    return method.ignored(Silence::withoutEffect);
}

STDMETHODIMP Mirovel::insertLocate()
{
    const MethodScope method(*session_, "insertLocate");
    return method.ignored(Silence::withoutEffect);
}

STDMETHODIMP Mirovel::pushDirectory(BSTR /*directoryName*/)
{
    const MethodScope method(*session_, "pushDirectory");
    return method.ignored(Silence::withoutEffect);
}

STDMETHODIMP Mirovel::popDirectory()
{
    const MethodScope method(*session_, "popDirectory");
    return method.ignored(Silence::withoutEffect);
}
