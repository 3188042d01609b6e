#include "AnchorMarkup.h"

std::optional<AnchorMarkup> parseAnchor(std::string_view text, std::size_t anchorPos)
{
    constexpr std::string_view closing = "</a>";

    const std::size_t quote = anchorPos + AnchorMarkup::opening.size();
    const std::size_t innerBegin = quote + 1;
    const std::size_t innerEnd = text.find(closing);
    if (innerEnd == text.npos || innerEnd < innerBegin || text[quote] != '"')
        return std::nullopt;

    const std::string_view inner = text.substr(innerBegin, innerEnd - innerBegin);
    const std::size_t bracket = inner.find('>');
    if (bracket == inner.npos)
        return std::nullopt;

    AnchorMarkup anchor;
    anchor.label = inner.substr(bracket + 1);
    anchor.target = inner.substr(0, bracket == 0 ? 0 : bracket - 1);
    anchor.tail = text.substr(innerEnd + closing.size());
    return anchor;
}
