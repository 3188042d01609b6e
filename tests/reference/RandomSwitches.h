#pragma once

#include "Switches.h"

#include <cstdint>

namespace reference {

/// How Word behaves where that is not certain: any mixture of its readings, the same one for the same seed.
/// Some mixtures are near the default, some far from it.
standin::model::Switches randomSwitches(std::uint32_t seed);

} // namespace reference
