#pragma once

#include "DocumentComparison.h"
#include "DocumentContent.h"

#include <vector>

namespace reference {

/// Where a document is formatted directly though a style says the same, so that text does not follow when the
/// style is changed. What came out of files is left out, as are the results of fields.
///
/// `restyled` is what was found with another font in every style (ChangedStyleFonts): every property of a
/// character's font that is its style's must have changed.
std::vector<Difference> compareDirectFormat(const DocumentContent& expected, const DocumentContent& found,
                                            const DocumentContent& restyled);

} // namespace reference
