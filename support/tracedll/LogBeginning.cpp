#include "tracedll/LogBeginning.h"

#include <algorithm>

namespace {

/// `mirovel->method(`
bool isEcho(std::string_view bytes)
{
    constexpr std::string_view object = "mirovel->";
    if (!bytes.starts_with(object))
        return false;
    bytes.remove_prefix(object.size());
    const auto end = std::ranges::find_if_not(
        bytes, [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); });
    return end != bytes.begin() && end != bytes.end() && *end == '(';
}

/// An activity's name, and the code on the next line.
bool isErrorReport(std::string_view bytes)
{
    constexpr std::string_view lineEnd = "\r\n";
    const std::size_t end = bytes.find(lineEnd);
    return end != bytes.npos && end != 0 && bytes.substr(end + lineEnd.size()).starts_with("COMERROR 0x");
}

} // namespace

// "// Page 1" never comes first: it follows the echo of `create`.
bool isLogBeginning(std::string_view bytes)
{
    return bytes.empty() || isEcho(bytes) || bytes.starts_with("ERR File not found: ") ||
           isErrorReport(bytes);
}
