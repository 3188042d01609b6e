#pragma once

#include "Content.h"
#include "Operation.h"

#include <deque>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace compose {

class StyleSheet;

/// The paragraph that a text is written into, as Word holds it.
struct Ground
{
    std::u16string style = u"Normal";  ///< empty: unknown
    std::optional<int> alignment = {}; ///< direct; Word's number
    bool isAlignmentKnown = true;
    bool isPlain = true; ///< What is written behind its text takes over no formatting.

    bool operator==(const Ground&) const = default;
};

/// Operations that count from one place: the end of the story's text, or of a cell of its last table.
struct Passage
{
    struct Cell
    {
        std::size_t row = 0; ///< from 0
        std::size_t column = 0;
        bool operator==(const Cell&) const = default;
    };
    std::optional<Cell> cell = {}; ///< nothing: the end of the story
    std::deque<Operation> operations = {};
    /// So much of its text stands there already, as a draft; it begins where that does.
    std::optional<Position> drafted = {};
};

struct Plan
{
    std::deque<Passage> passages;
    Ground after; ///< of what is written behind

    /// In all passages.
    [[nodiscard]] std::size_t operationCount() const;
};

/// What a plan is made from.
struct Source
{
    std::span<const Block> blocks;
    const std::vector<LinkTarget>& links;
    Ground ground;
    /// Whether a link leads anywhere, or is to be plain text.
    std::function<bool(const LinkTarget&)> leadsSomewhere;
    /// The last paragraph is the one that was the story's last; otherwise it ends with a mark of its own, and
    /// that paragraph stays behind it as it is.
    bool endsOpen = true;
    /// That paragraph keeps what it is formatted with, whatever is written in front of it.
    bool keepsGround = false;
    /// So much of the blocks' text stands in Word already, unformatted.
    std::optional<Position> drafted = {};
    std::u16string tableStyle = {}; ///< that tables get; empty: none
};

/// How the story comes to hold the blocks behind what it holds: all text at once, then what formats it
/// (styles in front of direct formatting, neighbours together), then from the back to the front what
/// lengthens it. So every position is known beforehand, and nobody has to be asked.
///
/// Raises what `styles` raises; otherwise cannot fail.
Plan planOf(const Source& source, StyleSheet& styles);

} // namespace compose
