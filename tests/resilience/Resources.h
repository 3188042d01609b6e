#pragma once

#include <cstddef>
#include <windows.h>

/// What this process holds of the system's.
struct Resources
{
    std::size_t handles = 0;
    DWORD gdiObjects = 0;  ///< 0 under Wine
    DWORD userObjects = 0; ///< 0 under Wine
    std::size_t windows = 0;
    std::size_t privateBytes = 0;
    std::size_t allocatedBytes = 0; ///< of its heaps

    static Resources now();
};

/// Fails the running test if there is more of anything but allocated bytes; private bytes may grow by
/// `slack`.
void expectFlat(const Resources& before, std::size_t slack);
