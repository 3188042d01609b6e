#include "EventLine.h"

#include "CodeMeaning.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace diagnostics {

namespace {

constexpr std::size_t longestField = 1000;

bool continuesCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

std::string hexadecimal(std::uint32_t code)
{
    std::array<char, 16> digits{};
    std::snprintf(digits.data(), digits.size(), "0x%08x", static_cast<unsigned>(code));
    return digits.data();
}

std::string remedyOf(const Event& event)
{
    if (!event.remedy.empty() || !event.code)
        return event.remedy;
    const CodeMeaning* const known = meaningOf(*event.code);
    return known ? std::string(known->meaning) + " " + std::string(known->remedy) : std::string();
}

} // namespace

std::string inOneLine(std::string_view text)
{
    std::string line(text);
    std::ranges::replace_if(
        line, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

std::string shortened(std::string_view text, std::size_t most)
{
    if (text.size() <= most)
        return std::string(text);
    std::size_t end = most;
    while (end > 0 && continuesCharacter(text[end]))
        --end;
    return std::string(text.substr(0, end)) + "...";
}

std::string eventLine(const Subject& subject, const Event& event)
{
    std::string line = "#" + std::to_string(subject.object);
    const auto add = [&line](std::string_view field) {
        const std::string text = inOneLine(shortened(field, longestField));
        line.append("\t").append(text.empty() ? "-" : text);
    };
    add(subject.document);
    add(subject.method);
    add(event.what);
    add(event.code ? hexadecimal(*event.code) : std::string());
    add(event.description);
    add(event.source);
    add(remedyOf(event));
    return line;
}

} // namespace diagnostics
