#pragma once

#include "CalledMember.h"

#include <algorithm>
#include <string>
#include <vector>

/// "12 (3)": the calls, and those of them that returned objects.
inline std::string callsIn(const std::vector<standin::CalledMember>& calls)
{
    return std::to_string(calls.size()) + " (" +
           std::to_string(std::ranges::count_if(calls, &standin::CalledMember::gaveObject)) + ")";
}
