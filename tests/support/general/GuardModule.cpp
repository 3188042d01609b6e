// A module that uses a guard and is unloaded again, as a COM host unloads an in-process server.
#include "general/CSignal2Exception.h"

extern "C" __declspec(dllexport) int useGuard()
{
    const volatile int* volatile const nowhere = nullptr;
    try {
        const CSignal2Exception guard;
        return *nowhere;
    } catch (const HardwareFault&) {
        return 7;
    }
}
