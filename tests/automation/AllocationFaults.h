#pragma once

/// While alive, refuses this thread's requests for memory by `new`, all but the first few: they throw
/// std::bad_alloc. One at a time.
class AllocationFaults
{
public:
    explicit AllocationFaults(int granted);
    ~AllocationFaults();
    AllocationFaults(const AllocationFaults&) = delete;
    AllocationFaults& operator=(const AllocationFaults&) = delete;

    [[nodiscard]] int refused() const;
};
