#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>
#include <vector>

/// What is chosen, one thing after the other, by bytes that somebody else made up.
class Choices
{
public:
    explicit Choices(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    [[nodiscard]] bool areOver() const { return bytes_.empty(); }
    /// From 0 to `count` - 1; 0 when they are over.
    std::size_t below(std::size_t count)
    {
        if (areOver())
            return 0;
        const std::size_t choice = bytes_.front();
        bytes_ = bytes_.subspan(1);
        return choice % count;
    }
    bool onceIn(std::size_t count) { return below(count) == count - 1; }
    template <class List>
    const auto& oneOf(const List& list)
    {
        return list[below(list.size())];
    }

private:
    std::span<const std::uint8_t> bytes_;
};

/// The same for a seed in every run.
inline std::vector<std::uint8_t> randomBytes(std::uint32_t seed, std::size_t most)
{
    std::mt19937 numbers(seed);
    std::vector<std::uint8_t> bytes(1 + numbers() % most);
    for (std::uint8_t& each : bytes)
        each = static_cast<std::uint8_t>(numbers() >> 11U);
    return bytes;
}
