#pragma once

#include <windows.h>

#include <cstddef>
#include <string_view>

namespace replay {

/// The program's output and error streams, which may be a terminal or not. Texts are in UTF-8.
class Console
{
public:
    void say(std::string_view text) const;
    void complain(std::string_view text) const;

    /// The width of the terminal to which complaints go; 0 when they go elsewhere.
    [[nodiscard]] std::size_t columns() const noexcept;
};

} // namespace replay
