#include "CComClassFactory.h"

#include "CComModule.h"
#include "ComRelease.h"
#include "InterfaceList.h"

HRESULT CComClassFactory::QueryInterface(REFIID iid, void** out) noexcept
{
    return InterfaceList<IClassFactory>::query(*this, iid, out);
}

ULONG CComClassFactory::AddRef() noexcept
{
    return internalAddRef();
}

ULONG CComClassFactory::Release() noexcept
{
    const ULONG left = internalRelease();
    if (left == 0)
        destroyQuietly(this);
    return left;
}

HRESULT CComClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** out) noexcept
{
    return createInstance_(outer, iid, out);
}

HRESULT CComClassFactory::LockServer(BOOL lock) noexcept
{
    if (lock)
        comModule().lock();
    else
        comModule().unlock();
    return S_OK;
}
