#include "Clock.h"

#include <algorithm>
#include <array>
#include <ctime>

namespace standin::model {

namespace {

constexpr std::array<std::u16string_view, 12> months = {u"January",   u"February", u"March",    u"April",
                                                        u"May",       u"June",     u"July",     u"August",
                                                        u"September", u"October",  u"November", u"December"};
constexpr std::array<std::u16string_view, 7> days = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                                     u"Thursday", u"Friday", u"Saturday"};

std::u16string number(std::int32_t value, std::size_t width)
{
    std::u16string digits;
    for (const char digit : std::to_string(value))
        digits += static_cast<char16_t>(digit);
    return std::u16string(width - std::min(width, digits.size()), u'0') + digits;
}

std::u16string name(std::u16string_view full, std::size_t width)
{
    return std::u16string(full.substr(0, width == 3 ? 3 : full.size()));
}

/// 0 for Sunday.
std::size_t weekday(const LocalTime& time)
{
    const std::int32_t year = time.month < 3 ? time.year - 1 : time.year;
    static constexpr std::array<std::int32_t, 12> shift = {0, 3, 2, 5, 0, 3, 5, 1, 4, 6, 2, 4};
    const auto month = static_cast<std::size_t>(time.month - 1);
    return static_cast<std::size_t>((year + year / 4 - year / 100 + year / 400 + shift[month] + time.day) %
                                    7);
}

std::u16string element(const LocalTime& time, char16_t letter, std::size_t width)
{
    const std::size_t atMostTwo = std::min<std::size_t>(width, 2);
    switch (letter) {
    case u'd':
    case u'D':
        return width > 2 ? name(days[weekday(time)], width) : number(time.day, width);
    case u'M':
        return width > 2 ? name(months[static_cast<std::size_t>(time.month - 1)], width)
                         : number(time.month, width);
    case u'y':
    case u'Y':
        return width > 2 ? number(time.year, 4) : number(time.year % 100, 2);
    case u'h':
        return number((time.hour + 11) % 12 + 1, atMostTwo);
    case u'H':
        return number(time.hour, atMostTwo);
    case u'm':
        return number(time.minute, atMostTwo);
    default:
        return number(time.second, atMostTwo);
    }
}

} // namespace

LocalTime systemTime()
{
    const std::time_t now = std::time(nullptr);
    const std::tm* local = std::localtime(&now);
    if (!local)
        return {};
    return {local->tm_year + 1900, local->tm_mon + 1, local->tm_mday,
            local->tm_hour,        local->tm_min,     local->tm_sec};
}

std::u16string formatTime(const LocalTime& time, std::u16string_view picture)
{
    static constexpr std::u16string_view letters = u"dDMyYhHmsS";
    std::u16string text;
    for (std::size_t at = 0; at < picture.size();) {
        const char16_t c = picture[at];
        if (c == u'\'') {
            const std::size_t close = std::min(picture.find(u'\'', at + 1), picture.size());
            text += picture.substr(at + 1, close - at - 1);
            at = close + 1;
        } else if (picture.substr(at, 5) == u"AM/PM" || picture.substr(at, 5) == u"am/pm") {
            text += time.hour < 12 ? u"AM" : u"PM";
            at += 5;
        } else if (letters.find(c) != std::u16string_view::npos) {
            const std::size_t past = std::min(picture.find_first_not_of(c, at), picture.size());
            text += element(time, c, past - at);
            at = past;
        } else {
            text += c;
            ++at;
        }
    }
    return text;
}

} // namespace standin::model
