#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace standin::rtf {

/// Gathers a file's colours.
class ColorTableReader
{
public:
    void word(std::string_view word, std::int32_t number);
    void character(char16_t c);

    /// As 0x00BBGGRR; the automatic one for a number that has none.
    std::int32_t color(std::int32_t number) const;

private:
    std::vector<std::int32_t> colors_;
    std::int32_t color_ = 0;
    bool isSet_ = false;
};

} // namespace standin::rtf
