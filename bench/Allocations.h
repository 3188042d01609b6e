#pragma once

/// How often this process asked a heap for memory: through operator new, and through COM's allocator, which
/// BSTRs come from. What Windows allocates for itself in its own heaps is not counted.
struct Allocations
{
    long cpp = 0;
    long com = 0;

    friend Allocations operator-(const Allocations& later, const Allocations& earlier)
    {
        return {later.cpp - earlier.cpp, later.com - earlier.com};
    }
};

Allocations allocationsSoFar();

/// What was taken through operator new and not given back, in bytes.
long bytesHeld();

/// COM's allocations count while one of these lives. Every BSTR is seen only when Windows does not keep freed
/// ones for later: the environment variable OANOCACHE must have been set when the process began.
class ComAllocationCounter
{
public:
    ComAllocationCounter();
    ~ComAllocationCounter();
    ComAllocationCounter(const ComAllocationCounter&) = delete;
    ComAllocationCounter& operator=(const ComAllocationCounter&) = delete;
};
