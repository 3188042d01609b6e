#include "Allocations.h"

#include <comdef.h>
#include <objbase.h>

#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

long cppAllocations = 0;
long comAllocations = 0;
long heldBytes = 0;

class CountingSpy final : public IMallocSpy
{
public:
    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override
    {
        const bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IMallocSpy);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    // IMallocSpy
    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override
    {
        ++comAllocations;
        return size;
    }
    void* STDMETHODCALLTYPE PostAlloc(void* memory) override { return memory; }
    void* STDMETHODCALLTYPE PreFree(void* memory, WINBOOL) override { return memory; }
    void STDMETHODCALLTYPE PostFree(WINBOOL) override {}
    SIZE_T STDMETHODCALLTYPE PreRealloc(void* memory, SIZE_T size, void** newMemory, WINBOOL) override
    {
        ++comAllocations;
        *newMemory = memory;
        return size;
    }
    void* STDMETHODCALLTYPE PostRealloc(void* memory, WINBOOL) override { return memory; }
    void* STDMETHODCALLTYPE PreGetSize(void* memory, WINBOOL) override { return memory; }
    SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, WINBOOL) override { return size; }
    void* STDMETHODCALLTYPE PreDidAlloc(void* memory, WINBOOL) override { return memory; }
    int STDMETHODCALLTYPE PostDidAlloc(void*, WINBOOL, int actual) override { return actual; }
    void STDMETHODCALLTYPE PreHeapMinimize() override {}
    void STDMETHODCALLTYPE PostHeapMinimize() override {}
};

CountingSpy spy;

} // namespace

Allocations allocationsSoFar()
{
    return {cppAllocations, comAllocations};
}

long bytesHeld()
{
    return heldBytes;
}

ComAllocationCounter::ComAllocationCounter()
{
    _com_util::CheckError(CoRegisterMallocSpy(&spy));
}

ComAllocationCounter::~ComAllocationCounter()
{
    CoRevokeMallocSpy();
}

void* operator new(std::size_t size)
{
    ++cppAllocations;
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (!memory)
        throw std::bad_alloc();
    heldBytes += static_cast<long>(_msize(memory));
    return memory;
}

void operator delete(void* memory) noexcept
{
    if (memory)
        heldBytes -= static_cast<long>(_msize(memory));
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    operator delete(memory);
}
