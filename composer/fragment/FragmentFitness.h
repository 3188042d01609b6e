#pragma once

#include "Content.h"
#include "PictureRoom.h"

#include <vector>

namespace compose {

/// Whether a fragment can carry the block, so that the document comes to be what typed calls make of it.
///
/// It carries the end of a section and the place of the table of contents as plain paragraph ends. It cannot
/// carry that place in a paragraph that holds anything else, fields without a name of their own, what has
/// begun to stand in Word, a page break in a cell, control characters and halves of surrogate pairs, and what
/// Word refuses (its error belongs to a call): names that no font or style can have, lengths and tables
/// beyond Word's limits. Nor text in the font that fragments have for default. Nor pictures that are not
/// kept, or that are larger than their cell, or than `page`: those Word makes smaller.
bool fitsFragment(const Block& block, const std::vector<LinkTarget>& links, const Extent& page = {});

/// Whether it must be a fragment's last one: its paragraph end is to become more than that.
bool endsFragment(const Block& block);

} // namespace compose
