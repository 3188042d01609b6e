#pragma once

#include <array>
#include <string_view>

/// Where Wine is known to do otherwise than Windows, and a test has to expect either.
enum class Difference
{
    currentVersionOfProgId,
    frameHearsOfChanges,
    frameAppliesPage,
};

struct PlatformDifference
{
    Difference id;
    std::string_view windows; ///< What Windows does, and Wine does not.
    std::string_view reason;  ///< Why tests live with it.
};

inline constexpr std::array platformDifferences = {
    PlatformDifference{Difference::currentVersionOfProgId, "CLSIDFromProgID follows the key CurVer.",
                       "Wine 8 wants a CLSID below the name itself; clients can give the version."},
    PlatformDifference{Difference::frameHearsOfChanges,
                       "A page that says it is dirty enables the frame's Apply button.",
                       "Wine 8 has the page's site drop it; the settings program has a frame of its own."},
    PlatformDifference{Difference::frameAppliesPage,
                       "The frame calls Apply of its page when it is closed with OK.",
                       "Wine 8 closes without; the settings program has a frame of its own."},
};

/// Whether Windows' way is to be expected here. No test asks in another way what it runs on.
[[nodiscard]] bool isWindowsWay(Difference difference);
