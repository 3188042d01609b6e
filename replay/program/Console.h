#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace replay {

/// \name Texts of the command line and of the screen are in UTF-8
///@{
std::wstring wideFromUtf8(std::string_view text);
std::string utf8FromWide(std::wstring_view text);
/// Of what the object and the log say.
std::string utf8FromAnsi(std::string_view text);
///@}

/// The program's output and error streams, which may be a terminal or not.
class Console
{
public:
    void say(std::string_view text) const;
    void complain(std::string_view text) const;

    /// The width of the terminal to which complaints go; 0 when they go elsewhere.
    [[nodiscard]] std::size_t columns() const noexcept;
};

} // namespace replay
