#pragma once

#include "IndexedImage.h"

#include <optional>
#include <string_view>

namespace standin::model {

/// The first image of a GIF file on its canvas; nothing for a damaged file.
std::optional<IndexedImage> decodeGif(std::string_view file);

} // namespace standin::model
