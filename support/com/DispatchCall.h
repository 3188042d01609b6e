#pragma once

#include <oaidl.h>
#include <windows.h>

/// The arguments of `IDispatch::Invoke`.
struct DispatchRequest
{
    DISPID member;
    LCID locale;
    WORD flags;
    DISPPARAMS* arguments;
    VARIANT* result;
    EXCEPINFO* exception;
    UINT* badArgument;
};

/// Calls a method of the dual interface `object`, which `typeInfo` describes, as its scripts want it:
///  - arguments come in any automation type that converts, also by reference (VT_BYREF | VT_VARIANT);
///  - for a `BSTR*` out-parameter the script passes a variable by reference (VT_BYREF | VT_VARIANT or
///    VT_BYREF | VT_BSTR), which receives the value; or, when it is the last one, leaves it away and gets the
///    value as the result of the call;
///  - a C++ exception, and a failure that the method returns, come back as DISP_E_EXCEPTION with `exception`
///    filled in from `currentExceptionToExcepInfo`; `source` names the object there.
HRESULT callByTypeInfo(ITypeInfo& typeInfo, void* object, const DispatchRequest& request,
                       const wchar_t* source) noexcept;
