#pragma once

#include "CComAggObject.h"
#include "CComObject.h"
#include "ComRelease.h"
#include "ExceptionTranslation.h"

#include <unknwn.h>
#include <windows.h>

/// What a class brings to the module's object map: its identifier, the creator of its instances and the hook
/// that the module calls when it starts and ends. `Class` hides `objectMain` if it has something to do there.
template <class Class, const CLSID* classId>
class CComCoClass
{
public:
    static constexpr const CLSID& objectClassId() noexcept { return *classId; }

    /// Makes a plain object, or a part of `outer` if one is given, and hands out its interface `iid`.
    /// E_POINTER without `out`, which is otherwise cleared first; CLASS_E_NOAGGREGATION if a part is asked
    /// for anything but IUnknown; the HRESULT of what construction throws (E_OUTOFMEMORY without memory);
    /// E_NOINTERFACE.
    static HRESULT createInstance(IUnknown* outer, REFIID iid, void** out) noexcept
    try {
        if (out == nullptr)
            return E_POINTER;
        *out = nullptr;
        if (outer == nullptr)
            return ComOwner<CComObject<Class>>(CComObject<Class>::create())->QueryInterface(iid, out);
        if (!IsEqualIID(iid, __uuidof(IUnknown)))
            return CLASS_E_NOAGGREGATION;
        return ComOwner<CComAggObject<Class>>(CComAggObject<Class>::create(*outer))->QueryInterface(iid, out);
    } catch (...) {
        return currentExceptionToHresult();
    }

    /// Runs under the loader lock, with true when the module starts and with false when it ends.
    static void objectMain(bool /*starting*/) noexcept {}
};
