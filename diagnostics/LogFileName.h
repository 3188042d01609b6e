#pragma once

#include <string>
#include <string_view>

namespace diagnostics {

/// The file in which a process writes the log of that name: the process's number comes before the extension,
/// and a bare name lies in `temporaryFolder`. "out.log" becomes "<temporary folder>\out.4711.log".
[[nodiscard]] std::wstring logFileName(std::wstring_view name, std::wstring_view temporaryFolder,
                                       unsigned long process);

/// Whether a file's bare name is one that logFileName() makes of `name`, for whatever process.
[[nodiscard]] bool isLogFileName(std::wstring_view file, std::wstring_view name);

/// The name without its folder.
[[nodiscard]] std::wstring_view bareName(std::wstring_view name);

} // namespace diagnostics
