#pragma once

#include "KeptPicture.h"
#include "RtfBuilder.h"

namespace compose {

/// The picture in its natural size, as a group.
void writePicture(rtf::RtfBuilder& rtf, const KeptPicture& picture);

} // namespace compose
