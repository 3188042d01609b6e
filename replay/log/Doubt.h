#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace replay {

/// What a log does not tell, or tells in a way that has more than one reading.
enum class DoubtKind : std::uint8_t
{
    notUnderstood,
    endInText,
    arguments,
    lineEnd,
    questionMark,
    rowHeight,
    attribute,
    anchorCut,
    anotherClient,
    noStart,
    noCreate
};

struct Doubt
{
    DoubtKind kind;
    int line; ///< of the log, from 1

    bool operator==(const Doubt&) const = default;
};

/// What the log says there, and how it was read.
std::string_view describe(DoubtKind kind);

/// For each kind one line of text, with the numbers of the lines: "  what: lines 3, 5-7".
std::vector<std::string> reportOf(const std::vector<Doubt>& doubts);

} // namespace replay
