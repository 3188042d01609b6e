#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace reference {

/// Numbers that look random and are the same in every run and with every library.
class RandomNumbers
{
public:
    explicit RandomNumbers(std::uint32_t seed) : engine_(seed) {}

    /// From 0 to `count` - 1.
    std::size_t below(std::size_t count) { return engine_() % count; }
    /// Once in `count` times.
    bool onceIn(std::size_t count) { return below(count) == 0; }
    template <class List>
    const auto& oneOf(const List& list)
    {
        return list[below(list.size())];
    }

private:
    std::mt19937 engine_; // the standard fixes what it gives, unlike the distributions
};

} // namespace reference
