#pragma once

#include <windows.h>

#include <IDocument.h>
#include <comdef.h>

#include <string>

namespace replay {

using ObjectPtr = _com_ptr_t<_com_IIID<IDocument, &IID_IDocument>>;

/// Where the objects come from whose methods are called. Needs an apartment, which ends after this.
class ObjectSource
{
public:
    ObjectSource() = default;
    virtual ~ObjectSource() = default;
    ObjectSource(const ObjectSource&) = delete;
    ObjectSource& operator=(const ObjectSource&) = delete;

    /// A new object. Raises `_com_error`.
    virtual ObjectPtr make() = 0;
};

/// The class as it is registered.
class RegisteredClass final : public ObjectSource
{
public:
    ObjectPtr make() override;
};

/// The class of a DLL that need not be registered; the DLL stays loaded as long as this lives.
class LibraryClass final : public ObjectSource
{
public:
    /// Raises `_com_error` when the file is not there or no such DLL.
    explicit LibraryClass(const std::wstring& path);
    ~LibraryClass() override;

    ObjectPtr make() override;

private:
    HMODULE library_;
    using ClassObjectGetter = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    ClassObjectGetter getClassObject_ = nullptr;
};

} // namespace replay
