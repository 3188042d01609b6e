#pragma once

#include <windows.h>

/// The reference count of a COM object, and the hook for the second half of its construction.
///
/// A class that COM clients can create derives from, in this order,
///  1. `CComObjectRootEx<CComSingleThreadModel>`,
///  2. `CComCoClass<Class, &CLSID_Class>` (see there),
///  3. its interfaces, each through an implementation base where there is one (`IDispatchImpl`,
///     `IPropertyPageImpl`),
///
/// and provides
///  - `using Interfaces = InterfaceList<IFirst, ...>;` (public): what QueryInterface hands out, see
///    `InterfaceList`;
///  - a public default constructor, which may throw: creation then fails with the exception's HRESULT;
///  - if it needs one, `void finalConstruct()`, which hides the empty one below.
///
/// It implements neither QueryInterface, AddRef nor Release, and so stays abstract: `CComObject<Class>`
/// completes it to an object of its own, `CComAggObject<Class>` to a part of another object. It adds no
/// virtual functions of its own, so that its virtual table is the interface's and what `CComObject` appends.
template <class ThreadModelType>
class CComObjectRootEx
{
public:
    using ThreadModel = ThreadModelType;

    CComObjectRootEx(const CComObjectRootEx&) = delete;
    CComObjectRootEx& operator=(const CComObjectRootEx&) = delete;

    /// Runs once, when the object can already be used through its interfaces (its count is 1). May throw:
    /// creation then fails with the exception's HRESULT and the object is destroyed.
    void finalConstruct() {}

protected:
    CComObjectRootEx() = default;
    ~CComObjectRootEx() = default;

    ULONG internalAddRef() noexcept { return ThreadModel::increment(referenceCount_); }

    /// Returns the references left. At 0 the caller destroys the object, and until that is done the count is
    /// kept far from 0: a destructor that lends `this` to someone who counts must not start a second
    /// destruction.
    ULONG internalRelease() noexcept
    {
        const ULONG left = ThreadModel::decrement(referenceCount_);
        if (left == 0)
            referenceCount_ = destructionCount;
        return left;
    }

private:
    static constexpr ULONG destructionCount = 0x40000000;

    /// Objects are born with the reference that their creator holds.
    typename ThreadModel::Counter referenceCount_{1};
};
