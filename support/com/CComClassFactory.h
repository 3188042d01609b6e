#pragma once

#include "CComMultiThreadModel.h"
#include "CComObjectRootEx.h"

#include <unknwn.h>
#include <windows.h>

/// Makes an instance, plain or as a part of `outer`; see `CComCoClass::createInstance`.
using InstanceCreator = HRESULT(IUnknown* outer, REFIID iid, void** out) noexcept;

/// The standard class object. The module caches one for each class, and all apartments share it.
///
/// References to it do not hold the module in memory: a client that keeps it over a time when it has no
/// objects calls `LockServer(TRUE)`, as COM asks.
class CComClassFactory final : public CComObjectRootEx<CComMultiThreadModel>, public IClassFactory
{
public:
    /// A class object with a count of 1, which the caller owns. Throws `std::bad_alloc`.
    static IClassFactory* create(InstanceCreator* creator) { return new CComClassFactory(creator); }

    virtual ~CComClassFactory() = default;

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override;
    STDMETHODIMP_(ULONG) Release() noexcept override;

    // IClassFactory
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) noexcept override;
    STDMETHODIMP LockServer(BOOL lock) noexcept override;

private:
    explicit CComClassFactory(InstanceCreator* creator) noexcept : createInstance_(creator) {}
    InstanceCreator* createInstance_;
};
