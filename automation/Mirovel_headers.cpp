#include "Mirovel.h"

#include "MirovelCall.h"

#include "DocumentWriter.h"
#include "WordConstants.h"

namespace {

constexpr float leftMargin = 130.0F; // points, in either orientation

} // namespace

STDMETHODIMP Mirovel::startHeader()
try {
    const MethodScope method(*session_, "startHeader");
    if (!session_->documentOpen)
        return method.ignored(Silence::noDocument);
    echo("startHeader");
    framed("startHeader", [&] { session_->currentWriter().startHeader(); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::endHeader()
try {
    const MethodScope method(*session_, "endHeader");
    if (!session_->documentOpen)
        return method.ignored(Silence::noDocument);
    echo("endHeader");
    withWriter([](DocumentWriter& writer) { writer.endHeader(); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::startFooter()
try {
    const MethodScope method(*session_, "startFooter");
    if (!session_->documentOpen)
        return method.ignored(Silence::noDocument);
    echo("startFooter");
    framed("startFooter", [&] { session_->currentWriter().startFooter(); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::endFooter()
try {
    const MethodScope method(*session_, "endFooter");
    if (!session_->documentOpen)
        return method.ignored(Silence::noDocument);
    echo("endFooter");
    withWriter([](DocumentWriter& writer) { writer.endFooter(); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::setOrientation(short docorient)
try {
    const MethodScope method(*session_, "setOrientation");
    const Word::PageSetupPtr page = session_->document->GetPageSetup();
    if (session_->writer)
        session_->writer->pageChanged();
    page->PutOrientation(docorient == mirovelLandscape ? Word::wdOrientLandscape : Word::wdOrientPortrait);
    page->PutLeftMargin(leftMargin);
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}
