#pragma once

#include <string_view>

/// How much of a file's beginning `isLogBeginning` needs, in bytes.
inline constexpr int logBeginningSize = 128;

/// Whether a file that begins with `bytes` (all of a shorter file) is a log that a trace has written, as far
/// as that can be told: it is empty, or begins with a call's echo, with a missing file or with the report of
/// a failed Word call.
bool isLogBeginning(std::string_view bytes);
