#pragma once

#include <windows.h>

/// Whether code at `address` is COM's stub code, which calls an object for a client of another apartment.
///
/// The call's context (CoGetCallContext) does not tell: it stays in force for calls that the host makes
/// itself while it is called from elsewhere, and Wine does not have it.
bool isStub(const void* address) noexcept;

/// How an exception leaves a method that throws to its callers. Only within a handler of the method itself,
/// with the method's own MIROVEL_CALLER_ADDRESS.
///  - A client that has called the virtual table gets the exception as it is: this rethrows.
///  - Through a stub no exception can pass. The thread's error object gets the text, `source` and
///    `interfaceId`, and the method is to return the HRESULT that comes back, both as
///    `ExceptionTranslation.h` says.
HRESULT leaveMethod(const void* caller, REFIID interfaceId, const wchar_t* source);
