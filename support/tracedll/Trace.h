#pragma once

#include "QdxString.h"

#include <climits>
#include <memory>
#include <ostream>

/// A trace log with a level. ANSI text, lines ended by CR LF (a lone line feed inside a text becomes CR LF
/// too), appended to the file; every finished line reaches the file at once, so that a crash leaves a whole
/// script.
///
/// A copy shares the open file and the line being written, and keeps a level of its own. Several traces may
/// write the same log, in this process and in others. One thread at a time per file.
///
/// Where a log lies: a name with a directory is used as it is; a bare name lies in the user's temporary
/// directory; an empty name means "mirovelcom.log" there.
class Trace
{
public:
    using Manipulator = std::ostream& (*)(std::ostream&);

    /// Not open, level 0.
    Trace() = default;
    Trace(const Trace&) = default;
    Trace& operator=(const Trace&) = default;
    ~Trace() = default;

    /// Opens the named log for appending, in place of the one open so far. Raises QdxException with the path
    /// and the reason when it cannot be written, or when the file holds something else than a log; the trace
    /// is then as it was before.
    void open(const QdxString& name);
    /// Lets go of the log; copies that share it go on writing. The level stays.
    void close() noexcept;
    void setLevel(int level) noexcept;

    /// True when a log is open and the level is `level` or above.
    [[nodiscard]] bool isTrace(int level) const noexcept { return level <= limit_; }

    /// Removes the log that an earlier process left under that name. A log that this process has opened is
    /// kept, and so is one that another process has open, and any file that is not recognisably a log. Never
    /// raises.
    static void purgeBefore(const QdxString& name) noexcept;

    /// All these do nothing while no log is open; whether the level is high enough is for the caller to ask.
    Trace& operator<<(const QdxString& text);
    Trace& operator<<(const char* text);
    Trace& operator<<(short number);
    Trace& operator<<(long number);
    /// `std::endl`: ends the line and writes it.
    Trace& operator<<(Manipulator endOfLine);

private:
    class Log;

    void updateLimit() noexcept;

    static constexpr int closed_ = INT_MIN;

    std::shared_ptr<Log> log_;
    int level_ = 0;
    /// The level while a log is open, else below every level: so isTrace() is one comparison.
    int limit_ = closed_;
};
