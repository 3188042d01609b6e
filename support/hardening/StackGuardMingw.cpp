// What code compiled with -fstack-protector-strong needs at run time, in place of GCC's own library: that one
// asks a cryptographic service for its random number, which loads further DLLs under the loader lock, and it
// ends a process whose stack is smashed with an illegal instruction, which a guard against hardware faults
// would make an exception of.
#include <windows.h>

#include <cstdint>

namespace {

// The finaliser of a 64-bit hash: every bit of the input moves every bit of the result.
std::uintptr_t mix(std::uintptr_t value) noexcept
{
    value ^= value >> 33;
    value *= 0xff51afd7ed558ccdu;
    value ^= value >> 33;
    value *= 0xc4ceb9fe1a85ec53u;
    return value ^ (value >> 33);
}

std::uintptr_t unpredictable() noexcept
{
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    LARGE_INTEGER ticks{};
    QueryPerformanceCounter(&ticks);
    std::uintptr_t value =
        reinterpret_cast<std::uintptr_t>(&now); // Where the stack lies is random by itself.
    value = mix(value ^ now.dwLowDateTime);
    value = mix(value ^ now.dwHighDateTime);
    value = mix(value ^ static_cast<std::uintptr_t>(ticks.QuadPart));
    value = mix(value ^ GetCurrentProcessId());
    value = mix(value ^ GetCurrentThreadId());
    return mix(value ^ __builtin_ia32_rdtsc());
}

} // namespace

extern "C" {

// The value that every protected function puts between its buffers and its return address.
std::uintptr_t __stack_chk_guard = 0; // NOLINT(bugprone-reserved-identifier): the compiler's name.

// Before every other constructor. The lowest byte is 0, so that no copied text runs over the value unnoticed.
__attribute__((constructor(101))) void mirovelChooseStackGuard()
{
    __stack_chk_guard = unpredictable() & ~std::uintptr_t{0xff};
}

// Ends the process at once: neither the host's handlers nor ours may run on a smashed stack.
[[noreturn]] void __stack_chk_fail() // NOLINT(bugprone-reserved-identifier): the compiler's name.
{
    // __fastfail, which mingw's headers do not have.
    __asm__ volatile("int $0x29" : : "c"(FAST_FAIL_STACK_COOKIE_CHECK_FAILURE));
    __builtin_unreachable();
}

} // extern "C"
