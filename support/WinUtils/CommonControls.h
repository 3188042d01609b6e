#pragma once

#include "WinUtils/SystemLibrary.h"

#include <windows.h>

/// Window classes of the system's common controls; must outlive the windows.
class CommonControls
{
public:
    /// `classes` are the ICC_ flags. Throws `_com_error`.
    explicit CommonControls(DWORD classes);

private:
    SystemLibrary library_;
};
