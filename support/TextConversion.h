#pragma once

#include "QdxString.h"

#include <comutil.h>

/// Text between Windows' UTF-16 and our 8-bit text. A null text counts as an empty one; every text ends
/// at its first NUL. Both raise `_com_error` (E_OUTOFMEMORY or the conversion's own failure).

/// In the ANSI code page; characters that it does not hold become '?', never a look-alike. A BSTR may be
/// passed as it is.
[[nodiscard]] QdxString toNarrow(const wchar_t* text);

[[nodiscard]] _bstr_t toWide(const QdxString& text);
