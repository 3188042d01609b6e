#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The smallest picture files that still hold something to see.
namespace sample {

inline std::string fromHex(std::string_view digits)
{
    const auto value = [](char c) { return c <= '9' ? c - '0' : c - 'a' + 10; };
    std::string bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        bytes += static_cast<char>(value(digits[i]) << 4 | value(digits[i + 1]));
    return bytes;
}

inline std::string little(std::int64_t value, int bytes)
{
    std::string result;
    for (; bytes > 0; --bytes, value >>= 8)
        result += static_cast<char>(value & 0xFF);
    return result;
}

/// 4 x 2 pixels, 5669 dots per metre (144 per inch), red with a blue dot.
inline std::string png()
{
    return fromHex(
        "89504e470d0a1a0a0000000d494844520000000400000002080300000048768d5100000006504c5445ff00000000ff"
        "6ca1fd8e0000000970485973000016250000162501495224f00000000e4944415408d76360000346060600000d0002"
        "e2daf2fe0000000049454e44ae426082");
}

/// 8 x 8 pixels, 72 dots per inch, red.
inline std::string jpeg()
{
    return fromHex(
        "ffd8ffe000104a46494600010101004800480000ffdb004300100b0c0e0c0a100e0d0e1211101318281a1816161831"
        "23251d283a333d3c3933383740485c4e404457453738506d51575f626768673e4d71797064785c656763ffdb004301"
        "1112121815182f1a1a2f634238426363636363636363636363636363636363636363636363636363636363636363"
        "636363636363636363636363636363636363ffc00011080008000803012200021101031101ffc40015000101000000"
        "00000000000000000000000005ffc40014100100000000000000000000000000000000ffc400150101010000000000"
        "0000000000000000000506ffc40014110100000000000000000000000000000000ffda000c03010002110311003f00"
        "8a00b5e3ffd9");
}

/// 4 x 9 pixels, interlaced: red, the fourth row blue, a green dot in the last row.
inline std::string gif()
{
    return fromHex(
        "47494638396104000900f10000ff000000ff000000ff00000021f90400000000002c0000000004000900400208841f"
        "a7bbe2c24c01003b");
}

/// 3 x 2 pixels, red with a blue dot.
inline std::string bmp()
{
    return fromHex(
        "424d4e0000000000000036000000280000000300000002000000010018000000000018000000000000000000000000"
        "00000000000000"
        "0000ffff00000000ff0000000000ff0000ff0000ff000000");
}

/// One inch by half an inch: a rectangle.
inline std::string emf()
{
    const auto number = [](std::int64_t value) { return little(value, 4); };
    const std::string rectangle = number(43) + number(24) + number(10) + number(10) + number(90) + number(40);
    const std::string end = number(14) + number(20) + number(0) + number(16) + number(20);
    const auto size = static_cast<std::int64_t>(88 + rectangle.size() + end.size());
    return number(1) + number(88) + number(0) + number(0) + number(99) + number(49) + number(0) + number(0) +
           number(2540) + number(1270) + " EMF" + number(0x10000) + number(size) + number(3) + little(1, 2) +
           little(0, 2) + number(0) + number(0) + number(0) + number(1000) + number(1000) + number(254) +
           number(254) + rectangle + end;
}

/// A metafile of 100 x 50 units: a rectangle. Has no size of its own.
inline std::string plainWmf()
{
    const auto record = [](std::int64_t function, const std::string& data) {
        return little(static_cast<std::int64_t>(3 + data.size() / 2), 4) + little(function, 2) + data;
    };
    const auto word = [](std::int64_t value) { return little(value, 2); };
    const std::string records = record(0x0103, word(8)) + record(0x020B, word(0) + word(0)) +
                                record(0x020C, word(50) + word(100)) +
                                record(0x041B, word(40) + word(90) + word(10) + word(10)) + record(0, "");
    const auto words = static_cast<std::int64_t>(9 + records.size() / 2);
    return word(1) + word(9) + word(0x300) + little(words, 4) + word(0) + little(7, 4) + word(0) + records;
}

/// The same, one inch by half an inch.
inline std::string wmf()
{
    const auto word = [](std::int64_t value) { return little(value, 2); };
    const std::string head =
        little(0x9AC6CDD7, 4) + word(0) + word(0) + word(0) + word(100) + word(50) + word(100) + little(0, 4);
    std::uint16_t checksum = 0;
    for (std::size_t i = 0; i < head.size(); i += 2) {
        checksum = static_cast<std::uint16_t>(
            checksum ^ (static_cast<unsigned char>(head[i]) | static_cast<unsigned char>(head[i + 1]) << 8));
    }
    return head + word(checksum) + plainWmf();
}

} // namespace sample
