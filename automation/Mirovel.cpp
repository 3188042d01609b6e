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

} // namespace

Mirovel::Mirovel() : IDispatchImpl(programId), session_(std::make_unique<DocSession>()) {}

Mirovel::~Mirovel()
{
    DocSession& session = *session_;
    session.quietErrors = true;
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
    }
    // What fails leaves the rest to be completed.
    for (int i = 0; i < mostCompletions && session.writer && !session.writer->isFinished(); ++i)
        framed("Completing the document", [&] { session.writer->finish(); });
}

HRESULT Mirovel::failed(const void* caller)
{
    return leaveMethod(caller, IID_IDocument, programId);
}

STDMETHODIMP Mirovel::InterfaceSupportsErrorInfo(REFIID iid) noexcept
{
    return IsEqualIID(iid, IID_IDocument) ? S_OK : S_FALSE;
}

STDMETHODIMP Mirovel::getPropPages(BSTR* bstrCLSID)
try {
    returnText(bstrCLSID, propertyPageClass);
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::getDocType(BSTR* docType)
try {
    returnText(docType, documentType);
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

// Kept for clients that were written against them.

STDMETHODIMP Mirovel::insertDiagram(long /*ptr*/, short /*width*/, short /*height*/)
try {
    if (!session_->documentOpen)
        return S_OK;
    runInDiagramFrame(*session_, "Inserting diagram", [] {});
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::setOption(BSTR /*option*/, BSTR /*value*/)
{
    return S_OK;
}

STDMETHODIMP Mirovel::insertMark(long /*ptr*/, VARIANT_BOOL /*isPrimary*/)
{
    return S_OK;
}

STDMETHODIMP Mirovel::startFile(BSTR /*fileName*/)
{
    return S_OK;
}

STDMETHODIMP Mirovel::insertLocate()
{
    return S_OK;
}

STDMETHODIMP Mirovel::pushDirectory(BSTR /*directoryName*/)
{
    return S_OK;
}

STDMETHODIMP Mirovel::popDirectory()
{
    return S_OK;
}
