// Texts made of the pieces that anchors consist of: what parseAnchor answers must lie in the text, in order,
// and give the text again when it is joined.
#include "AnchorMarkup.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

constexpr std::array<std::wstring_view, 12> pieces = {L"<a href=", L"\"", L">", L"</a>", L"#GUID ", L"x",
                                                      L"<",        L"/",  L"a", L" ",    L"\n",     L"\x3b1"};

std::wstring textFrom(const std::uint8_t* data, std::size_t size)
{
    std::wstring text;
    for (std::size_t i = 0; i < size; ++i)
        if (data[i] < 0x80)
            text += pieces[data[i] % pieces.size()];
        else
            text += static_cast<wchar_t>(data[i]);
    return text;
}

void require(bool condition)
{
    if (!condition)
        std::abort();
}

void checkInside(std::wstring_view text, std::wstring_view part)
{
    require(part.data() >= text.data());
    require(part.data() + part.size() <= text.data() + text.size());
}

void checkAnchor(std::wstring_view text, std::size_t anchorPos, const AnchorMarkup& anchor)
{
    for (const std::wstring_view part : {anchor.target, anchor.label, anchor.tail})
        checkInside(text, part);

    // "<a href=" quote target, the character that the target loses if there is one, bracket label closing
    // tail
    const auto offset = [&](std::wstring_view part) {
        return static_cast<std::size_t>(part.data() - text.data());
    };
    const std::size_t bracket = offset(anchor.label) - 1;
    std::wstring joined(text.substr(0, anchorPos));
    joined += AnchorMarkup::opening;
    joined += L'"';
    require(offset(anchor.target) == joined.size());
    joined += anchor.target;
    const std::size_t lost = bracket - joined.size();
    require(lost <= 1);
    require(anchor.target.empty() || lost == 1);
    joined += text.substr(joined.size(), lost);
    joined += L'>';
    joined += anchor.label;
    joined += L"</a>";
    joined += anchor.tail;
    require(joined == text);

    require(anchor.target.find(L'>') == anchor.target.npos);
    require(anchor.label.find(L"</a>") == anchor.label.npos);
    require(anchor.tail.size() < text.size());
}

/// The rules in the words of the interface, as slow as they like to be.
bool isWellFormed(const std::wstring& text, std::size_t anchorPos)
{
    const std::size_t inner = anchorPos + AnchorMarkup::opening.size() + 1;
    const std::size_t closing = text.find(L"</a>");
    if (closing == text.npos || closing < inner || text.at(inner - 1) != L'"')
        return false;
    return text.substr(inner, closing - inner).find(L'>') != text.npos;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::wstring text = textFrom(data, size);
    for (std::size_t pos = text.find(AnchorMarkup::opening); pos != text.npos;
         pos = text.find(AnchorMarkup::opening, pos + 1)) {
        const std::optional<AnchorMarkup> anchor = parseAnchor(text, pos);
        require(anchor.has_value() == isWellFormed(text, pos));
        if (anchor)
            checkAnchor(text, pos, *anchor);
    }
    return 0;
}
