#include "WordCall.h"

namespace Word {
namespace {
bool givesErrorInfo(IUnknown* object, const IID& interfaceId)
{
    ISupportErrorInfo* support = nullptr;
    if (FAILED(object->QueryInterface(__uuidof(ISupportErrorInfo), reinterpret_cast<void**>(&support))))
        return false;
    const bool supported = support->InterfaceSupportsErrorInfo(interfaceId) == S_OK;
    support->Release();
    return supported;
}
} // namespace

void raiseFailedCall(HRESULT result, IUnknown* object, const IID& interfaceId)
{
    // The thread's error object belongs to this call only if the object says so; an older one must not be
    // shown. Asking is pointless, and slow, when the server is gone.
    IErrorInfo* information = nullptr;
    if (HRESULT_FACILITY(result) != FACILITY_RPC && HRESULT_FACILITY(result) != FACILITY_WIN32 &&
        givesErrorInfo(object, interfaceId))
        GetErrorInfo(0, &information);
    throw _com_error(result, information);
}
} // namespace Word
