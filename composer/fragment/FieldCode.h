#pragma once

#include "Content.h"

#include <string>
#include <string_view>

/// What stands between a field's characters, as Word writes it there: keyword, arguments, switches.
namespace compose {

/// The arguments of the TC field of an entry: the text in quotes, `\fC` (it belongs to table C), the level.
/// A row of paragraph ends is a space, since a field's code is one line.
std::u16string entryArguments(const Entry& entry);
std::u16string entryCode(const Entry& entry);

std::u16string linkCode(const LinkTarget& target);

/// Of a client's number; empty for one that has no field of its own.
std::u16string_view fieldCode(int number);

} // namespace compose
