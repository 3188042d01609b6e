#pragma once

#include "ClientCall.h"
#include "SessionFiles.h"

#include <cstdint>
#include <string_view>

namespace reference {

/// What sessions may use.
enum class Extent
{
    withoutFiles, ///< neither insertFile nor setOrientation
    all
};

/// A valid session of calls between `create` and `close`; the same one for the same seed.
///
/// Each session uses a random choice of what there is (styles, fonts, tables, links...), so that some are
/// about one thing and some about all together. The calls come in any order that is valid.
/// Where there are files, calls that meet at a place come together often: a table of contents, tables, files
/// and headers that are gone on with, tags that move, links across stories.
Session randomSession(std::uint32_t seed, Extent extent = Extent::withoutFiles);

/// A session that arranges its calls as docs/known-behaviour.md advises, so that the document comes out right
/// without the tracking of positions as well. It has no tables: a space stays behind each.
Session arrangedSession(std::uint32_t seed);

/// The names that mean addresses, of those that sessions use as targets.
bool isAddress(std::u16string_view target);

} // namespace reference
