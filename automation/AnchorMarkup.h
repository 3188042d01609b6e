#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

/// What a text says from its first anchor on: `<a href="target">label</a>tail`. The views lie in that text.
struct AnchorMarkup
{
    static constexpr std::string_view opening = "<a href=";

    std::string_view label;
    std::string_view target;
    std::string_view tail;
};

/// Takes the anchor that begins at `anchorPos` (where `AnchorMarkup::opening` was found) apart. Nothing when
/// it is malformed: no ">" anywhere in the text, no "</a>", an "</a>" that is not behind the anchor's
/// beginning, no double quote behind "href=", no ">" in front of the "</a>".
///
/// The target is all that stands between the opening quote and the ">", less its last character, whatever
/// that is.
std::optional<AnchorMarkup> parseAnchor(std::string_view text, std::size_t anchorPos);
