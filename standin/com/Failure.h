#pragma once

#include <comdef.h>

namespace standin {
/// The one place where an exception becomes an HRESULT; to be called inside a catch (...) block. A failure
/// that Word would report comes with error information; any other leaves the thread without any.
HRESULT translateCurrentException(const IID& interfaceId) noexcept;

/// Leaves the error information that belongs to an HRESULT, if it is one of Word's own.
void leaveErrorInformation(HRESULT result, const IID& interfaceId) noexcept;
} // namespace standin
