#pragma once

#include <IDocument.h>
#include <comdef.h>

_COM_SMARTPTR_TYPEDEF(IDocument, __uuidof(IDocument));
