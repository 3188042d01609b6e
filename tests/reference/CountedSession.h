#pragma once

#include "ClientCall.h"

namespace reference {

/// The session without the calls with which the counting writer is known to lose text
/// (docs/known-behaviour.md).
Session withoutKnownLosses(const Session& session);

/// Whether the call begins or ends a header or footer.
bool isHeaderCall(Method method);

} // namespace reference
