#pragma once

#include "ClientCall.h"

#include <cstdint>
#include <string_view>

namespace reference {

/// A valid session of calls between `create` and `close`; the same one for the same seed.
///
/// Each session uses a random choice of what there is (styles, fonts, tables, links...), so that some are
/// about one thing and some about all together. The calls come in any order that is valid.
Session randomSession(std::uint32_t seed);

/// A session that arranges its calls as docs/known-behaviour.md advises, so that the document comes out right
/// without the tracking of positions as well. It has no tables: a space stays behind each.
Session arrangedSession(std::uint32_t seed);

/// The names that mean addresses, of those that sessions use as targets.
bool isAddress(std::u16string_view target);

/// The name that sessions give a picture, to insert and to link to; a player puts a file's in its place.
inline constexpr std::u16string_view pictureName = u"picture.bmp";

} // namespace reference
