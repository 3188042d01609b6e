#pragma once

#include <unknwn.h>
#include <windows.h>

/// The interfaces of a class, for QueryInterface: `using Interfaces = InterfaceList<IDocument, IDispatch>;`.
///
/// Every interface is named with its bases, except IUnknown, which is always there and answered by the first
/// one, so that the object has one identity. An interface's identifier is its `__uuidof`.
template <class First, class... Others>
class InterfaceList
{
public:
    /// QueryInterface as COM asks for it; `object` counts the reference that is handed out.
    template <class Object>
    static HRESULT query(Object& object, REFIID iid, void** out) noexcept
    {
        if (out == nullptr)
            return E_POINTER;
        IUnknown* const found = find(object, iid);
        *out = found;
        if (found == nullptr)
            return E_NOINTERFACE;
        found->AddRef();
        return S_OK;
    }

private:
    template <class Object>
    static IUnknown* find(Object& object, REFIID iid) noexcept
    {
        if (IsEqualIID(iid, __uuidof(IUnknown)))
            return static_cast<First*>(&object);
        IUnknown* found = nullptr;
        // Stops at the first interface that matches.
        static_cast<void>((tryOne<First>(object, iid, found) || ... || tryOne<Others>(object, iid, found)));
        return found;
    }

    template <class Interface, class Object>
    static bool tryOne(Object& object, REFIID iid, IUnknown*& found) noexcept
    {
        if (!IsEqualIID(iid, __uuidof(Interface)))
            return false;
        found = static_cast<Interface*>(&object);
        return true;
    }
};
