#include "Mirovel.h"

#include "MirovelCall.h"

#include "DocumentWriter.h"

STDMETHODIMP Mirovel::insertImage(BSTR imageFileName, BSTR fileOrUrl)
try {
    echo("insertImage", Bare{imageFileName}, fileOrUrl);
    withWriter([&](DocumentWriter& writer) { writer.insertImage(imageFileName, fileOrUrl); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

MIROVEL_NOT_INLINED STDMETHODIMP Mirovel::insertXref(BSTR text, BSTR tagName)
try {
    echo("insertXref", text, tagName);
    withWriter([&](DocumentWriter& writer) { writer.insertXref(text, tagName); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::insertTag(BSTR tagName)
try {
    echo("insertTag", tagName);
    withWriter([&](DocumentWriter& writer) { writer.insertTag(tagName); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}
