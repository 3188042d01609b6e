#include "mirovelsection.h"

#include "MirovelSectionData.h"
#include "WordConstants.h"

#include <algorithm>

bool MirovelSection::isTableOpen() const
{
    return data_->tableIndex != -1;
}

void MirovelSection::startTable()
{
    if (isTableOpen())
        return ignored(Silence::tableOutOfOrder);
    MirovelSectionData& d = *data_;
    applyRuns();
    setStyle("Normal", false);
    d.tableRows = d.tableColumn = d.tableColumns = 0;
    d.tableIndex = d.pos;
    d.rowHeight = 0;
    // A character behind the table, so that writing can go on there.
    d.range->InsertAfter(L" ");
    ++d.pos;
    const Word::RangePtr place = d.range->GetDuplicate();
    place->PutEnd(d.tableIndex);
    place->PutStart(d.tableIndex);
    d.table = place->GetTables()->Add(place, 1, 1);
    enterRow(d.table->GetRows()->Item(1));
    d.pos = d.range->GetEnd();
}

void MirovelSection::enterRow(const Word::RowPtr& row)
{
    data_->tableRow = row;
    data_->rowCells = row->GetCells();
    data_->cellRange = data_->rowCells->Item(1)->GetRange();
}

void MirovelSection::addRow()
{
    MirovelSectionData& d = *data_;
    if (!isTableOpen() || (d.tableRows == 1 && d.tableColumn == 0))
        return ignored(Silence::tableOutOfOrder);
    resizeTableColumns();
    ++d.tableRows;
    if (d.tableRows > 1) {
        enterRow(d.table->GetRows()->Add());
        if (d.rowHeight != 0)
            d.tableRow->SetHeight(static_cast<float>(d.rowHeight), Word::wdRowHeightExactly);
    }
    d.tableColumn = 0;
}

void MirovelSection::addCell()
{
    MirovelSectionData& d = *data_;
    if (!isTableOpen() || d.tableRows == 0)
        return ignored(Silence::tableOutOfOrder);
    ++d.tableColumn;
    if (d.tableRows != 1) {
        d.cellRange = d.rowCells->Item(std::min(d.tableColumn, d.tableColumns))->GetRange();
        return;
    }
    if (d.tableColumn > 1) {
        d.rowCells->Add();
        resizeTableColumns();
        d.cellRange = d.rowCells->Item(d.tableColumn)->GetRange();
    }
    ++d.tableColumns;
}

void MirovelSection::resizeTableColumns()
{
    const MirovelSectionData& d = *data_;
    if (d.tableRows != 1 || d.tableColumn == 0)
        return;
    const float width = d.textWidth / static_cast<float>(d.tableColumn);
    for (std::int16_t index = 1; index <= d.tableColumn; ++index)
        d.rowCells->Item(index)->SetWidth(width, Word::wdAdjustSameWidth);
}

void MirovelSection::endTable()
{
    if (!isTableOpen())
        return ignored(Silence::tableOutOfOrder);
    applyAlign();
    resizeTableColumns();
    data_->pos = data_->range->GetEnd();
    data_->styleName = "Normal";
    data_->tableRows = 0;
    data_->tableIndex = -1;
}

void MirovelSection::setTableRowHeight(std::int32_t points)
{
    if (!data_->tableRow)
        return ignored(Silence::tableOutOfOrder);
    data_->rowHeight = points;
    data_->tableRow->SetHeight(static_cast<float>(points), Word::wdRowHeightExactly);
}

Word::RangePtr MirovelSection::cellRange(std::int16_t row, std::int16_t col)
{
    const std::int16_t wordRow = row == 0 ? std::int16_t{1} : row;
    const std::int16_t wordCol = std::min(col == 0 ? std::int16_t{1} : col, data_->tableColumns);
    return data_->table->Cell(wordRow, wordCol)->GetRange();
}

void MirovelSection::applyFontToTable(const FontSave& run, const FontSave* next)
{
    const Word::TablePtr& table = run.getTable();
    const long lastRow = next ? next->getRow() : table->GetRows()->GetCount();
    const long lastCol = next ? next->getCol() : table->GetColumns()->GetCount();

    // Wider than the numbers they count, so that the largest of those is not the last one for ever.
    for (long row = run.getRow(); row <= lastRow; ++row) {
        const bool firstRow = row == run.getRow();
        for (long col = firstRow ? run.getCol() : 1; col <= lastCol; ++col) {
            const bool firstCell = firstRow && col == run.getCol();
            const Word::RangePtr range =
                cellRange(static_cast<std::int16_t>(row), static_cast<std::int16_t>(col));
            const long start = firstCell ? run.getStart() : range->GetStart();
            putFont(range, start, range->GetEnd(), run.getFont());
        }
    }
}

void MirovelSection::putFont(const Word::RangePtr& range, std::int32_t start, std::int32_t end,
                             const FontData& font)
{
    range->PutStart(start);
    range->PutEnd(end);
    toFontPtr(range->GetFont(), font);
}
