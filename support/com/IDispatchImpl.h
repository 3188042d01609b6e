#pragma once

#include "ComPointers.h"
#include "DispatchCall.h"
#include "TypeInfoLookup.h"

#include <oaidl.h>
#include <windows.h>

/// The IDispatch half of the dual interface `Interface`: it works from the interface's type information,
/// which `findTypeInfo` gets from the library `*libraryId`, asked for in the version given.
///
/// A class derives from it and implements the methods of `Interface` (which may throw: a vtable client gets
/// the exception, a client of `Invoke` DISP_E_EXCEPTION with EXCEPINFO filled in). It adds no virtual
/// functions.
template <class Interface, const IID* interfaceId, const GUID* libraryId, WORD majorVersion,
          WORD minorVersion>
class IDispatchImpl : public Interface
{
public:
    // IDispatch
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override
    {
        if (count == nullptr)
            return E_POINTER;
        *count = 1;
        return S_OK;
    }

    STDMETHODIMP GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** out) noexcept override
    {
        if (out == nullptr)
            return E_POINTER;
        *out = nullptr;
        if (index != 0)
            return DISP_E_BADINDEX;
        typeInfo_.AddRef();
        *out = typeInfo_.GetInterfacePtr();
        return S_OK;
    }

    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT nameCount, LCID /*locale*/,
                               DISPID* ids) noexcept override
    {
        if (!IsEqualIID(reserved, IID_NULL))
            return DISP_E_UNKNOWNINTERFACE;
        return typeInfo_->GetIDsOfNames(names, nameCount, ids);
    }

    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept override
    {
        if (!IsEqualIID(reserved, IID_NULL))
            return DISP_E_UNKNOWNINTERFACE;
        const DispatchRequest request{member, locale, flags, arguments, result, exception, badArgument};
        return callByTypeInfo(*typeInfo_.GetInterfacePtr(), static_cast<Interface*>(this), request, source_);
    }

protected:
    /// Loads the type information, without which there is no object: throws `_com_error`.
    /// `source` is what EXCEPINFO names as the source of errors (the class's ProgID); a literal, it is not
    /// copied.
    explicit IDispatchImpl(const wchar_t* source)
        : typeInfo_(findTypeInfo(*libraryId, *interfaceId, majorVersion, minorVersion)), source_(source)
    {
    }

    ~IDispatchImpl() = default;

private:
    ITypeInfoPtr typeInfo_;
    const wchar_t* source_;
};
