#pragma once

#include "DocumentContent.h"

#include <string>
#include <string_view>
#include <vector>

namespace reference {

enum class DifferenceKind
{
    text,
    addedEnd,   ///< a paragraph end too much at the story's end
    addedSpace, ///< a space too much behind a table
    cells,      ///< text in tables, and the tables' rows and cells
    style,
    font,
    alignment,
    link,
    bookmark,
    entry,    ///< of the table of contents: its place, text or level
    contents, ///< the place of the table of contents
    field,
    picture,
    headerOrFooter, ///< any of the others, in a header or footer
    failure,        ///< a call failed
    page,           ///< a section's orientation or margin
    directFormat    ///< a direct property where the style says the same
};
inline constexpr std::size_t differenceKindCount = static_cast<std::size_t>(DifferenceKind::directFormat) + 1;

std::string_view nameOf(DifferenceKind kind);

struct Difference
{
    DifferenceKind kind;
    std::string description; ///< where, what should be and what is
};

/// In what a document differs from what it should be. What is at the same place in both is found by the text,
/// so that a character too much is one difference and not one for each character behind it.
std::vector<Difference> compare(const DocumentContent& expected, const DocumentContent& found);

/// For people: a line for each; empty when there are none.
std::string printable(const std::vector<Difference>& differences);

/// For people: the story's text with its structure.
std::string printable(const StoryContent& story);

} // namespace reference
