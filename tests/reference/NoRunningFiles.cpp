#include "NoRunningFiles.h"

#include <objbase.h>

namespace reference {

namespace {

// Without a state: everybody has the same one, for good.
class EmptyTable final : public IRunningObjectTable
{
public:
    STDMETHODIMP QueryInterface(REFIID id, void** result) override
    {
        const bool known = id == IID_IUnknown || id == IID_IRunningObjectTable;
        *result = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP Register(DWORD, IUnknown*, IMoniker*, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP Revoke(DWORD) override { return E_INVALIDARG; }
    STDMETHODIMP IsRunning(IMoniker*) override { return S_FALSE; }
    STDMETHODIMP GetObject(IMoniker*, IUnknown**) override { return MK_E_UNAVAILABLE; }
    STDMETHODIMP NoteChangeTime(DWORD, FILETIME*) override { return E_INVALIDARG; }
    STDMETHODIMP GetTimeOfLastChange(IMoniker*, FILETIME*) override { return MK_E_UNAVAILABLE; }
    STDMETHODIMP EnumRunning(IEnumMoniker**) override { return E_NOTIMPL; }
};

HRESULT WINAPI emptyTable(DWORD, IRunningObjectTable** table)
{
    static EmptyTable empty;
    *table = &empty;
    return S_OK;
}

} // namespace

NoRunningFiles::NoRunningFiles() : table_(GetModuleHandleW(nullptr), "GetRunningObjectTable", &emptyTable) {}

} // namespace reference
