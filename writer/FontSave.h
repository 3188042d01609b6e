#pragma once

#include "FontData.h"
#include "QdxObject.h"

#include "Word.h"

#include <cstdint>

/// A font run that a writer has recorded and not yet applied: the font, and where it begins.
///
/// A run lasts until the next recorded run begins. Copies share the Word objects (counted references).
class FontSave : public QdxObject
{
public:
    FontData getFont() const { return font_; }
    void setFont(const FontData& font);

    /// Position, in the writer's count of characters, at which the run begins; inside a table, Word's own
    /// position.
    std::int32_t getStart() const { return start_; }
    void setStart(std::int32_t start) { start_ = start; }

    /// The range in which the run was recorded: the writer's output range, or a cell's.
    const Word::RangePtr& getRange() const { return range_; }
    void setRange(const Word::RangePtr& range) { range_ = range; }

    /// The table in which the run began; null outside tables.
    const Word::TablePtr& getTable() const { return table_; }
    void setTable(const Word::TablePtr& table) { table_ = table; }

    /// The cell in which the run began, counted from 1; 0 outside tables.
    void setCell(std::int16_t row, std::int16_t col);
    std::int16_t getRow() const { return row_; }
    std::int16_t getCol() const { return col_; }

    /// @name Comparisons
    /// All four answer true for any two runs. A list of runs is walked in the order of recording and never
    /// searched or sorted by value; clients of the class rely on comparisons that exist and never separate
    /// two runs.
    /// @{
    virtual bool operator==(const FontSave& other) const;
    virtual bool operator!=(const FontSave& other) const;
    virtual bool operator<(const FontSave& other) const;
    virtual bool operator>(const FontSave& other) const;
    /// @}

private:
    FontData font_;
    std::int32_t start_ = 0;
    Word::RangePtr range_;
    Word::TablePtr table_;
    std::int16_t row_ = 0;
    std::int16_t col_ = 0;
};
