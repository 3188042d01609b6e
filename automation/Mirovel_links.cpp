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

// True when the target exists: an address, a file, or a tag that has been placed. A new tag is entered.
bool Mirovel::resolveLinkTarget(BSTR text, QdxString& target)
{
    const QdxString name = toNarrow(text);
    if (name.isEmpty())
        return true;
    if (SysFile::isHyperLink(name) || SysFile::exists(name)) {
        target = name;
        return true;
    }
    bool defined = false;
    const QdxString tag = session_->held(text);
    if (!session_->bookmarks.lookup(tag, target, defined))
        target = session_->bookmarks.add(tag);
    return defined;
}

STDMETHODIMP Mirovel::insertImage(BSTR imageFileName, BSTR fileOrUrl)
{
    echo("insertImage", Bare{imageFileName}, fileOrUrl);
    QdxString target;
    const bool resolved = resolveLinkTarget(fileOrUrl, target);
    withWriter(
        [&](MirovelSection& writer) { writer.insertImage(toNarrow(imageFileName), target, 0, 0, resolved); });
    return S_OK;
}

STDMETHODIMP Mirovel::insertXref(BSTR text, BSTR tagName)
{
    echo("insertXref", text, tagName);
    if (isEmptyText(text))
        return S_OK;
    if (isEmptyText(tagName)) {
        withWriter([&](MirovelSection& writer) { writer.insertText(text); });
        return S_OK;
    }
    QdxString target;
    const bool resolved = resolveLinkTarget(tagName, target);
    withWriter(
        [&](MirovelSection& writer) { writer.insertHyperLink(session_->held(text), target, resolved); });
    return S_OK;
}

STDMETHODIMP Mirovel::insertTag(BSTR tagName)
{
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
}
