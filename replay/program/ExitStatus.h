#pragma once

namespace replay {

/// What the program ends with.
enum class ExitStatus : int
{
    done = 0,
    callFailed = 1,
    usage = 2,
    unreadable = 3,
    noObject = 4,
    interrupted = 130
};

} // namespace replay
