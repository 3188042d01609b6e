#pragma once

#include "Event.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace diagnostics {

/// A file of lines: local time with milliseconds and the distance from UTC, process, thread, severity, and a
/// text, separated by tabs. UTF-8 with CR LF. What was written reaches the file at once. A file that has
/// grown too large is put aside under the names name.1.ext and name.2.ext, the latter being the older one.
///
/// Threading: any.
class LogFile
{
public:
    static constexpr std::size_t largestFile = 10U << 20U;
    static constexpr std::size_t filesPutAside = 2;

    /// The file of that full path, for appending; all of a process share one. Raises `std::exception`.
    static std::shared_ptr<LogFile> open(const std::wstring& path, std::size_t largest = largestFile);

    virtual ~LogFile() = default;
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    /// Raises `std::exception` when the line could not be written.
    virtual void write(Severity severity, std::string_view text) = 0;

protected:
    LogFile() = default;
};

} // namespace diagnostics
