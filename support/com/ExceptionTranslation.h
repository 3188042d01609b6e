#pragma once

#include <oaidl.h>
#include <windows.h>

/// The one translation of C++ exceptions for COM callers. Every boundary function is `noexcept` with a
/// function-try-block whose only handler is `catch (...)` and calls one of these.
///
/// | exception                             | HRESULT       | text                            |
/// |---------------------------------------|---------------|---------------------------------|
/// | `_com_error`                          | its `Error()` | its `ErrorMessage()`            |
/// | `std::bad_alloc`                      | E_OUTOFMEMORY | the system's text for that code |
/// | `std::exception`, so `QdxException`   | E_FAIL        | its `what()` (ANSI code page)   |
/// | anything else                         | E_UNEXPECTED  | the system's text for that code |
///
/// So nothing that is thrown ends the host, and nothing passes for success.

/// The HRESULT of the exception being handled. Only within a handler.
HRESULT currentExceptionToHresult() noexcept;

/// Fills `info` (if there is one; what it held is overwritten, not freed) from the exception being handled:
/// `source`, the text above and, as scode, the HRESULT. Returns DISP_E_EXCEPTION. Only within a handler.
HRESULT currentExceptionToExcepInfo(EXCEPINFO* info, const wchar_t* source) noexcept;

/// Gives the thread an error object with `interfaceId`, `source` and the text above, and returns the HRESULT.
/// Only within a handler.
HRESULT currentExceptionToErrorObject(REFIID interfaceId, const wchar_t* source) noexcept;

/// Completes `info`, which tells of a method that returned the failure `info.scode`: a source and a text
/// where there is none yet.
void completeExcepInfo(EXCEPINFO& info, const wchar_t* source) noexcept;
