#pragma once

#include "Word.h"

/// A Word that does nothing: every call answers S_OK at once. It has one object of each kind.
namespace NullWord {

Word::_Application& application();
Word::_Document& document();
Word::Range& range();

} // namespace NullWord
