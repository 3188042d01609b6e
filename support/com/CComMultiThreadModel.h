#pragma once

#include <windows.h>

#include <atomic>

/// Counts for what several apartments share: class objects and the module's lock count.
class CComMultiThreadModel
{
public:
    using Counter = std::atomic<ULONG>;

    static ULONG increment(Counter& counter) noexcept { return ++counter; }
    static ULONG decrement(Counter& counter) noexcept { return --counter; }
};
