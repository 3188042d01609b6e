#include "WordCall.h"

#include "CallObserver.h"
#include "CallPolicy.h"

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

_com_error errorOf(HRESULT result, IUnknown* object, const IID& interfaceId)
{
    // The thread's error object belongs to this call only if the object says so; an older one must not be
    // shown. Asking is pointless, and slow, when the server is gone.
    IErrorInfo* information = nullptr;
    if (HRESULT_FACILITY(result) != FACILITY_RPC && HRESULT_FACILITY(result) != FACILITY_WIN32 &&
        givesErrorInfo(object, interfaceId))
        GetErrorInfo(0, &information);
    return {result, information};
}

void tellOfFailure(const FailedCall& call) noexcept
try {
    if (const CallPolicy* const policy = CallScope::current(); policy && policy->observer)
        policy->observer->failed(call);
} catch (...) { // NOLINT(bugprone-empty-catch): the failure is raised, told or not
}
} // namespace

void settle(const FailedAttempt& attempt)
{
    HRESULT result = attempt.result;
    if (isRejected(result))
        result = repeatRejected(result, attempt.name, attempt.again);
    if (SUCCEEDED(result))
        return;
    const _com_error error = errorOf(result, attempt.object, attempt.interfaceId);
    tellOfFailure({attempt.name, error, attempt.arguments});
    throw error;
}
} // namespace Word
