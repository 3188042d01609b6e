#pragma once

#include <unknwn.h>

/// The outer object of an aggregate; what it does not know it asks its part for.
class OuterObject : public IUnknown
{
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override
    {
        if (!IsEqualIID(iid, IID_IUnknown))
            return part->QueryInterface(iid, out);
        *out = static_cast<IUnknown*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++count; }
    STDMETHODIMP_(ULONG) Release() override { return --count; }

    IUnknown* part = nullptr;
    ULONG count = 1;
};
