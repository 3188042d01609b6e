#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// What a text says from its first anchor on: `<a href="target">label</a>tail`. The views lie in that text.
struct AnchorMarkup
{
    static constexpr std::wstring_view opening = L"<a href=";

    std::wstring_view label;
    std::wstring_view target;
    std::wstring_view tail;
};

/// Takes the anchor that begins at `anchorPos` (where `AnchorMarkup::opening` was found) apart. Nothing when
/// it is malformed: no ">" anywhere in the text, no "</a>", an "</a>" that is not behind the anchor's
/// beginning, no double quote behind "href=", no ">" in front of the "</a>".
///
/// The target is all that stands between the opening quote and the ">", less its last character, whatever
/// that is.
std::optional<AnchorMarkup> parseAnchor(std::wstring_view text, std::size_t anchorPos);

/// What a target means: "#GUID 7" names the tag "GUID 7".
std::wstring withoutGuidMarks(std::wstring_view written);
