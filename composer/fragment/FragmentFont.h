#pragma once

#include <string_view>

namespace compose {

/// The font that a fragment has for default, and that its styles and all text which is to look as its style
/// does state. A reader that compares the two, as it should, makes nothing of it; so where text is in this
/// font afterwards, the reader has taken for direct formatting what was not meant so. Nobody has a font of
/// that name.
inline constexpr std::u16string_view fragmentFont = u"No Such Font";

} // namespace compose
