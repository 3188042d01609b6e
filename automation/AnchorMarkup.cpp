#include "AnchorMarkup.h"

std::optional<AnchorMarkup> parseAnchor(std::wstring_view text, std::size_t anchorPos)
{
    constexpr std::wstring_view closing = L"</a>";

    const std::size_t quote = anchorPos + AnchorMarkup::opening.size();
    const std::size_t innerBegin = quote + 1;
    const std::size_t innerEnd = text.find(closing);
    if (innerEnd == text.npos || innerEnd < innerBegin || text[quote] != L'"')
        return std::nullopt;

    const std::wstring_view inner = text.substr(innerBegin, innerEnd - innerBegin);
    const std::size_t bracket = inner.find(L'>');
    if (bracket == inner.npos)
        return std::nullopt;

    AnchorMarkup anchor;
    anchor.label = inner.substr(bracket + 1);
    anchor.target = inner.substr(0, bracket == 0 ? 0 : bracket - 1);
    anchor.tail = text.substr(innerEnd + closing.size());
    return anchor;
}

std::wstring withoutGuidMarks(std::wstring_view written)
{
    constexpr std::wstring_view marked = L"#GUID ";
    std::wstring target(written);
    if (!target.starts_with(marked))
        return target;
    for (std::size_t at = 0; (at = target.find(marked, at)) != target.npos; at += marked.size() - 1)
        target.erase(at, 1);
    return target;
}
