#pragma once

#include "Content.h"

#include <optional>

namespace compose {

class StyleSheet;

/// The alignment that is to be direct formatting of the paragraph: Word's number, or nothing where the style
/// gives it.
std::optional<int> directAlignment(const Paragraph& paragraph, StyleSheet& styles);

} // namespace compose
