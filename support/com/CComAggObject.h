#pragma once

#include "CComContainedObject.h"
#include "CComObjectRootEx.h"
#include "ComRelease.h"
#include "ModuleLock.h"

#include <unknwn.h>
#include <windows.h>

/// A class (see `CComObjectRootEx`) completed to a part of an outer object. This object is the part's own
/// IUnknown, which only the outer object holds: its count is the part's lifetime.
template <class Base>
class CComAggObject final : private ModuleLock,
                            public IUnknown,
                            public CComObjectRootEx<typename Base::ThreadModel>
{
public:
    /// A new part with a count of 1, which the caller owns. Throws what the constructor or `finalConstruct`
    /// throws.
    static CComAggObject* create(IUnknown& outer)
    {
        ComOwner<CComAggObject> object(new CComAggObject(outer));
        object->contained_.finalConstruct();
        return object.release();
    }

    virtual ~CComAggObject() = default;

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override
    {
        if (out == nullptr)
            return E_POINTER;
        if (!IsEqualIID(iid, __uuidof(IUnknown)))
            return contained_.innerQueryInterface(iid, out);
        *out = static_cast<IUnknown*>(this);
        AddRef();
        return S_OK;
    }

    STDMETHODIMP_(ULONG) AddRef() noexcept override { return this->internalAddRef(); }

    STDMETHODIMP_(ULONG) Release() noexcept override
    {
        const ULONG left = this->internalRelease();
        if (left == 0)
            destroyQuietly(this);
        return left;
    }

private:
    explicit CComAggObject(IUnknown& outer) : contained_(outer) {}

    CComContainedObject<Base> contained_;
};
