#pragma once

#include "general/HardwareFault.h"

/// While one of these is alive on a thread, a hardware fault on that thread is thrown as a HardwareFault,
/// from the instruction that faulted. Guards nest. Entering and leaving one costs a thread-local increment
/// and decrement.
///
/// Turned into exceptions: access violation, in-page error, misaligned data, array bounds, illegal and
/// privileged instruction, integer division by zero and overflow, and the floating-point faults. Everything
/// else (breakpoints, stack overflow, other languages' exceptions) and every fault on a thread without a
/// guard goes on to the host's own handlers.
///
/// The exception can only be caught where the compiler has left unwind tables for every instruction: all of
/// our code does (see cmake/CompilerOptions.cmake); a fault deep in a foreign function unwinds that function
/// without its clean-up.
class CSignal2Exception
{
public:
    CSignal2Exception() noexcept;
    ~CSignal2Exception();
    CSignal2Exception(const CSignal2Exception&) = delete;
    CSignal2Exception& operator=(const CSignal2Exception&) = delete;
};
