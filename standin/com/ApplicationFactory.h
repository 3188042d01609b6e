#pragma once

#include "Server.h"

#include <atomic>
#include <memory>
#include <unknwn.h>

namespace standin {
/// The class object of Word's Application class: it gives the server's one application, and starts it anew
/// when it has been quit. Born with one reference.
class ApplicationFactory : public IClassFactory
{
public:
    explicit ApplicationFactory(std::shared_ptr<Server> server);

    long created() const { return created_; }

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override;
    ULONG STDMETHODCALLTYPE Release() noexcept override;

    // IClassFactory
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** result) noexcept override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override;

private:
    virtual ~ApplicationFactory() = default;

    std::shared_ptr<Server> server_;
    std::atomic<ULONG> references_ = 1;
    long created_ = 0;
};

_COM_SMARTPTR_TYPEDEF(IClassFactory, __uuidof(IClassFactory));

/// Word's Application class.
inline constexpr CLSID applicationClassId = {0x000209FF, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr wchar_t applicationClassText[] = L"{000209FF-0000-0000-C000-000000000046}";
inline constexpr wchar_t applicationProgId[] = L"Word.Application";
} // namespace standin
