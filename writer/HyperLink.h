#pragma once

#include "QdxObject.h"
#include "QdxString.h"

#include "Word.h"

#include <cstdint>

/// A link whose text is written and whose hyperlink is drawn when the writer finishes.
///
/// Exactly one of `address` and `subAddress` is filled. Copies share the Word range (a counted reference).
class HyperLink : public QdxObject
{
public:
    /// A link over [start, end) of `range`. `target` is an address when it is a web address or an existing
    /// file, otherwise the name of a bookmark in the document.
    HyperLink(const QdxString& target, std::int32_t start, std::int32_t end, const Word::RangePtr& range,
              bool resolved);

    QdxString address;      ///< Web address or file path; empty for a link inside the document.
    QdxString subAddress;   ///< Bookmark name; empty for an external link.
    std::int32_t start = 0; ///< Where the link's text begins, as Word reported it.
    std::int32_t end = 0;   ///< Just behind the link's text.
    bool resolved = false;  ///< Only resolved links are drawn.
    Word::RangePtr range;   ///< The range in which the text was written.
};
