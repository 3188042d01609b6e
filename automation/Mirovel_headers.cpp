#include "Mirovel.h"

#include "MirovelCall.h"

#include "WordConstants.h"
#include "mirovelsection.h"

namespace {

constexpr short landscape = 1;
constexpr float leftMargin = 130.0F; // points, in either orientation

} // namespace

STDMETHODIMP Mirovel::startHeader()
try {
    if (!session_->documentOpen)
        return S_OK;
    echo("startHeader");
    framed("startHeader",
           [&] { startHeaderFooter(session_->headerSection, "Header", &Word::Section::GetHeaders); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::endHeader()
try {
    if (!session_->documentOpen)
        return S_OK;
    echo("endHeader");
    endHeaderFooter(session_->headerSection);
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::startFooter()
try {
    if (!session_->documentOpen)
        return S_OK;
    echo("startFooter");
    framed("startFooter",
           [&] { startHeaderFooter(session_->footerSection, "Footer", &Word::Section::GetFooters); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::endFooter()
try {
    if (!session_->documentOpen)
        return S_OK;
    echo("endFooter");
    endHeaderFooter(session_->footerSection);
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

void Mirovel::startHeaderFooter(MirovelSection*& slot, const char* style, HeadersFooters headersFooters)
{
    DocSession& session = *session_;
    MirovelSection& dividing = session.dividingWriter();
    dividing.changeLastPageBreak();
    const long lastSection = dividing.getSectionCount();
    if (session.isWriting(slot, lastSection)) {
        session.currentSection = slot;
        return;
    }

    const Word::SectionPtr section = session.document->GetSections()->Item(lastSection);
    const Word::HeaderFooterPtr primary =
        (section.GetInterfacePtr()->*headersFooters)()->Item(Word::wdHeaderFooterPrimary);
    primary->PutLinkToPrevious(VARIANT_FALSE);
    const Word::RangePtr range = primary->GetRange();
    range->Delete();

    // Only a writer that goes now ceases to be the current one, whatever fails from here on.
    if (session.currentSection == slot)
        session.currentSection = session.mainSection;
    session.endSection(slot);
    session.beginSection(slot, lastSection, range);
    slot->setTrace(session.trace);
    slot->setStyle(style, false);
    session.currentSection = slot;
}

// The body is current again before anything can fail.
void Mirovel::endHeaderFooter(MirovelSection*& slot)
{
    session_->currentSection = session_->mainSection;
    session_->endSection(slot);
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
