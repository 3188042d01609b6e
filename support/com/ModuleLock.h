#pragma once

/// Holds one count of the module's lock as long as it lives: a base of every object, first among the bases so
/// that the count is given back after everything else of the object is gone.
class ModuleLock
{
public:
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;

protected:
    ModuleLock() noexcept;
    ~ModuleLock();
};
