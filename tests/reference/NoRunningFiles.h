#pragma once

#include "ImportedFunction.h"

namespace reference {

/// While alive, this program finds a running object table in which nothing is: the real one lies in another
/// process, and asking it takes longer than a small document.
class NoRunningFiles
{
public:
    NoRunningFiles();

private:
    ImportedFunction table_;
};

} // namespace reference
