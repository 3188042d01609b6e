#pragma once

#include "Operation.h"

#include <functional>
#include <string>

namespace compose {

/// The client's call that an operation goes back to, for people: `setStyle("Title")`, `insertText("The
/// beginning of it...")`.
///
/// `tagOf` gives the client's name for a bookmark.
[[nodiscard]] std::u16string originOf(const Operation& operation,
                                      const std::function<std::u16string(const std::u16string&)>& tagOf);

} // namespace compose
