#pragma once

#include <algorithm>
#include <string>
#include <vector>

/// Whether a line of the stand-in's transcript is of a call that returned an object: `Range@1.Font ->
/// Font@2`.
inline bool returnsObject(const std::string& line)
{
    const std::size_t number = line.find_last_not_of("0123456789");
    if (number == line.npos || line[number] != '@' || number + 1 == line.size())
        return false;
    const std::size_t arrow = line.rfind(" -> ", number);
    return arrow != line.npos && line.find_first_of("\" ", arrow + 4) == line.npos;
}

/// "12 (3)": the calls, and those of them that returned objects.
inline std::string callsIn(const std::vector<std::string>& transcript)
{
    return std::to_string(transcript.size()) + " (" +
           std::to_string(std::ranges::count_if(transcript, returnsObject)) + ")";
}
