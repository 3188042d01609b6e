#pragma once

#include "ImportedFunction.h"

#include <string_view>

/// One of the functions with which a module writes, refused to it at one call. Installs itself in the place
/// of the module's import; one of each function at a time, on one thread.
class FailingFunction
{
public:
    /// WriteFile, CreateFileW, fwrite, fflush, _wfsopen, RegCreateKeyExW or RegSetValueExW.
    FailingFunction(HMODULE module, std::string_view name);
    ~FailingFunction();
    FailingFunction(const FailingFunction&) = delete;
    FailingFunction& operator=(const FailingFunction&) = delete;

    /// Refuses the `ordinal`th call from now on (1 is the next one), or all from it on.
    void refuse(long ordinal, bool onwards);
    /// Refuses nothing more; the calls that there were since `refuse`.
    long grantAll();

private:
    ImportedFunction function_;
};
