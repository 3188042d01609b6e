#pragma once

#include "ClientCall.h"

namespace reference {

/// A session with everything there is. Each of its texts ("<<01>>") is written once.
Session fullSession();

} // namespace reference
