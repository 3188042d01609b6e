#pragma once

#include <unknwn.h>
#include <windows.h>

/// A class (see `CComObjectRootEx`) as a part of another object: the part's interfaces hand every question
/// about identity and lifetime to the outer object. Lives inside a `CComAggObject`.
template <class Base>
class CComContainedObject final : public Base
{
public:
    /// `outer` is not counted: it outlives its parts.
    explicit CComContainedObject(IUnknown& outer) : outer_(outer) {}

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID iid, void** out) noexcept override
    {
        return outer_.QueryInterface(iid, out);
    }

    STDMETHODIMP_(ULONG) AddRef() noexcept override { return outer_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() noexcept override { return outer_.Release(); }

    /// The part's own interfaces; the reference handed out is counted by the outer object.
    HRESULT innerQueryInterface(REFIID iid, void** out) noexcept
    {
        return Base::Interfaces::query(static_cast<Base&>(*this), iid, out);
    }

private:
    IUnknown& outer_;
};
