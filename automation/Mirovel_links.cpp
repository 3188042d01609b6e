#include "Mirovel.h"

#include "MirovelCall.h"

#include "DocumentWriter.h"

STDMETHODIMP Mirovel::insertImage(BSTR imageFileName, BSTR fileOrUrl)
try {
    const MethodScope method(*session_, "insertImage");
    echo("insertImage", Bare{imageFileName}, fileOrUrl);
    withWriter([&](DocumentWriter& writer) { writer.insertImage(imageFileName, fileOrUrl); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

MIROVEL_NOT_INLINED STDMETHODIMP Mirovel::insertXref(BSTR text, BSTR tagName)
try {
    const MethodScope method(*session_, "insertXref");
    echo("insertXref", text, tagName);
    withWriter([&](DocumentWriter& writer) { writer.insertXref(text, tagName); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::insertTag(BSTR tagName)
try {
    const MethodScope method(*session_, "insertTag");
    echo("insertTag", tagName);
    withWriter([&](DocumentWriter& writer) { writer.insertTag(tagName); });
    return method.done();
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}
