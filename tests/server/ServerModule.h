#pragma once

#include <windows.h>

#include <unknwn.h>

#include <string>

/// The built mirovelcom.dll, loaded by its path; the tests' own folder tells where it lies.
class ServerModule
{
public:
    /// Throws `std::runtime_error` if the DLL or one of its entry points is missing.
    ServerModule();
    /// A copy of the DLL, as an installation elsewhere would be.
    explicit ServerModule(const std::wstring& file);
    ~ServerModule();
    ServerModule(const ServerModule&) = delete;
    ServerModule& operator=(const ServerModule&) = delete;

    HRESULT getClassObject(REFCLSID classId, REFIID iid, void** out) const
    {
        return getClassObject_(classId, iid, out);
    }
    HRESULT canUnloadNow() const { return canUnloadNow_(); }
    HRESULT registerServer() const { return registerServer_(); }
    HRESULT unregisterServer() const { return unregisterServer_(); }

    HMODULE handle() const { return module_; }

    /// As the module itself sees it.
    std::wstring path() const;
    /// Where the built DLL lies.
    static std::wstring builtFile();

private:
    template <class Function>
    Function* entryPoint(const char* name) const;

    HMODULE module_;
    HRESULT(WINAPI* getClassObject_)(REFCLSID, REFIID, void**);
    HRESULT(WINAPI* canUnloadNow_)();
    HRESULT(WINAPI* registerServer_)();
    HRESULT(WINAPI* unregisterServer_)();
};
