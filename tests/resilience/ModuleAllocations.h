#pragma once

#include "ImportedFunction.h"

#include <cstddef>

/// What a module asks of the system's allocators: counted, and refused when a test wants that. The blocks of
/// the C library that the module holds are known. One at a time, on one thread.
class ModuleAllocations
{
public:
    explicit ModuleAllocations(HMODULE module);
    ~ModuleAllocations();
    ModuleAllocations(const ModuleAllocations&) = delete;
    ModuleAllocations& operator=(const ModuleAllocations&) = delete;

    /// Refuses the `ordinal`th request from now on (1 is the next one), or all from it on.
    void refuse(long ordinal, bool onwards);
    /// Refuses nothing more; how many requests there were since `refuse`, and how many were refused.
    struct Requests
    {
        long made = 0;
        long refused = 0;
    };
    Requests grantAll();

    /// Blocks that were allocated while this lives and are not freed yet.
    [[nodiscard]] std::size_t liveBlocks() const;

private:
    ImportedFunction malloc_, calloc_, realloc_, free_, allocText_, allocTextOfLength_, allocTextOfBytes_;
};
