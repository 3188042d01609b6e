#include "GapText.h"

#include <algorithm>

namespace standin::model {

char16_t GapText::at(Position position) const
{
    const auto index = static_cast<std::size_t>(position);
    return index < gapStart_ ? buffer_[index] : buffer_[index + (gapEnd_ - gapStart_)];
}

std::u16string GapText::substr(Position start, Position end) const
{
    const auto from = static_cast<std::size_t>(start);
    const auto to = static_cast<std::size_t>(end);
    std::u16string result;
    result.reserve(to - from);
    if (from < gapStart_)
        result.append(buffer_, from, std::min(to, gapStart_) - from);
    if (to > gapStart_) {
        const std::size_t first = std::max(from, gapStart_);
        result.append(buffer_, first + (gapEnd_ - gapStart_), to - first);
    }
    return result;
}

void GapText::insert(Position at, std::u16string_view text)
{
    moveGap(static_cast<std::size_t>(at));
    reserveGap(text.size());
    std::copy(text.begin(), text.end(), buffer_.begin() + static_cast<std::ptrdiff_t>(gapStart_));
    gapStart_ += text.size();
}

void GapText::erase(Position start, Position end)
{
    moveGap(static_cast<std::size_t>(start));
    gapEnd_ += static_cast<std::size_t>(end - start);
}

void GapText::moveGap(std::size_t at)
{
    const auto begin = buffer_.begin();
    const auto offset = [](std::size_t value) { return static_cast<std::ptrdiff_t>(value); };
    if (at < gapStart_) {
        std::copy_backward(begin + offset(at), begin + offset(gapStart_), begin + offset(gapEnd_));
        gapEnd_ -= gapStart_ - at;
    } else {
        const std::size_t count = at - gapStart_;
        std::copy(begin + offset(gapEnd_), begin + offset(gapEnd_ + count), begin + offset(gapStart_));
        gapEnd_ += count;
    }
    gapStart_ = at;
}

void GapText::reserveGap(std::size_t size)
{
    const std::size_t gap = gapEnd_ - gapStart_;
    if (gap >= size)
        return;
    const std::size_t more = size - gap + buffer_.size() / 2 + 64;
    buffer_.insert(gapEnd_, more, u'\0');
    gapEnd_ += more;
}

} // namespace standin::model
