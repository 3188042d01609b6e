#pragma once

#include "RtfStyleSheet.h"
#include "RtfTables.h"
#include "Story.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace standin::rtf {

/// Puts the rows of tables into stories, as a file's text comes to them.
class RowReader
{
public:
    /// False for a word that says nothing of rows and cells.
    bool take(std::string_view word, std::int32_t number, const ColorTableReader& colors)
    {
        return definition_.take(word, number, colors);
    }
    bool isOpen() const { return isOpen_; }
    /// The story's last mark but its final one ends a paragraph of the row.
    void takeParagraph(model::Story& story);
    /// A cell ends at `at`; its mark looks like that.
    void endCell(model::Story& story, model::Position at, const model::CharacterFormat& format);
    /// The row, which is open, ends at `at`. Text behind the last cell becomes a cell, so that every row is
    /// whole.
    void end(model::Story& story, model::Position at, const StyleSheetReader& styles);

private:
    RowDefinitionReader definition_;
    bool isOpen_ = false;
    std::size_t cells_ = 0;
};

} // namespace standin::rtf
