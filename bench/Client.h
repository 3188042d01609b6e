#pragma once

#include <IDocument.h>

#include <comdef.h>

_COM_SMARTPTR_TYPEDEF(IDocument, __uuidof(IDocument));

/// An argument of a call.
inline _bstr_t text(const wchar_t* value)
{
    return _bstr_t(value);
}

/// As the setting "Word"/"Compose" numbers them.
enum class Writer : long
{
    counting,
    typed,
    fragments
};

/// A document generator in this process that uses Word's default template. Its `start` attaches it to the
/// running Word.
IDocumentPtr makeGenerator(Writer writer = Writer::counting);
