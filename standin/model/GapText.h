#pragma once

#include "Constants.h"

#include <string>
#include <string_view>

namespace standin::model {

/// UTF-16 text that is cheap to edit near the last edit. Positions must lie inside the text.
class GapText
{
public:
    Position length() const { return static_cast<Position>(buffer_.size() - (gapEnd_ - gapStart_)); }
    char16_t at(Position position) const;
    std::u16string substr(Position start, Position end) const;
    void insert(Position at, std::u16string_view text);
    void erase(Position start, Position end);

private:
    void moveGap(std::size_t at);
    void reserveGap(std::size_t size);

    std::u16string buffer_;
    std::size_t gapStart_ = 0;
    std::size_t gapEnd_ = 0;
};

} // namespace standin::model
