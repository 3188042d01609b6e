#pragma once

#include <comdef.h>
#include <comutil.h>

#include <algorithm>

#include <string>
#include <string_view>

/// Windows' UTF-16 and that of the portable rooms: the same units in two types.
namespace compose {

inline std::wstring wide(std::u16string_view text)
{
    return {text.begin(), text.end()};
}

inline std::u16string portable(std::wstring_view text)
{
    return {text.begin(), text.end()};
}

/// A null text is an empty one.
inline std::u16string portable(const _bstr_t& text)
{
    return portable(std::wstring_view(static_cast<const wchar_t*>(text), text.length()));
}

/// Of any length, in one allocation.
inline _bstr_t bstr(std::u16string_view text)
{
    const BSTR copy = SysAllocStringLen(nullptr, static_cast<UINT>(text.size()));
    if (!copy)
        _com_issue_error(E_OUTOFMEMORY);
    std::copy(text.begin(), text.end(), copy);
    return {copy, false};
}

} // namespace compose
