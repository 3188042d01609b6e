#pragma once

#include "ClientCall.h"

#include "Switches.h"

#include <cstdint>

namespace reference {

/// How Word behaves where that is not certain: any mixture of its readings, the same one for the same seed.
/// Some mixtures are near the default, some far from it.
standin::model::Switches randomSwitches(std::uint32_t seed);

/// The session without the calls that such a Word refuses whoever makes them: files of rich text.
Session playable(Session session, const standin::model::Switches& switches);

} // namespace reference
