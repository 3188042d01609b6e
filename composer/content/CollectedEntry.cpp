#include "CollectedEntry.h"

#include <algorithm>

namespace compose {

namespace {

constexpr std::u16string_view headingPrefix = u"Heading ";
constexpr int deepestLevel = 9;
constexpr char16_t paragraphEnd = u'\r';

/// Each run of paragraph ends as one space: an entry is one line.
std::u16string asEntry(std::u16string_view collected)
{
    std::u16string entry;
    for (std::size_t i = 0; i < collected.size(); ++i)
        if (collected[i] != paragraphEnd)
            entry += collected[i];
        else if (i == 0 || collected[i - 1] != paragraphEnd)
            entry += u' ';
    return entry;
}

/// n for the style "Heading n", else 1.
int entryLevel(std::u16string_view style)
{
    if (!style.starts_with(headingPrefix))
        return 1;
    int level = 0;
    for (const char16_t digit : style.substr(headingPrefix.size())) {
        if (digit < u'0' || digit > u'9')
            return 1;
        level = std::min(level * 10 + (digit - u'0'), deepestLevel);
    }
    return std::max(level, 1);
}

} // namespace

void CollectedEntry::begin()
{
    isOpen_ = true;
    text_.clear();
}

void CollectedEntry::add(std::u16string_view text)
{
    if (isOpen_)
        text_ += text;
}

std::optional<Entry> CollectedEntry::end(std::u16string_view style)
{
    isOpen_ = false;
    if (text_.empty())
        return {};
    return Entry{asEntry(text_), entryLevel(style)};
}

} // namespace compose
