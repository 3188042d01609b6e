#pragma once

#include "RtfColorTable.h"
#include "RtfTables.h"
#include "TableLook.h"

#include <string>
#include <string_view>

namespace standin::rtf {

/// Gathers what an entry of a style sheet says of tables. An entry for the first row comes behind the
/// style's own, under its number and name.
class TableLookReader
{
public:
    /// False for a word that says nothing of tables.
    bool take(std::string_view word, std::int32_t number, const ColorTableReader& colors);
    /// Changes `look` to what the entry says; `font` is what it says of characters.
    void define(model::TableLook& look, const model::FontProperties& font) const;

private:
    bool borderWord(std::string_view word, std::int32_t number, const ColorTableReader& colors);

    model::TableLook look_;
    bool isOfFirstRow_ = false;
    model::Border* border_ = nullptr; ///< which one the words for lines mean
};

/// What an entry says of a table; and, in another one, of its first row, characters aside.
/// @{
std::string tableWords(const model::TableLook& look, const RowNumbers& numbers);
std::string headingWords(const model::TableLook& look, const RowNumbers& numbers);
/// @}

} // namespace standin::rtf
