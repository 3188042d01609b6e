// The entry points of the module.
#include "ClassMap.h"

#include "CComModule.h"
#include "ExceptionTranslation.h"

#include <IDocument.h>

#include <olectl.h>
#include <windows.h>

/// Runs under the loader lock: keeps what it is told and allocates nothing.
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID /*reserved*/)
{
    if (reason == DLL_PROCESS_ATTACH) {
        comModule().init(classMap(), instance, &LIBID_MIROVELCOMLib);
        DisableThreadLibraryCalls(instance);
    } else if (reason == DLL_PROCESS_DETACH) {
        comModule().term();
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, LPVOID* out)
{
    return comModule().getClassObject(classId, iid, out);
}

STDAPI DllCanUnloadNow()
{
    return comModule().lockCount() == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer()
try {
    comModule().registerServer();
    return S_OK;
} catch (...) {
    return currentExceptionToHresult();
}

STDAPI DllUnregisterServer()
{
    comModule().unregisterServer();
    return S_OK;
}
