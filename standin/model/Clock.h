#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace standin::model {

/// A moment in local time.
struct LocalTime
{
    std::int32_t year = 2000;
    std::int32_t month = 1; ///< 1..12
    std::int32_t day = 1;   ///< 1..31
    std::int32_t hour = 0;  ///< 0..23
    std::int32_t minute = 0;
    std::int32_t second = 0;
};

/// Tells the time for fields that show it.
using Clock = std::function<LocalTime()>;

LocalTime systemTime();

/// The time in a field's picture, such as `dd.MM.yyyy HH:mm`: d, dd, ddd, dddd, M to MMMM, yy, yyyy, h, hh,
/// H, HH, m, mm, s, ss, AM/PM; text in apostrophes and other characters stand for themselves. English names.
std::u16string formatTime(const LocalTime& time, std::u16string_view picture);

} // namespace standin::model
