#include "IconPicture.h"

#include <array>
#include <initializer_list>
#include <string>
#include <vector>

namespace standin::model {

namespace {

// Lengths in hundredths of a millimetre, which are the metafile's pixels as well.
constexpr std::int32_t iconWidth = 2699;
constexpr std::int32_t iconHeight = 1746;
constexpr std::int32_t fontHeight = 282;
constexpr std::int32_t labelTop = 1250;

struct Point
{
    std::int16_t x;
    std::int16_t y;
};

std::string number(std::int64_t value, int bytes = 4)
{
    std::string result;
    for (; bytes > 0; --bytes, value >>= 8)
        result += static_cast<char>(value & 0xFF);
    return result;
}

std::string numbers(std::initializer_list<std::int64_t> values)
{
    std::string result;
    for (const std::int64_t value : values)
        result += number(value);
    return result;
}

std::string text(std::u16string_view characters)
{
    std::string result;
    for (const char16_t c : characters)
        result += number(c, 2);
    return result;
}

/// The kinds of record of an enhanced metafile that an icon needs.
enum class Record
{
    header = 1,
    end = 14,
    backgroundMode = 18,
    textAlignment = 22,
    selectObject = 37,
    createFont = 82,
    textOut = 84,
    polygon = 86,
    polyline = 87
};

std::string record(Record kind, std::string data)
{
    data.resize((data.size() + 3) / 4 * 4);
    return number(static_cast<std::int64_t>(kind)) + number(static_cast<std::int64_t>(data.size() + 8)) +
           data;
}

std::string lines(Record kind, const std::vector<Point>& points)
{
    std::string data =
        numbers({0, 0, iconWidth - 1, iconHeight - 1, static_cast<std::int64_t>(points.size())});
    for (const Point& point : points)
        data += number(point.x, 2) + number(point.y, 2);
    return record(kind, data);
}

std::string font()
{
    constexpr std::size_t descriptionSize = 320;
    constexpr int normalWeight = 400;
    std::string description = numbers({-fontHeight, 0, 0, 0, normalWeight, 0, 0});
    description += text(u"Arial");
    description.resize(descriptionSize);
    return record(Record::createFont, number(1) + description) + record(Record::selectObject, number(1));
}

/// About as wide as the character is in the label's font.
std::int32_t advance(char16_t c)
{
    static constexpr std::u16string_view narrow = u"fijlrtI.,:;!|'()[] -";
    static constexpr std::u16string_view wide = u"mwMW@%";
    if (narrow.find(c) != std::u16string_view::npos)
        return fontHeight * 3 / 10;
    if (wide.find(c) != std::u16string_view::npos)
        return fontHeight * 9 / 10;
    const bool isCapital = c >= u'A' && c <= u'Z';
    return isCapital ? fontHeight * 7 / 10 : fontHeight * 11 / 20;
}

std::u16string cut(std::u16string_view label)
{
    const std::u16string_view dots = u"...";
    const std::int32_t room = iconWidth - 3 * advance(u'.');
    std::int32_t used = 0;
    std::u16string result;
    for (const char16_t c : label) {
        used += advance(c);
        if (used > room)
            return result.append(dots);
        result += c < 0x20 ? u' ' : c;
    }
    return result;
}

std::string labelText(std::u16string_view label)
{
    constexpr std::int64_t fixedSize = 76; // of the record in front of the characters
    constexpr int centered = 6;
    constexpr int advancedGraphics = 2;
    const std::u16string shown = cut(label);
    std::string characters = text(shown);
    characters.resize((characters.size() + 3) / 4 * 4);
    std::string advances;
    for (const char16_t c : shown)
        advances += number(advance(c));
    std::string data = numbers({0, 0, iconWidth - 1, iconHeight - 1, advancedGraphics, 0, 0});
    data += numbers(
        {iconWidth / 2, labelTop, static_cast<std::int64_t>(shown.size()), fixedSize, 0, 0, 0, -1, -1});
    data += number(fixedSize + static_cast<std::int64_t>(characters.size()));
    return record(Record::textAlignment, number(centered)) +
           record(Record::textOut, data + characters + advances);
}

std::string paper()
{
    std::string records =
        lines(Record::polygon, {{1000, 100}, {1500, 100}, {1700, 300}, {1700, 1100}, {1000, 1100}});
    records += lines(Record::polyline, {{1500, 100}, {1500, 300}, {1700, 300}});
    for (const std::int16_t y : std::array<std::int16_t, 4>{450, 600, 750, 900})
        records += lines(Record::polyline, {{1120, y}, {1580, y}});
    return records;
}

std::string header(std::size_t size, std::int64_t count)
{
    constexpr std::int64_t signature = 0x464D4520;
    constexpr std::int64_t version = 0x10000;
    constexpr std::int64_t objects = 2; // none and the font
    constexpr std::int64_t screen = 25400;
    std::string data = numbers({0, 0, iconWidth - 1, iconHeight - 1, 0, 0, iconWidth, iconHeight, signature,
                                version, static_cast<std::int64_t>(size), count});
    data += number(objects, 2) + number(0, 2);
    data += numbers({0, 0, 0, screen, screen, screen / 100, screen / 100});
    return record(Record::header, data);
}

} // namespace

Picture iconPicture(std::u16string_view label)
{
    constexpr int transparent = 1;
    const std::string records = record(Record::backgroundMode, number(transparent)) + paper() + font() +
                                labelText(label) + record(Record::end, numbers({0, 16, 20}));
    constexpr std::size_t headerSize = 88;
    std::int64_t count = 1;
    for (std::size_t at = 0; at < records.size(); ++count) {
        at += static_cast<unsigned char>(records[at + 4]) |
              static_cast<std::size_t>(static_cast<unsigned char>(records[at + 5])) << 8;
    }
    return *readPicture(header(headerSize + records.size(), count) + records);
}

} // namespace standin::model
