#pragma once

#include "Picture.h"

#include <string_view>

namespace standin::model {

/// A sheet of paper with a label under it, for an object that is shown as an icon. A label that is too long
/// is cut. The same label always gives the same bytes.
Picture iconPicture(std::u16string_view label);

} // namespace standin::model
