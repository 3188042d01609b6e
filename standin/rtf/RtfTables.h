#pragma once

#include "TableFormats.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace standin::rtf {

/// A visible border: `side` is the word for where it runs, e.g. "\\brdrt".
std::string borderLine(std::string_view side, const model::Border& border);

/// What RTF says of a row in front of its cells: position, height, and each cell's borders and right edge.
std::string rowDefinition(const model::RowFormat& format);

/// Gathers what RTF says of a row.
class RowDefinitionReader
{
public:
    /// False for a word that says nothing of rows and cells.
    bool take(std::string_view word, std::int32_t number);
    /// For a row of so many cells, whatever number was defined.
    model::RowFormat format(std::size_t cells) const;

private:
    bool borderWord(std::string_view word, std::int32_t number);
    void finishCell(std::int32_t rightEdge);

    model::RowFormat row_;
    model::CellFormat cell_;
    model::Border model::CellFormat::*border_ = nullptr; ///< which one the words for lines mean
    std::int32_t edge_ = 0;                              ///< right edge of the last cell, twips
};

} // namespace standin::rtf
