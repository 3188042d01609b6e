#pragma once

/// Prints what a client's call costs in this process with a Word that does nothing, beside a bare loop that
/// makes the same Word calls.

/// Nanoseconds, for different numbers of calls.
void printTimes();

/// Heap allocations. Needs OANOCACHE in the environment, see Allocations.h.
void printAllocations();
