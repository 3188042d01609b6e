#include "Mirovel.h"

#include "MirovelCall.h"

#include "DocumentWriter.h"

STDMETHODIMP Mirovel::insertImage(BSTR imageFileName, BSTR fileOrUrl)
{
    echo("insertImage", Bare{imageFileName}, fileOrUrl);
    withWriter([&](DocumentWriter& writer) { writer.insertImage(imageFileName, fileOrUrl); });
    return S_OK;
}

STDMETHODIMP Mirovel::insertXref(BSTR text, BSTR tagName)
{
    echo("insertXref", text, tagName);
    withWriter([&](DocumentWriter& writer) { writer.insertXref(text, tagName); });
    return S_OK;
}

STDMETHODIMP Mirovel::insertTag(BSTR tagName)
{
    echo("insertTag", tagName);
    withWriter([&](DocumentWriter& writer) { writer.insertTag(tagName); });
    return S_OK;
}
