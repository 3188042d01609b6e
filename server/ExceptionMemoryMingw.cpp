// Where the C++ runtime of this DLL keeps exceptions; these functions take the place of libstdc++'s.
//
// Libstdc++'s own have a reserve for when there is no memory left, behind a mutex that winpthreads makes at
// its first use, for which it needs memory. Without that it throws, for which it needs the reserve: the stack
// is full then, and the host has gone. Its reserve is also never given back when the DLL is unloaded.
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <exception>

namespace {

/// At least what the runtime keeps in front of an exception: 160 bytes with GCC 12.
constexpr std::size_t headerSize = 256;

/// Memory for exceptions when there is no other: more than are ever under way at once, on all threads.
class Reserve
{
public:
    void* take(std::size_t size) noexcept
    {
        if (size > sizeof(Slot::bytes))
            return nullptr;
        for (Slot& slot : slots_)
            if (!slot.isTaken.exchange(true))
                return slot.bytes;
        return nullptr;
    }

    /// Whether the memory was the reserve's.
    bool giveBack(const void* memory) noexcept
    {
        for (Slot& slot : slots_)
            if (slot.bytes == memory) {
                slot.isTaken = false;
                return true;
            }
        return false;
    }

private:
    struct Slot
    {
        alignas(16) unsigned char bytes[1024]{};
        std::atomic<bool> isTaken{false};
    };
    Slot slots_[64]{};
};

constinit Reserve reserve{};

void* take(std::size_t size) noexcept
{
    void* memory = std::malloc(size);
    if (!memory)
        memory = reserve.take(size);
    if (!memory)
        std::terminate();
    std::memset(memory, 0, size);
    return memory;
}

void giveBack(void* memory) noexcept
{
    if (!reserve.giveBack(memory))
        std::free(memory);
}

} // namespace

namespace __cxxabiv1 {

extern "C" void* __cxa_allocate_exception(std::size_t size) noexcept
{
    return static_cast<unsigned char*>(take(headerSize + size)) + headerSize;
}

extern "C" void __cxa_free_exception(void* exception) noexcept
{
    giveBack(static_cast<unsigned char*>(exception) - headerSize);
}

// What a std::exception_ptr that is thrown again needs.
extern "C" __cxa_dependent_exception* __cxa_allocate_dependent_exception() noexcept
{
    return static_cast<__cxa_dependent_exception*>(take(headerSize));
}

extern "C" void __cxa_free_dependent_exception(__cxa_dependent_exception* exception) noexcept
{
    giveBack(exception);
}

} // namespace __cxxabiv1
