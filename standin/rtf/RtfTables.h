#pragma once

#include "RtfColorTable.h"
#include "TableFormats.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace standin::rtf {

/// A visible border: `side` is the word for where it runs, e.g. "\\brdrt".
/// `colorNumber`: in the file's table of colours; 0: the automatic one.
std::string borderLine(std::string_view side, const model::Border& border, std::int32_t colorNumber = 0);

/// Where a row stands in its table, which is what its style goes by.
struct RowPlace
{
    bool isFirst = false;
    bool isSecond = false;
    bool isLast = false;
};

/// Numbers of what is in front of the text.
struct RowNumbers
{
    std::int32_t style = 0; ///< the table's
    /// Of a colour, in the file's table of colours.
    std::function<std::int32_t(std::int32_t color)> color = {};
};

/// Nothing for a border that is not there.
std::string visibleBorder(std::string_view side, const model::Border& border, const RowNumbers& numbers);

/// What RTF says of a row in front of its cells: position, height, and each cell's borders and right edge.
/// What the table's style says is said again, since readers go by that.
std::string rowDefinition(const model::RowFormat& format, RowPlace place = {},
                          const RowNumbers& numbers = {});

/// Gathers what RTF says of a row.
class RowDefinitionReader
{
public:
    /// False for a word that says nothing of rows and cells.
    bool take(std::string_view word, std::int32_t number, const ColorTableReader& colors);
    /// The number of the table's style; negative: none.
    [[nodiscard]] std::int32_t style() const { return style_; }
    /// For a row of so many cells, whatever number was defined.
    model::RowFormat format(std::size_t cells) const;

private:
    bool borderWord(std::string_view word, std::int32_t number, const ColorTableReader& colors);
    void finishCell(std::int32_t rightEdge);

    model::RowFormat row_;
    model::CellFormat cell_;
    model::Border model::CellFormat::*border_ = nullptr; ///< which one the words for lines mean
    std::int32_t style_ = -1;
    std::optional<std::int32_t> textEdge_; ///< of the first cell, twips
    std::int32_t edge_ = 0;                ///< right edge of the last cell, twips
};

} // namespace standin::rtf
