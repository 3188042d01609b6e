#include "Mirovel.h"

#include "MirovelCall.h"

#include "DocumentWriter.h"
#include "WordConstants.h"

namespace {

constexpr short landscape = 1;
constexpr float leftMargin = 130.0F; // points, in either orientation

} // namespace

STDMETHODIMP Mirovel::startHeader()
try {
    if (!session_->documentOpen)
        return S_OK;
    echo("startHeader");
    framed("startHeader", [&] { session_->currentWriter().startHeader(); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::endHeader()
try {
    if (!session_->documentOpen)
        return S_OK;
    echo("endHeader");
    withWriter([](DocumentWriter& writer) { writer.endHeader(); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::startFooter()
try {
    if (!session_->documentOpen)
        return S_OK;
    echo("startFooter");
    framed("startFooter", [&] { session_->currentWriter().startFooter(); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::endFooter()
try {
    if (!session_->documentOpen)
        return S_OK;
    echo("endFooter");
    withWriter([](DocumentWriter& writer) { writer.endFooter(); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::setOrientation(short docorient)
try {
    const Word::PageSetupPtr page = session_->document->GetPageSetup();
    page->PutOrientation(docorient == landscape ? Word::wdOrientLandscape : Word::wdOrientPortrait);
    page->PutLeftMargin(leftMargin);
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}
