#pragma once

#include "IndexedImage.h"

#include <string>

namespace standin::model {

/// The image as a PNG file, not compressed; the same image always gives the same bytes.
std::string encodePng(const IndexedImage& image);

} // namespace standin::model
