#pragma once

#include "Story.h"

namespace standin::model {

/// What of a text is left out when it is read.
struct TextRetrieval
{
    bool includeFieldCodes = false;
    bool includeHiddenText = false;

    bool operator==(const TextRetrieval&) const = default;
};

/// The text of [start,end) as it shows: of a field that starts inside only the result, without field
/// characters, and no hidden text. A stretch that starts inside a field's code shows this code.
std::u16string visibleText(const Story& story, Position start, Position end,
                           const TextRetrieval& retrieval = {});

} // namespace standin::model
