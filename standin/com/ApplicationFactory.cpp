#include "ApplicationFactory.h"

#include "Failure.h"

namespace standin {
ApplicationFactory::ApplicationFactory(std::shared_ptr<Server> server) : server_(std::move(server)) {}

HRESULT ApplicationFactory::QueryInterface(REFIID id, void** result) noexcept
{
    if (!result)
        return E_POINTER;
    const bool known = id == __uuidof(IClassFactory) || id == __uuidof(IUnknown);
    *result = known ? static_cast<IClassFactory*>(this) : nullptr;
    if (!known)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG ApplicationFactory::AddRef() noexcept
{
    return ++references_;
}

ULONG ApplicationFactory::Release() noexcept
{
    const ULONG left = --references_;
    if (left == 0)
        delete this;
    return left;
}

HRESULT ApplicationFactory::CreateInstance(IUnknown* outer, REFIID id, void** result) noexcept
try {
    if (!result)
        return E_POINTER;
    *result = nullptr;
    if (outer)
        return CLASS_E_NOAGGREGATION;
    if (server_->hasEnded())
        server_->start();
    ++created_;
    return server_->application()->QueryInterface(id, result);
} catch (...) {
    return translateCurrentException(__uuidof(IClassFactory));
}

HRESULT ApplicationFactory::LockServer(BOOL) noexcept
{
    // Word lives until it is told to quit; nobody's lock changes that.
    return S_OK;
}
} // namespace standin
