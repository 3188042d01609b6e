#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>

/// \name The diagnostics that programs have written under a name, which is not empty
///@{
/// Where they lie, for people: "C:\logs\out.<process>.log".
[[nodiscard]] std::wstring placeOfLogs(const std::wstring& name);
/// The file that was written to last; nothing when there is none.
[[nodiscard]] std::optional<std::filesystem::path> newestLog(const std::wstring& name);
///@}

/// Shows a file in the system's editor. Whatever the file is called, it is not run. Raises `_com_error`.
void openInEditor(const std::filesystem::path& file);
