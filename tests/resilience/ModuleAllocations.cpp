#include "ModuleAllocations.h"

#include <cstdlib>
#include <oleauto.h>
#include <unordered_set>

namespace {

long ordinalToRefuse = 0; // 0: none
bool refusesOnwards = false;
ModuleAllocations::Requests requests;
std::unordered_set<void*> blocks;

bool isBlockRefused()
{
    ++requests.made;
    if (ordinalToRefuse == 0 || requests.made < ordinalToRefuse ||
        (requests.made > ordinalToRefuse && !refusesOnwards))
        return false;
    ++requests.refused;
    return true;
}

void* known(void* block)
{
    if (block)
        blocks.insert(block);
    return block;
}

void* countedMalloc(std::size_t size)
{
    return isBlockRefused() ? nullptr : known(std::malloc(size));
}

void* countedCalloc(std::size_t count, std::size_t size)
{
    return isBlockRefused() ? nullptr : known(std::calloc(count, size));
}

void* countedRealloc(void* block, std::size_t size)
{
    if (isBlockRefused())
        return nullptr;
    // One that cannot grow is not given back; the system's own refusal ends the test elsewhere.
    blocks.erase(block);
    return known(std::realloc(block, size));
}

void countedFree(void* block)
{
    blocks.erase(block);
    std::free(block);
}

BSTR WINAPI countedAllocString(const OLECHAR* text)
{
    return isBlockRefused() ? nullptr : SysAllocString(text);
}

BSTR WINAPI countedAllocStringLen(const OLECHAR* text, UINT length)
{
    return isBlockRefused() ? nullptr : SysAllocStringLen(text, length);
}

BSTR WINAPI countedAllocStringByteLen(LPCSTR bytes, UINT length)
{
    return isBlockRefused() ? nullptr : SysAllocStringByteLen(bytes, length);
}

} // namespace

ModuleAllocations::ModuleAllocations(HMODULE module)
    : malloc_(module, "malloc", countedMalloc), calloc_(module, "calloc", countedCalloc),
      realloc_(module, "realloc", countedRealloc), free_(module, "free", countedFree),
      allocText_(module, "SysAllocString", countedAllocString),
      allocTextOfLength_(module, "SysAllocStringLen", countedAllocStringLen),
      allocTextOfBytes_(module, "SysAllocStringByteLen", countedAllocStringByteLen)
{
}

ModuleAllocations::~ModuleAllocations()
{
    ordinalToRefuse = 0;
    blocks.clear();
}

void ModuleAllocations::refuse(long ordinal, bool onwards)
{
    requests = {};
    refusesOnwards = onwards;
    ordinalToRefuse = ordinal;
}

ModuleAllocations::Requests ModuleAllocations::grantAll()
{
    ordinalToRefuse = 0;
    return requests;
}

std::size_t ModuleAllocations::liveBlocks() const
{
    return blocks.size();
}
