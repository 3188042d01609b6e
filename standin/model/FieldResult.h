#pragma once

#include "FieldCode.h"
#include "Story.h"

#include <optional>
#include <string>

namespace standin::model {

/// What a field shows that starts at `begin`; nullopt for one that shows nothing, such as an entry for an
/// index. Raises NotSupported for a kind that the stand-in cannot compute.
std::optional<std::u16string> fieldResult(const Story& story, Position begin, const FieldCode& code);

} // namespace standin::model
