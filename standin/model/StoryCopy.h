#pragma once

#include "Story.h"

namespace standin::model {

/// Gives the empty story `to` the text and formatting of `from`, a story of the same document.
void copyStory(const Story& from, Story& to);

} // namespace standin::model
