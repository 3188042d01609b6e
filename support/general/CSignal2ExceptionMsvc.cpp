// For Microsoft's compiler, which turns faults into C++ exceptions by itself when it is asked to (/EHa).
#include "general/CSignal2Exception.h"

#include <eh.h>
#include <windows.h>

namespace {

thread_local int depth = 0;
thread_local _se_translator_function hostTranslator = nullptr;

void translate(unsigned int code, EXCEPTION_POINTERS* fault)
{
    if (HardwareFault::isHardwareFault(code))
        throw HardwareFault(code, reinterpret_cast<std::uintptr_t>(fault->ExceptionRecord->ExceptionAddress));
    if (hostTranslator)
        hostTranslator(code, fault);
}

} // namespace

CSignal2Exception::CSignal2Exception() noexcept
{
    if (depth++ == 0)
        hostTranslator = _set_se_translator(&translate);
}

CSignal2Exception::~CSignal2Exception()
{
    if (--depth == 0)
        _set_se_translator(hostTranslator);
}
