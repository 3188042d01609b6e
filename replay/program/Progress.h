#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace replay {

/// How far something has come, and how fast.
struct Progress
{
    std::size_t done = 0;
    std::size_t total = 0;
    double seconds = 0; ///< since it began
};

/// `[=====     ]  50%  600/1200 calls  300/s  2 s left`, in at most so many columns.
std::string barOf(const Progress& progress, std::size_t columns);
/// `600 of 1200 calls, 300/s, 2 s left`
std::string lineOf(const Progress& progress);

/// Tells people of the progress: by a bar that is drawn anew in its line, or now and then by a line.
class ProgressReport
{
public:
    using Clock = std::function<double()>; ///< in seconds
    using Write = std::function<void(std::string_view)>;

    /// `columns`: of the terminal; 0 where there is none.
    ProgressReport(std::size_t total, std::size_t columns, Clock clock, Write write);

    void reached(std::size_t done);
    /// Leaves the line as it was before the bar.
    void end();

private:
    std::size_t total_;
    std::size_t columns_;
    Clock clock_;
    Write write_;
    double begin_;
    double last_;
    std::size_t drawn_ = 0; ///< columns of the bar that is to be seen
};

} // namespace replay
