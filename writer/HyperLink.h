#pragma once

#include "LinkDestination.h"
#include "QdxObject.h"

#include "Word.h"

#include <cstdint>

/// A link whose text is written and whose hyperlink is drawn when the writer finishes. Copies share the Word
/// range (a counted reference).
class HyperLink : public QdxObject
{
public:
    /// A link over [start, end) of `range`.
    HyperLink(const LinkDestination& linkDestination, std::int32_t startPos, std::int32_t endPos,
              const Word::RangePtr& textRange)
        : destination(linkDestination), start(startPos), end(endPos), range(textRange)
    {
    }

    LinkDestination destination;
    std::int32_t start = 0; ///< Where the link's text begins, as Word reported it.
    std::int32_t end = 0;   ///< Just behind the link's text.
    Word::RangePtr range;   ///< The range in which the text was written.
};
