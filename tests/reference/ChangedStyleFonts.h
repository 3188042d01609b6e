#pragma once

#include "Document.h"

#include <utility>
#include <vector>

namespace reference {

/// While it lives, every paragraph style of a document has another font: each property of it differs from
/// what it was. Text follows unless it has that property itself.
class ChangedStyleFonts
{
public:
    explicit ChangedStyleFonts(const standin::model::Document& document);
    ~ChangedStyleFonts();
    ChangedStyleFonts(const ChangedStyleFonts&) = delete;
    ChangedStyleFonts& operator=(const ChangedStyleFonts&) = delete;

private:
    std::vector<std::pair<standin::model::StylePtr, standin::model::FontProperties>> kept_;
};

} // namespace reference
