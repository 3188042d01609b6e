#pragma once

#include <windows.h>

/// A lock for `std::lock_guard` that needs no construction at run time, so that it can stand in a global that
/// is ready before any code of the module runs (std::mutex cannot with this runtime).
class CriticalSection
{
public:
    constexpr CriticalSection() = default;
    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;

    void lock() noexcept { AcquireSRWLockExclusive(&lock_); }
    void unlock() noexcept { ReleaseSRWLockExclusive(&lock_); }

private:
    SRWLOCK lock_ = SRWLOCK_INIT;
};
