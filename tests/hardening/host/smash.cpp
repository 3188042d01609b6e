// Overruns a buffer on its stack while a guard against hardware faults is alive; with an argument, only fills
// it. Prints how far it got.
#include "general/CSignal2Exception.h"

#include <cstddef>
#include <cstdio>

namespace {

[[gnu::noinline]] char overrun(std::size_t size)
{
    char buffer[16];
    // Volatile, so that the compiler neither sees that this is wrong nor leaves it out.
    volatile char* volatile target = buffer;
    for (std::size_t i = 0; i < size; ++i)
        target[i] = 'x';
    return target[0];
}

} // namespace

int main(int argc, char**)
{
    std::puts("before");
    std::fflush(stdout);
    try {
        const CSignal2Exception guard;
        // Just as far as the guard value.
        overrun(argc > 1 ? 16 : 32);
        std::puts("after");
    } catch (...) {
        std::puts("caught");
    }
    return 0;
}
