#include "TableArguments.h"

#include "Arguments.h"

#include <algorithm>

namespace standin {
namespace {
/// What a row gets that is to have a height by rule, and has none yet.
constexpr float usualHeight = 12;

// WdDefaultTableBehavior and WdAutoFitBehavior.
constexpr long word8Behavior = 0; ///< without borders
constexpr long word9Behavior = 1; ///< with borders, the columns fitted to their text
constexpr long fitNothing = 0;
constexpr long fitContent = 1;
constexpr long fitWindow = 2;

long within(long number, long last)
{
    if (number < 0 || number > last)
        throw model::WordError(model::WordErrorNumber::valueOutOfRange);
    return number;
}
} // namespace

model::RowHeightRule heightRule(long number)
{
    return static_cast<model::RowHeightRule>(
        within(number, static_cast<long>(model::RowHeightRule::exactly)));
}

model::RulerStyle rulerStyle(long number)
{
    return static_cast<model::RulerStyle>(within(number, static_cast<long>(model::RulerStyle::sameWidth)));
}

model::Table::Borders bordersOf(const VARIANT& behavior)
{
    switch (optionalLong(behavior).value_or(word8Behavior)) {
    case word8Behavior:
        return model::Table::Borders::none;
    case word9Behavior:
        return model::Table::Borders::single;
    default:
        throw model::WordError(model::WordErrorNumber::valueOutOfRange);
    }
}

void refuseFitting(const VARIANT& autoFitBehavior)
{
    const long behavior = optionalLong(autoFitBehavior).value_or(fitNothing);
    if (behavior < fitNothing || behavior > fitWindow)
        throw model::WordError(model::WordErrorNumber::valueOutOfRange);
    if (behavior == fitContent)
        throw model::NotSupported("fitting columns to their text needs a layout, which the stand-in has not");
}

float heightOf(const model::TableRow& row)
{
    const model::RowFormat& format = row.format();
    return format.heightRule == model::RowHeightRule::automatic ? static_cast<float>(model::mixedValue)
                                                                : format.height;
}

long heightRuleOf(const model::TableRow& row)
{
    return static_cast<long>(row.format().heightRule);
}

void putHeightOf(model::TableRow& row, float points)
{
    const model::RowHeightRule present = row.format().heightRule;
    row.setHeight(points, std::max(present, model::RowHeightRule::atLeast));
}

void putHeightRuleOf(model::TableRow& row, long rule)
{
    const model::RowFormat& format = row.format();
    const bool hasHeight = format.heightRule != model::RowHeightRule::automatic;
    row.setHeight(hasHeight ? format.height : usualHeight, heightRule(rule));
}
} // namespace standin
