#pragma once

#include <IDocument.h>

#include <comdef.h>

_COM_SMARTPTR_TYPEDEF(IDocument, __uuidof(IDocument));

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
