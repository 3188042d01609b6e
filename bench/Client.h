#pragma once

#include "Word.h"
#include <IDocument.h>

#include <string>

_COM_SMARTPTR_TYPEDEF(IDocument, __uuidof(IDocument));

/// An argument of a call.
inline _bstr_t text(const wchar_t* value)
{
    return _bstr_t(value);
}

/// Makes an object the running Word for as long as it lives.
class RunningWord
{
public:
    explicit RunningWord(Word::_Application& application);
    ~RunningWord();
    RunningWord(const RunningWord&) = delete;
    RunningWord& operator=(const RunningWord&) = delete;

private:
    DWORD registration_ = 0;
};

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
