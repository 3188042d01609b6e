#include "RtfColorTable.h"

#include "Formats.h"

#include <algorithm>

namespace standin::rtf {

using model::FontProperties;

void ColorTableReader::word(std::string_view word, std::int32_t number)
{
    const int shift = word == "red" ? 0 : (word == "green" ? 8 : (word == "blue" ? 16 : -1));
    if (shift >= 0) {
        color_ |= std::clamp(number, 0, 255) << shift;
        isSet_ = true;
    }
}

void ColorTableReader::character(char16_t c)
{
    if (c == u';') {
        colors_.push_back(isSet_ ? color_ : FontProperties::automaticColor);
        color_ = 0;
        isSet_ = false;
    }
}

std::int32_t ColorTableReader::color(std::int32_t number) const
{
    const bool known = number >= 0 && number < static_cast<std::int32_t>(colors_.size());
    return known ? colors_[static_cast<std::size_t>(number)] : FontProperties::automaticColor;
}

} // namespace standin::rtf
