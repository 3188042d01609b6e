#include "TablesOfContentsObject.h"

#include "Arguments.h"
#include "RangeObject.h"
#include "TableOfContentsObject.h"

namespace standin {
namespace {
void readFlag(bool& option, const VARIANT& value)
{
    if (!isOmitted(value))
        option = toBool(value);
}

void readNumber(std::int32_t& option, const VARIANT& value)
{
    if (!isOmitted(value))
        option = toLong(value);
}
} // namespace

TablesOfContentsObject::TablesOfContentsObject(std::shared_ptr<Server> server, const model::LiveRange& scope)
    : TablesOfContentsBase(std::move(server)), scope_(scope)
{
}

long TablesOfContentsObject::getCount()
{
    return static_cast<long>(model::tablesOfContentsIn(scope_).size());
}

Word::TableOfContentsPtr TablesOfContentsObject::doItem(long index)
{
    return makeObject<TableOfContentsObject>(sharedServer(),
                                             memberAt(model::tablesOfContentsIn(scope_), index));
}

Word::TableOfContentsPtr TablesOfContentsObject::doAdd(
    Word::Range* range, const VARIANT& useHeadingStyles, const VARIANT& upperHeadingLevel,
    const VARIANT& lowerHeadingLevel, const VARIANT& useFields, const VARIANT& tableId,
    const VARIANT& rightAlignPageNumbers, const VARIANT& includePageNumbers, const VARIANT& addedStyles,
    const VARIANT& useHyperlinks, const VARIANT& hidePageNumbersInWeb)
{
    const model::LiveRange& place = RangeObject::of(range);
    model::TableOfContentsOptions options;
    readFlag(options.useHeadingStyles, useHeadingStyles);
    readNumber(options.upperHeadingLevel, upperHeadingLevel);
    readNumber(options.lowerHeadingLevel, lowerHeadingLevel);
    readFlag(options.useFields, useFields);
    options.tableId = optionalText(tableId).value_or(std::u16string());
    readFlag(options.rightAlignPageNumbers, rightAlignPageNumbers);
    readFlag(options.includePageNumbers, includePageNumbers);
    options.addedStyles = optionalText(addedStyles).value_or(std::u16string());
    readFlag(options.useHyperlinks, useHyperlinks);
    readFlag(options.hidePageNumbersInWeb, hidePageNumbersInWeb);
    const bool crosses = model::crossesField(place);
    const model::TableOfContents table = model::addTableOfContents(place, options);
    if (crosses)
        server().note(crossesFieldNote);
    return makeObject<TableOfContentsObject>(sharedServer(), table);
}
} // namespace standin
