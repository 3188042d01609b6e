#pragma once

#include "Table.h"

#include <StandinBases.h>
#include <functional>
#include <optional>
#include <vector>

namespace standin {
/// Where a collection of cells comes from.
struct CellsSource
{
    std::function<std::vector<model::TableCell>()> read;
    std::optional<model::TableRow> row; ///< when they are a row's, which can take more cells
};

/// Cells of a row, of a column or in a range.
class CellsObject : public CellsBase
{
public:
    CellsObject(std::shared_ptr<Server> server, const CellsSource& source);

    static CellsSource sourceOf(const model::TableRow& row);
    /// Column of a table, 1-based; a row that is too short for it has no cell there.
    static CellsSource sourceOf(const model::Table& table, std::int32_t column);
    /// The cells that have a part in the range.
    static CellsSource sourceOf(const model::LiveRange& range);

protected:
    long getCount() override { return static_cast<long>(source_.read().size()); }
    Word::CellPtr doItem(long index) override;
    Word::CellPtr doAdd(const VARIANT& beforeCell) override;
    float getWidth() override;
    void putWidth(float points) override;
    void doSetWidth(float points, long ruler) override;
    float getHeight() override;
    void putHeight(float points) override;
    long getHeightRule() override;
    void putHeightRule(long rule) override;
    void doSetHeight(const VARIANT& points, long rule) override;
    long getNestingLevel() override { return 1; }

private:
    CellsSource source_;
};
} // namespace standin
