#include "Faults.h"

#include <charconv>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace standin {
namespace {
template <typename Number>
Number readNumber(std::string_view text, int base)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (error != std::errc() || end != text.data() + text.size())
        throw std::invalid_argument("not a fault: " + std::string(text));
    return number;
}
} // namespace

void Faults::clear()
{
    *this = Faults();
}

void Faults::read(std::string_view text)
{
    while (true) {
        const std::size_t comma = text.find(',');
        readOne(text.substr(0, comma));
        if (comma == std::string_view::npos)
            return;
        text.remove_prefix(comma + 1);
    }
}

void Faults::readOne(std::string_view text)
{
    const std::size_t colon = text.find(":0x");
    if (colon == std::string_view::npos || colon == 0)
        throw std::invalid_argument("not a fault: " + std::string(text));
    std::string_view ordinal = text.substr(0, colon);
    const auto result = static_cast<Result>(readNumber<std::uint32_t>(text.substr(colon + 3), 16));
    if (const std::size_t star = ordinal.find('*'); star != std::string_view::npos) {
        const int times = readNumber<int>(ordinal.substr(star + 1), 10);
        rejectCall(readNumber<long>(ordinal.substr(0, star), 10), result, times);
        return;
    }
    const bool onwards = ordinal.back() == '+';
    if (onwards)
        ordinal.remove_suffix(1);
    (onwards ? onwards_ : single_)[readNumber<long>(ordinal, 10)] = result;
}

std::optional<Faults::Result> Faults::takeRejection(long ordinal)
{
    const auto rejection = rejections_.find(ordinal);
    if (rejection == rejections_.end() || rejection->second.left <= 0)
        return std::nullopt;
    --rejection->second.left;
    return rejection->second.result;
}

std::optional<Faults::Result> Faults::resultOf(long ordinal) const
{
    if (const auto single = single_.find(ordinal); single != single_.end())
        return single->second;
    if (const auto behind = onwards_.upper_bound(ordinal); behind != onwards_.begin())
        return std::prev(behind)->second;
    return std::nullopt;
}
} // namespace standin
