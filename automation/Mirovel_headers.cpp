#include "Mirovel.h"

#include "MirovelCall.h"

#include "WordConstants.h"
#include "DocumentWriter.h"

namespace {

constexpr short landscape = 1;
constexpr float leftMargin = 130.0F; // points, in either orientation

} // namespace

STDMETHODIMP Mirovel::startHeader()
{
    if (!session_->documentOpen)
        return S_OK;
    echo("startHeader");
    framed("startHeader", [&] { session_->currentWriter().startHeader(); });
    return S_OK;
}

STDMETHODIMP Mirovel::endHeader()
{
    if (!session_->documentOpen)
        return S_OK;
    echo("endHeader");
    withWriter([](DocumentWriter& writer) { writer.endHeader(); });
    return S_OK;
}

STDMETHODIMP Mirovel::startFooter()
{
    if (!session_->documentOpen)
        return S_OK;
    echo("startFooter");
    framed("startFooter", [&] { session_->currentWriter().startFooter(); });
    return S_OK;
}

STDMETHODIMP Mirovel::endFooter()
{
    if (!session_->documentOpen)
        return S_OK;
    echo("endFooter");
    withWriter([](DocumentWriter& writer) { writer.endFooter(); });
    return S_OK;
}

STDMETHODIMP Mirovel::setOrientation(short docorient)
{
    const Word::PageSetupPtr page = session_->document->GetPageSetup();
    page->PutOrientation(docorient == landscape ? Word::wdOrientLandscape : Word::wdOrientPortrait);
    page->PutLeftMargin(leftMargin);
    return S_OK;
}
