#pragma once

#include "Operation.h"

#include <deque>

/// What one operation of a passage means for those behind it. Each takes the operations from that one on.
namespace compose {

/// Whether a tag is to stand behind the field that the first one adds.
[[nodiscard]] bool hasTagBehindField(const std::deque<Operation>& operations);

/// The first one was to add a field, which may not be there: the tags behind it stand at its place.
void releaseTags(std::deque<Operation>& operations);

/// The first one was to put a character at `at`, which is not there: what is yet to be put behind it comes to
/// stand there. A link around that character alone goes.
void closeGap(std::deque<Operation>& operations, Position at);

} // namespace compose
