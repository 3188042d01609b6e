#pragma once

#include "DocumentContent.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace reference {

/// Which tokens of two texts stand for each other: those of a longest common subsequence, by kind and
/// character.
class TokenAlignment
{
public:
    TokenAlignment(const std::vector<Token>& expected, const std::vector<Token>& found);

    /// For each expected token the one that stands for it.
    [[nodiscard]] const std::vector<std::optional<std::size_t>>& matches() const { return matches_; }
    /// Tokens that stand for no expected one.
    [[nodiscard]] std::vector<std::size_t> unexpected() const;
    /// Whether what lies in front of the expected token `position` may lie in front of the found one.
    [[nodiscard]] bool isSamePlace(std::size_t position, std::size_t foundPosition) const;

private:
    std::vector<std::optional<std::size_t>> matches_;
    std::size_t foundCount_;
};

} // namespace reference
