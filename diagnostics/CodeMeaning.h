#pragma once

#include <cstdint>
#include <string_view>

namespace diagnostics {

/// What is known about a code that a failed call gives: a sentence each.
struct CodeMeaning
{
    std::uint32_t code;
    std::string_view meaning;
    std::string_view remedy;
};

/// Null when nothing is known about it.
[[nodiscard]] const CodeMeaning* meaningOf(std::uint32_t code) noexcept;

} // namespace diagnostics
