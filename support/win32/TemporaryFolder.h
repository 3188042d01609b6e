#pragma once

#include <string>

/// The user's folder for temporary files, with a separator at its end; empty where Windows names none, whose
/// last error then says why.
[[nodiscard]] std::wstring temporaryFolder();
