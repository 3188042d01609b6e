// The heap of programs that play sessions. They allocate and free small blocks all the time, nearly always on
// one thread, and Wine's heap takes a third of their time for it. So a small block that is freed is kept for
// the next one of its size.
#include <array>
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <thread>

namespace {

constexpr std::size_t step = 16;
constexpr std::size_t sizes = 64; ///< larger blocks are nobody's: they go back at once

/// In front of every block; as large as the strictest alignment.
struct alignas(std::max_align_t) Header
{
    std::size_t size; ///< in steps
    Header* next;     ///< of the kept ones
};

std::array<Header*, sizes> kept;
std::atomic_flag isTaken;

class Lock
{
public:
    Lock() noexcept
    {
        while (isTaken.test_and_set(std::memory_order_acquire))
            std::this_thread::yield();
    }
    ~Lock() { isTaken.clear(std::memory_order_release); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
};

Header* takeKept(std::size_t size) noexcept
{
    if (size >= sizes)
        return nullptr;
    const Lock lock;
    Header* const block = kept[size];
    if (block)
        kept[size] = block->next;
    return block;
}

Header* makeNew(std::size_t size)
{
    auto* const block = static_cast<Header*>(std::malloc(sizeof(Header) + size * step));
    if (!block)
        throw std::bad_alloc();
    block->size = size;
    return block;
}

} // namespace

void* operator new(std::size_t bytes)
{
    const std::size_t size = bytes / step + 1;
    Header* const block = takeKept(size);
    return (block ? block : makeNew(size)) + 1;
}

void operator delete(void* memory) noexcept
{
    if (!memory)
        return;
    Header* const block = static_cast<Header*>(memory) - 1;
    if (block->size >= sizes) {
        std::free(block);
        return;
    }
    const Lock lock;
    block->next = kept[block->size];
    kept[block->size] = block;
}

void operator delete(void* memory, std::size_t) noexcept
{
    operator delete(memory);
}
