#pragma once

#include "Table.h"

#include <comdef.h>

/// Reading and answering what tables, rows and cells have in common.
namespace standin {
/// Raise WordError 4608 for a number that is none of the enumeration's; a ruler style that is not part of the
/// stand-in raises NotSupported.
model::RowHeightRule heightRule(long number);
model::RulerStyle rulerStyle(long number);
/// The borders that a WdDefaultTableBehavior gives; left out, none.
model::Table::Borders bordersOf(const VARIANT& behavior);
/// Raises NotSupported for what would fit columns to their text: that needs a layout.
void refuseFitting(const VARIANT& autoFitBehavior);

/// Raises NotSupported for an argument that names a place: what is added comes last.
void refusePlace(const VARIANT& before);

/// A row's height as Word answers it: 9999999 under the automatic rule.
float heightOf(const model::TableRow& row);
long heightRuleOf(const model::TableRow& row);
} // namespace standin
