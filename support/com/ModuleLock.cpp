#include "ModuleLock.h"

#include "CComModule.h"

ModuleLock::ModuleLock() noexcept
{
    comModule().lock();
}

ModuleLock::~ModuleLock()
{
    comModule().unlock();
}
