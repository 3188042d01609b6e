#include "TableArguments.h"

#include "Arguments.h"

namespace standin {
namespace {
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
    const auto style =
        static_cast<model::RulerStyle>(within(number, static_cast<long>(model::RulerStyle::sameWidth)));
    if (style != model::RulerStyle::none && style != model::RulerStyle::sameWidth)
        throw model::NotSupported("this ruler style is not part of the stand-in");
    return style;
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

void refusePlace(const VARIANT& before)
{
    if (!isOmitted(before))
        throw model::NotSupported("adding in front of another is not part of the stand-in");
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

} // namespace standin
