#pragma once

#include "Word.h"

/// A COM object that costs as little as one can: it lives as long as the program and does not count
/// references.
template <class Interface>
class NullObject : public Interface
{
public:
    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override
    {
        if (!IsEqualIID(iid, __uuidof(Interface)) && !IsEqualIID(iid, __uuidof(IDispatch)) &&
            !IsEqualIID(iid, __uuidof(IUnknown))) {
            *out = nullptr;
            return E_NOINTERFACE;
        }
        *out = static_cast<Interface*>(this);
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    // IDispatch
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override
    {
        return E_NOTIMPL;
    }
};
