#pragma once

#include "ClientCall.h"

#include <functional>

namespace reference {

/// A session as short as it gets by leaving calls out of `session` such that it stays valid and `differs`
/// stays true.
Session shrink(Session session, const std::function<bool(const Session&)>& differs);

} // namespace reference
