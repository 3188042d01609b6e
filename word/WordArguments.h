#pragma once

#include <comdef.h>
#include <optional>

namespace Word {
/// The argument that is not given: VT_ERROR holding DISP_E_PARAMNOTFOUND.
inline const _variant_t missing{DISP_E_PARAMNOTFOUND, VT_ERROR};

/// A VT_I4. Word counts and numbers travel so; _variant_t(int) would make a VT_INT, which Word need not
/// accept.
inline _variant_t integer(long value)
{
    return _variant_t{value, VT_I4};
}

/// A VT_I4; an empty variant for nothing.
inline _variant_t integerOrEmpty(std::optional<long> value)
{
    return value ? integer(*value) : _variant_t();
}

/// A VT_BOOL of -1 or 0.
inline _variant_t boolean(bool value)
{
    return _variant_t{value};
}

/// A VT_BSTR; a null text becomes an empty one.
inline _variant_t text(const wchar_t* value)
{
    return _variant_t{value ? value : L""};
}

/// Somebody else's BSTR as an argument, without a copy. It must be one, with its length in front, and outlive
/// this.
class BorrowedText
{
public:
    explicit BorrowedText(BSTR text) : text_(text, false) {}
    ~BorrowedText() { text_.Detach(); }
    BorrowedText(const BorrowedText&) = delete;
    BorrowedText& operator=(const BorrowedText&) = delete;

    operator const _bstr_t&() const { return text_; }

private:
    _bstr_t text_;
};

/// A VT_DISPATCH that holds a reference of its own.
inline _variant_t object(IDispatch* value)
{
    return _variant_t{value, true};
}
} // namespace Word
