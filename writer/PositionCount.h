#pragma once

#include <cstdint>
#include <string_view>

/// By how many characters a text lengthens the document, in the writer's count.
///
/// Word turns CR LF into one paragraph mark, so one is subtracted for each line feed that has some character
/// right before it. Counting stops for good at a line feed that starts the text or directly follows one
/// already counted; what comes after it is taken at its full length. Clients depend on that asymmetry, so it
/// stays.
///
/// `text` is in UTF-16 units, which is how Word counts.
template <class Char>
constexpr std::int32_t positionGrowth(std::basic_string_view<Char> text) noexcept
{
    auto growth = static_cast<std::int32_t>(text.size());
    std::basic_string_view<Char> rest = text;
    for (auto lineFeed = rest.find(Char{'\n'}); lineFeed != rest.npos && lineFeed > 0;
         lineFeed = rest.find(Char{'\n'})) {
        --growth;
        rest.remove_prefix(lineFeed + 1);
    }
    return growth;
}
