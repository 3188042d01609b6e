#pragma once

#include <cstdint>
#include <string>

namespace standin::model {

/// A number as text.
inline std::u16string decimal(std::int32_t number)
{
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

} // namespace standin::model
