#pragma once

#include "Table.h"

#include <comdef.h>
#include <optional>

/// Reading and answering what tables, rows and cells have in common.
namespace standin {
/// Raise WordError 4608 for a number that is none of the enumeration's.
model::RowHeightRule heightRule(long number);
model::RulerStyle rulerStyle(long number);
/// The borders that a WdDefaultTableBehavior gives; left out, none.
model::Table::Borders bordersOf(const VARIANT& behavior);
/// Raises NotSupported for what would fit columns to their text: that needs a layout.
void refuseFitting(const VARIANT& autoFitBehavior);

/// A value that is 9999999 when the parts asked differ in it.
template <typename Parts, typename Read>
auto commonValue(const Parts& parts, Read read)
{
    using Value = decltype(read(*parts.begin()));
    std::optional<Value> common;
    for (const auto& part : parts) {
        const Value value = read(part);
        if (common && *common != value)
            return static_cast<Value>(model::mixedValue);
        common = value;
    }
    return common.value_or(static_cast<Value>(model::mixedValue));
}

/// A row's height as Word answers it: 9999999 under the automatic rule.
float heightOf(const model::TableRow& row);
long heightRuleOf(const model::TableRow& row);
/// What putting a height alone does: at least that high, unless the row's height is exact.
void putHeightOf(model::TableRow& row, float points);
void putHeightRuleOf(model::TableRow& row, long rule);
} // namespace standin
