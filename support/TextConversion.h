#pragma once

#include "QdxString.h"

#include <comutil.h>

#include <string>
#include <string_view>

/// Text between Windows' UTF-16 and our 8-bit text. A null text counts as an empty one; every text ends
/// at its first NUL. `toNarrow` and `toWide` raise `_com_error` (E_OUTOFMEMORY or the conversion's own
/// failure).

/// In the ANSI code page; characters that it does not hold become '?', never a look-alike. A BSTR may be
/// passed as it is.
[[nodiscard]] QdxString toNarrow(const wchar_t* text);

[[nodiscard]] _bstr_t toWide(const QdxString& text);

/// \name UTF-8; what is no character becomes U+FFFD. Raises allocation failure alone.
///@{
[[nodiscard]] std::string toUtf8(std::wstring_view text);
[[nodiscard]] std::string toUtf8(const QdxString& text);
[[nodiscard]] std::wstring fromUtf8(std::string_view text);
///@}
