#pragma once

#include "Story.h"

namespace standin::model {

struct Erased
{
    Position count = 0; ///< of characters
    Position place = 0; ///< where text belongs that is to stand in place of the deleted
};

/// Deletes [start,end) as Word does for a client: the story's final mark stays; text within one table empties
/// the cells and keeps their marks; a range that reaches outside a table takes the rows that it covers
/// whole; the paragraph before a row that stays keeps its mark. Of a field that is not wholly inside the
/// characters stay.
Erased eraseContent(Story& story, Position start, Position end);

} // namespace standin::model
