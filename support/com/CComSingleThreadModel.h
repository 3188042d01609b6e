#pragma once

#include <windows.h>

/// Counts for objects that live on one apartment thread: plain increments, no locks.
class CComSingleThreadModel
{
public:
    using Counter = ULONG;

    static ULONG increment(Counter& counter) noexcept { return ++counter; }
    static ULONG decrement(Counter& counter) noexcept { return --counter; }
};
