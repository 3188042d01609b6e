#include "TokenAlignment.h"

#include <algorithm>

namespace reference {

namespace {

bool isAlike(const Token& a, const Token& b)
{
    return a.kind == b.kind && a.character == b.character;
}

} // namespace

TokenAlignment::TokenAlignment(const std::vector<Token>& expected, const std::vector<Token>& found)
    : matches_(expected.size()), foundCount_(found.size())
{
    std::size_t front = 0;
    while (front < std::min(expected.size(), found.size()) && isAlike(expected[front], found[front])) {
        matches_[front] = front;
        ++front;
    }
    std::size_t expectedEnd = expected.size();
    std::size_t foundEnd = found.size();
    while (expectedEnd > front && foundEnd > front &&
           isAlike(expected[expectedEnd - 1], found[foundEnd - 1])) {
        --expectedEnd;
        --foundEnd;
        matches_[expectedEnd] = foundEnd;
    }

    // Lengths of the longest common subsequences of what begins at each pair of places.
    const std::size_t width = foundEnd - front + 1;
    std::vector<std::size_t> lengths((expectedEnd - front + 1) * width);
    const auto length = [&](std::size_t i, std::size_t j) -> std::size_t& {
        return lengths[(i - front) * width + (j - front)];
    };
    for (std::size_t i = expectedEnd; i-- > front;)
        for (std::size_t j = foundEnd; j-- > front;)
            length(i, j) = isAlike(expected[i], found[j]) ? length(i + 1, j + 1) + 1
                                                          : std::max(length(i + 1, j), length(i, j + 1));
    for (std::size_t i = front, j = front; i < expectedEnd && j < foundEnd;)
        if (isAlike(expected[i], found[j]))
            matches_[i++] = j++;
        else if (length(i + 1, j) >= length(i, j + 1))
            ++i;
        else
            ++j;
}

std::vector<std::size_t> TokenAlignment::unexpected() const
{
    std::vector<bool> isExpected(foundCount_);
    for (const std::optional<std::size_t>& match : matches_)
        if (match)
            isExpected[*match] = true;
    std::vector<std::size_t> result;
    for (std::size_t i = 0; i < foundCount_; ++i)
        if (!isExpected[i])
            result.push_back(i);
    return result;
}

bool TokenAlignment::isSamePlace(std::size_t position, std::size_t foundPosition) const
{
    std::size_t first = 0;
    for (std::size_t i = position; i-- > 0;)
        if (matches_[i]) {
            first = *matches_[i] + 1;
            break;
        }
    std::size_t last = foundCount_;
    for (std::size_t i = position; i < matches_.size(); ++i)
        if (matches_[i]) {
            last = *matches_[i];
            break;
        }
    return foundPosition >= first && foundPosition <= last;
}

} // namespace reference
