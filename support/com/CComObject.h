#pragma once

#include "ComRelease.h"
#include "ModuleLock.h"

#include <windows.h>

/// A class (see `CComObjectRootEx` for what it provides) completed to an object of its own.
///
/// After the slots of the class's first interface its virtual table has the destructor. The Itanium C++ ABI,
/// which mingw follows, gives a virtual destructor two slots (the complete and the deleting one), Microsoft's
/// ABI one; nobody but `Release` may use them.
template <class Base>
class CComObject final : private ModuleLock, public Base
{
public:
    /// A new object with a count of 1, which the caller owns. Throws what the constructor or `finalConstruct`
    /// throws.
    static CComObject* create()
    {
        ComOwner<CComObject> object(new CComObject);
        object->finalConstruct();
        return object.release();
    }

    virtual ~CComObject() = default;

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override
    {
        return Base::Interfaces::query(static_cast<Base&>(*this), iid, out);
    }

    STDMETHODIMP_(ULONG) AddRef() noexcept override { return Base::internalAddRef(); }

    STDMETHODIMP_(ULONG) Release() noexcept override
    {
        const ULONG left = Base::internalRelease();
        if (left == 0)
            destroyQuietly(this);
        return left;
    }

private:
    CComObject() = default;
};
