#pragma once

#include "ComPointers.h"

#include <oaidl.h>
#include <windows.h>

/// The type information of the interface `iid` in the library `libraryId`.
///
/// The library is looked for in this order: registered under the version asked for; registered under any
/// other version, the highest first; the resource TYPELIB 1 of the running module. So an interface whose code
/// was built to ask for version 1.0 is found in a library that is registered as 2.0, and an unregistered
/// server can still be scripted. A registered library that does not describe the interface is passed over
/// like a missing one.
///
/// Throws `_com_error` with the last step's HRESULT when there is none.
ITypeInfoPtr findTypeInfo(const GUID& libraryId, const IID& iid, WORD majorVersion, WORD minorVersion);
