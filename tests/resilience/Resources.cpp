#include "Resources.h"

#include <gtest/gtest.h>
#include <winternl.h>

#include <array>
#include <functional>
#include <numeric>
#include <stdexcept>
#include <vector>

namespace {

// Of the system's own headers, which leave it out.
struct SystemHandle
{
    void* object;
    ULONG_PTR process;
    ULONG_PTR handle;
    ULONG access;
    USHORT creatorBackTrace;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};

struct SystemHandles
{
    ULONG_PTR count;
    ULONG_PTR reserved;
    SystemHandle handles[1];
};

// Wine does not answer GetProcessHandleCount.
std::size_t openHandles()
{
    constexpr int extendedHandleInformation = 64;
    constexpr auto tooSmall = static_cast<NTSTATUS>(0xC0000004);
    using Query = NTSTATUS WINAPI(int, void*, ULONG, ULONG*);
    void* const found =
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation"));
    auto* const query = reinterpret_cast<Query*>(found);
    std::vector<std::byte> buffer(1U << 16U);
    NTSTATUS status = 0;
    while ((status = query(extendedHandleInformation, buffer.data(), static_cast<ULONG>(buffer.size()),
                           nullptr)) == tooSmall)
        buffer.resize(2 * buffer.size());
    if (status != 0)
        throw std::runtime_error("the system does not tell of handles");
    const auto* const all = reinterpret_cast<const SystemHandles*>(buffer.data());
    std::size_t count = 0;
    for (ULONG_PTR i = 0; i < all->count; ++i)
        if (all->handles[i].process == GetCurrentProcessId())
            ++count;
    return count;
}

BOOL CALLBACK countWindow(HWND window, LPARAM count)
{
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId())
        ++*reinterpret_cast<std::size_t*>(count);
    return TRUE;
}

std::size_t openWindows()
{
    std::size_t count = 0;
    EnumWindows(countWindow, reinterpret_cast<LPARAM>(&count));
    for (HWND each = nullptr; (each = FindWindowExW(HWND_MESSAGE, each, nullptr, nullptr)) != nullptr;)
        countWindow(each, reinterpret_cast<LPARAM>(&count));
    return count;
}

// Nor does Wine tell private bytes apart from those of its own libraries.
std::size_t committedBytes()
{
    std::size_t total = 0;
    MEMORY_BASIC_INFORMATION region{};
    for (const std::byte* at = nullptr; VirtualQuery(at, &region, sizeof region) != 0;
         at = static_cast<const std::byte*>(region.BaseAddress) + region.RegionSize)
        if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE)
            total += region.RegionSize;
    return total;
}

std::size_t allocatedIn(HANDLE heap)
{
    std::size_t total = 0;
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heap);
    while (HeapWalk(heap, &entry))
        if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY)
            total += entry.cbData;
    HeapUnlock(heap);
    return total;
}

std::size_t allocatedInHeaps()
{
    std::array<HANDLE, 64> heaps{};
    const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    if (count == 0 || count > heaps.size())
        throw std::runtime_error("the system does not tell of heaps");
    return std::transform_reduce(heaps.begin(), heaps.begin() + count, std::size_t{0}, std::plus<>(),
                                 &allocatedIn);
}

} // namespace

Resources Resources::now()
{
    const HANDLE process = GetCurrentProcess();
    return {openHandles(),
            GetGuiResources(process, GR_GDIOBJECTS),
            GetGuiResources(process, GR_USEROBJECTS),
            openWindows(),
            committedBytes(),
            allocatedInHeaps()};
}

void expectFlat(const Resources& before, std::size_t slack)
{
    const Resources after = Resources::now();
    EXPECT_GT(before.handles, 0U);
    constexpr std::size_t systemsOwn = 2; // now and then Wine makes one for itself
    EXPECT_LE(after.handles, before.handles + systemsOwn);
    EXPECT_LE(after.gdiObjects, before.gdiObjects);
    EXPECT_LE(after.userObjects, before.userObjects);
    EXPECT_LE(after.windows, before.windows);
    EXPECT_GT(before.privateBytes, 0U);
    EXPECT_LE(after.privateBytes, before.privateBytes + slack);
    std::printf("%zu handles, %zu windows, %zu KB (%+lld KB)\n", after.handles, after.windows,
                after.privateBytes / 1024,
                (static_cast<long long>(after.privateBytes) - static_cast<long long>(before.privateBytes)) /
                    1024);
}
