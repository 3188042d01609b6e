#pragma once

#include "Console.h"
#include "ExitStatus.h"
#include "Options.h"

#include <functional>

namespace replay {

/// Does what the program was started for. Needs an apartment. `isInterrupted` is asked between calls.
ExitStatus replayLogs(const Options& options, const Console& console,
                      const std::function<bool()>& isInterrupted);

} // namespace replay
