#pragma once

#include "Plan.h"

#include <string>

namespace compose {

/// The beginning of a table's text that stands in Word while the client is still at the table: as paragraphs,
/// as yet unformatted, up to a place in a cell's first paragraph. A picture can be put behind it, and becomes
/// part of the table when that is made of the paragraphs.
struct Draft
{
    Position length = 0;
    Passage::Cell cell = {}; ///< in which it ends
    Position inCell = 0;     ///< of its length, in that cell
};

/// What a draft comes to be, and the text that is missing for that.
struct DraftStep
{
    Draft draft;
    std::u16string text;
};

/// Takes the draft to the end of what the cell's first paragraph holds. The table is the first of the blocks.
///
/// Raises what `styles` raises; otherwise cannot fail. Costs what is missing costs, and not what is there.
DraftStep goOnWith(const Draft& draft, const Passage::Cell& cell, const Source& source, StyleSheet& styles);

} // namespace compose
