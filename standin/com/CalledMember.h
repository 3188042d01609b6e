#pragma once

#include <string>

namespace standin {
/// What a line of the transcript says, whatever the objects are named; empty for a line about something else.
struct CalledMember
{
    std::string name; ///< "Range.InsertAfter", "Range.Style ="
    bool gaveObject = false;
};
} // namespace standin
