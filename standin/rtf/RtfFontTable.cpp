#include "RtfFontTable.h"

namespace standin::rtf {

void FontTableReader::word(std::string_view word, std::int32_t number)
{
    if (word == "f") {
        number_ = number;
        name_.clear();
    }
}

void FontTableReader::character(char16_t c)
{
    if (c != u';') {
        name_ += c;
    } else {
        fonts_[number_] = std::move(name_);
        name_.clear();
    }
}

const std::u16string* FontTableReader::name(std::int32_t number) const
{
    const auto found = fonts_.find(number);
    return found != fonts_.end() && !found->second.empty() ? &found->second : nullptr;
}

} // namespace standin::rtf
