#include "Mirovel.h"

#include "MirovelCall.h"

#include "mirovelsection.h"
#include "sysSupport/SysFile.h"

namespace {

bool isEmptyText(BSTR text)
{
    return !text || *text == L'\0';
}

} // namespace

// An address, a file, or else a tag; a new tag is entered.
LinkDestination Mirovel::resolveLinkTarget(BSTR text)
{
    const QdxString name = toNarrow(text);
    if (name.isEmpty())
        return {};
    if (SysFile::isHyperLink(name) || SysFile::exists(name))
        return toAddress(name);
    const QdxString tag = session_->held(text);
    QdxString bookmark;
    bool placed = false;
    if (!session_->bookmarks.lookup(tag, bookmark, placed))
        bookmark = session_->bookmarks.add(tag);
    return toBookmark(bookmark, placed);
}

STDMETHODIMP Mirovel::insertImage(BSTR imageFileName, BSTR fileOrUrl)
try {
    echo("insertImage", Bare{imageFileName}, fileOrUrl);
    const LinkDestination destination = resolveLinkTarget(fileOrUrl);
    withWriter(
        [&](MirovelSection& writer) { writer.insertImage(toNarrow(imageFileName), destination, 0, 0); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

MIROVEL_NOT_INLINED STDMETHODIMP Mirovel::insertXref(BSTR text, BSTR tagName)
try {
    echo("insertXref", text, tagName);
    if (isEmptyText(text))
        return S_OK;
    if (isEmptyText(tagName)) {
        withWriter([&](MirovelSection& writer) { writer.insertText(text); });
        return S_OK;
    }
    const LinkDestination destination = resolveLinkTarget(tagName);
    withWriter([&](MirovelSection& writer) { writer.insertHyperLink(session_->held(text), destination); });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}

STDMETHODIMP Mirovel::insertTag(BSTR tagName)
try {
    echo("insertTag", tagName);
    if (isEmptyText(tagName))
        return S_OK;
    const QdxString tag = session_->held(tagName);
    QdxString bookmark;
    bool defined = false;
    if (!session_->bookmarks.lookup(tag, bookmark, defined))
        bookmark = session_->bookmarks.add(tag);
    withWriter([&](MirovelSection& writer) {
        writer.insertTag(bookmark);
        session_->tagPlaced(bookmark);
        session_->bookmarks.markDefined(tag);
    });
    return S_OK;
} catch (...) {
    return failed(MIROVEL_CALLER_ADDRESS);
}
