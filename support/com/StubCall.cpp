#include "StubCall.h"

#include "ExceptionTranslation.h"

bool isStub(const void* address) noexcept
{
    const HMODULE runtime = GetModuleHandleW(L"rpcrt4.dll");
    HMODULE caller = nullptr;
    const DWORD how = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    return runtime && GetModuleHandleExW(how, static_cast<LPCWSTR>(address), &caller) && caller == runtime;
}

HRESULT leaveMethod(const void* caller, REFIID interfaceId, const wchar_t* source)
{
    if (!isStub(caller))
        throw;
    return currentExceptionToErrorObject(interfaceId, source);
}
