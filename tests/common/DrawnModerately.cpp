#include "InlineCopies.h"

#include <random>

std::uint32_t drawnModerately(std::uint32_t seed)
{
    std::mt19937 engine(seed);
    return static_cast<std::uint32_t>(engine());
}
