#include "CellsObject.h"

#include "Arguments.h"
#include "CellObject.h"
#include "TableArguments.h"

namespace standin {
CellsObject::CellsObject(std::shared_ptr<Server> server, const CellsSource& source)
    : CellsBase(std::move(server)), source_(source)
{
}

CellsSource CellsObject::sourceOf(const model::TableRow& row)
{
    return {[row] { return row.cells(); }, row};
}

CellsSource CellsObject::sourceOf(const model::Table& table, std::int32_t column)
{
    const auto read = [table, column] {
        std::vector<model::TableCell> cells;
        for (const model::TableRow& row : table.rows())
            if (column <= row.cellCount())
                cells.push_back(row.cell(column));
        return cells;
    };
    return {read, std::nullopt};
}

CellsSource CellsObject::sourceOf(const model::LiveRange& range)
{
    const auto read = [range] {
        std::vector<model::TableCell> cells;
        for (const model::Table& table : model::tablesOf(range))
            for (const model::TableRow& row : table.rows())
                for (const model::TableCell& cell : row.cells()) {
                    const model::LiveRange place = cell.range();
                    if (place.start() < std::max(range.end(), range.start() + 1) &&
                        range.start() < place.end())
                        cells.push_back(cell);
                }
        return cells;
    };
    return {read, std::nullopt};
}

Word::CellPtr CellsObject::doItem(long index)
{
    const std::vector<model::TableCell> cells = source_.read();
    if (index < 1 || static_cast<std::size_t>(index) > cells.size())
        throw model::WordError(model::WordErrorNumber::noSuchMember);
    return makeObject<CellObject>(sharedServer(), cells[static_cast<std::size_t>(index) - 1]);
}

Word::CellPtr CellsObject::doAdd(const VARIANT& beforeCell)
{
    if (!source_.row)
        throw model::NotSupported("cells are added to a row only");
    const model::TableCell* before = isMissing(beforeCell) ? nullptr : &CellObject::of(toObject(beforeCell));
    return makeObject<CellObject>(sharedServer(), source_.row->addCell(before));
}

float CellsObject::getWidth()
{
    return commonValue(source_.read(), [](const model::TableCell& cell) { return cell.format().width; });
}

void CellsObject::putWidth(float points)
{
    doSetWidth(points, static_cast<long>(model::RulerStyle::none));
}

void CellsObject::doSetWidth(float points, long ruler)
{
    for (model::TableCell& cell : source_.read())
        cell.setWidth(points, rulerStyle(ruler));
}

float CellsObject::getHeight()
{
    return commonValue(source_.read(), [](const model::TableCell& cell) { return heightOf(cell.row()); });
}

void CellsObject::putHeight(float points)
{
    for (const model::TableCell& cell : source_.read()) {
        model::TableRow row = cell.row();
        putHeightOf(row, points);
    }
}

long CellsObject::getHeightRule()
{
    return commonValue(source_.read(), [](const model::TableCell& cell) { return heightRuleOf(cell.row()); });
}

void CellsObject::putHeightRule(long rule)
{
    for (const model::TableCell& cell : source_.read()) {
        model::TableRow row = cell.row();
        putHeightRuleOf(row, rule);
    }
}

void CellsObject::doSetHeight(const VARIANT& points, long rule)
{
    for (const model::TableCell& cell : source_.read())
        cell.row().setHeight(toFloat(points), heightRule(rule));
}
} // namespace standin
