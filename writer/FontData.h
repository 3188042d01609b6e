#pragma once

#include "QdxObject.h"
#include "QdxString.h"

#include <cstdint>

/// One font as a client or a style describes it: face, size and four attributes.
///
/// A value: copies are independent. Holds no Word object and may be used on any thread.
class FontData : public QdxObject
{
public:
    QdxString name = "Arial"; ///< Face name, 8-bit text in the ANSI code page. Empty: no face is known.
    std::int16_t size = 0;    ///< Whole points; 0 means that no size is set.
    std::uint8_t bold = 0;    ///< 0 or 1, as are the three below.
    std::uint8_t italic = 0;
    std::uint8_t underline = 0;
    std::uint8_t strikeThrough = 0;

    /// Empties the face and sets everything else to 0 (not to the defaults above).
    void clear();

    /// True when any of the six fields differs; names are compared byte for byte.
    bool operator!=(const FontData& other) const;
};
