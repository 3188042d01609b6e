#include "AllocationFaults.h"

#include <cstdlib>
#include <new>

namespace {

thread_local bool refusing = false;
thread_local int left = 0;
thread_local int refusals = 0;

} // namespace

AllocationFaults::AllocationFaults(int granted)
{
    left = granted;
    refusals = 0;
    refusing = true;
}

AllocationFaults::~AllocationFaults()
{
    refusing = false;
}

int AllocationFaults::refused() const
{
    return refusals;
}

// They take the place of the C++ library's, for the whole program.

void* operator new(std::size_t size)
{
    if (refusing && --left < 0) {
        ++refusals;
        throw std::bad_alloc();
    }
    if (void* const memory = std::malloc(size != 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
