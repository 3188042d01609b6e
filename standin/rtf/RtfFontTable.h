#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace standin::rtf {

/// Gathers the names of a file's fonts.
class FontTableReader
{
public:
    void word(std::string_view word, std::int32_t number);
    void character(char16_t c);

    /// The name of a font; null for a number that has none.
    const std::u16string* name(std::int32_t number) const;

private:
    std::map<std::int32_t, std::u16string> fonts_;
    std::int32_t number_ = 0;
    std::u16string name_;
};

} // namespace standin::rtf
