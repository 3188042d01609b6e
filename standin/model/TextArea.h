#pragma once

#include "Story.h"

namespace standin::model {

/// The room for text at a place, in points.
struct TextArea
{
    float width = 0;  ///< between the margins, or within the cell
    float height = 0; ///< of a page, between the margins
};

TextArea textAreaAt(const Story& story, Position position);

} // namespace standin::model
