#pragma once

#include <string>

/// The path from the drive on, by the process's current directory; the name itself where the system makes
/// none of it.
[[nodiscard]] std::wstring fullPath(const std::wstring& name);
