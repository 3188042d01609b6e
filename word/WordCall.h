#pragma once

#include <comdef.h>

/// What every throwing form is made of.
namespace Word {
/// Raises _com_error for a failed call on an object, with the object's error information when it has some for
/// the interface. A late-bound failure keeps its own HRESULT.
[[noreturn]] void raiseFailedCall(HRESULT result, IUnknown* object, const IID& interfaceId);

template <typename Interface>
void check(HRESULT result, Interface* object)
{
    if (FAILED(result)) [[unlikely]]
        raiseFailedCall(result, object, __uuidof(Interface));
}

// Word takes VARIANT* and BSTR for arguments it only reads, so constness ends here.
inline VARIANT* passed(const _variant_t& argument)
{
    return const_cast<_variant_t*>(&argument);
}

inline BSTR passed(const _bstr_t& argument)
{
    return static_cast<wchar_t*>(argument);
}

inline VARIANT_BOOL passed(bool argument)
{
    return argument ? VARIANT_TRUE : VARIANT_FALSE;
}
} // namespace Word
