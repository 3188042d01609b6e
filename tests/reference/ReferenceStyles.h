#pragma once

#include "DocumentContent.h"

#include <string_view>

namespace reference {

/// What a paragraph style of Word's own template gives.
struct ReferenceStyle
{
    std::u16string_view name;
    Font font;
    Alignment alignment = Alignment::left;
};

/// The style that a client's name means; null for one that there is not. Headings deeper than 9 are the 9th.
const ReferenceStyle* findStyle(std::u16string_view name);

/// n for the name "Heading n", else 0.
int headingNumber(std::u16string_view name);

} // namespace reference
