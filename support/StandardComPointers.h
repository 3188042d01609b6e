#pragma once

#include <comdef.h>
#include <comip.h>

// The smart pointers over Windows' own interfaces that we use. comdef.h brings them along where the compiler
// has a native
// __uuidof; elsewhere they stand here, and only here, because the declaration may not be repeated.
#if defined(USE___UUIDOF) && USE___UUIDOF == 0
_COM_SMARTPTR_TYPEDEF(IUnknown, __uuidof(IUnknown));
_COM_SMARTPTR_TYPEDEF(IMoniker, __uuidof(IMoniker));
_COM_SMARTPTR_TYPEDEF(IRunningObjectTable, __uuidof(IRunningObjectTable));
#endif
