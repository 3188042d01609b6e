#include "RandomSwitches.h"

#include "RandomNumbers.h"

#include "SwitchTable.h"

#include <array>

namespace reference {

standin::model::Switches randomSwitches(std::uint32_t seed)
{
    RandomNumbers numbers(seed);
    const std::size_t rarity = numbers.oneOf(std::array<std::size_t, 3>{2, 4, 8});
    standin::model::Switches switches;
    for (const standin::model::SwitchEntry& entry : standin::model::switchTable())
        if (numbers.onceIn(rarity))
            entry.set(switches, 1 + numbers.below(entry.values.size() - 1));
    return switches;
}

} // namespace reference
