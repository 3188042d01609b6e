#include "RangeObject.h"

#include "Arguments.h"
#include "BookmarksObject.h"
#include "FieldsObject.h"
#include "FileContent.h"
#include "FileNames.h"
#include "FontObject.h"
#include "HyperlinksObject.h"
#include "InlineShapesObject.h"
#include "ParagraphFormatObject.h"
#include "StyleObject.h"
#include "TableArguments.h"
#include "TableObject.h"
#include "TablesObject.h"
#include "TextToTable.h"

#include <WordConstants.h>

namespace standin {
namespace {
using model::WordError;
using model::WordErrorNumber;

/// What ends a cell: a WdTableFieldSeparator or a character; none where paragraphs do. Word's usual one is
/// the hyphen.
std::optional<char16_t> separatorOf(const VARIANT& argument)
{
    if (isOmitted(argument))
        return u'-';
    if (!isNumber(argument)) {
        const std::u16string text = toText(argument);
        if (text.size() != 1)
            throw WordError(WordErrorNumber::valueOutOfRange);
        return text == u"\r" ? std::nullopt : std::optional(text.front());
    }
    switch (toLong(argument)) {
    case Word::wdSeparateByParagraphs:
        return std::nullopt;
    case Word::wdSeparateByTabs:
        return model::mark::tab;
    case Word::wdSeparateByCommas:
    case Word::wdSeparateByDefaultListSeparator:
        return u',';
    default:
        throw WordError(WordErrorNumber::valueOutOfRange);
    }
}

/// Of the formats that Word has for tables only the one with nothing but lines is known here.
bool formatHasBorders(const VARIANT& format, const VARIANT& applyBorders)
{
    constexpr long none = 0;   // wdTableFormatNone
    constexpr long grid1 = 16; // wdTableFormatGrid1
    const std::optional<long> number = optionalLong(format);
    if (number && *number != none && *number != grid1)
        throw model::NotSupported("this format of tables is not part of the stand-in");
    const bool hasLines = number.value_or(grid1) == grid1;
    return hasLines && optionalBool(applyBorders).value_or(number.has_value());
}

} // namespace

RangeObject::RangeObject(std::shared_ptr<Server> server, const model::LiveRange& range)
    : RangeBase(std::move(server)), range_(range)
{
}

model::LiveRange& RangeObject::of(IUnknown* object)
{
    auto* range = dynamic_cast<RangeObject*>(StandinObject::of(object));
    if (!range)
        throw WordError(WordErrorNumber::typeMismatch);
    return range->range_;
}

std::string RangeObject::chooseName(const std::string& expression)
{
    return expression.empty() ? RangeBase::chooseName(expression) : server().numberedName(expression);
}

model::DocumentPtr RangeObject::documentModel() const
{
    return range_.story().document().shared_from_this();
}

Word::RangePtr RangeObject::getDuplicate()
{
    return makeObject<RangeObject>(sharedServer(), range_);
}

Word::_FontPtr RangeObject::getFont()
{
    return makeObject<FontObject>(sharedServer(), FontObject::targetOf(range_));
}

Word::_ParagraphFormatPtr RangeObject::getParagraphFormat()
{
    return makeObject<ParagraphFormatObject>(sharedServer(), ParagraphFormatObject::targetOf(range_));
}

Word::BookmarksPtr RangeObject::getBookmarks()
{
    return makeObject<BookmarksObject>(sharedServer(), documentModel(), range_);
}

Word::FieldsPtr RangeObject::getFields()
{
    range_.story();
    return makeObject<FieldsObject>(sharedServer(), range_);
}

Word::HyperlinksPtr RangeObject::getHyperlinks()
{
    range_.story();
    return makeObject<HyperlinksObject>(sharedServer(), range_);
}

Word::TablesPtr RangeObject::getTables()
{
    range_.story();
    return makeObject<TablesObject>(sharedServer(), range_);
}

Word::InlineShapesPtr RangeObject::getInlineShapes()
{
    range_.story();
    return makeObject<InlineShapesObject>(sharedServer(), range_, InlineShapesObject::Of::range);
}

long RangeObject::getBold()
{
    return flagValue(range_.font().bold);
}

void RangeObject::putBold(long value)
{
    putFont(&model::FontProperties::bold, toggledFlag(range_.font().bold, value));
}

long RangeObject::getItalic()
{
    return flagValue(range_.font().italic);
}

void RangeObject::putItalic(long value)
{
    putFont(&model::FontProperties::italic, toggledFlag(range_.font().italic, value));
}

long RangeObject::getUnderline()
{
    return range_.font().underline.value_or(model::mixedValue);
}

void RangeObject::putUnderline(long value)
{
    putFont(&model::FontProperties::underline, std::int32_t{value});
}

_variant_t RangeObject::getStyle()
{
    const model::StylePtr style = range_.style();
    if (!style)
        return _variant_t(static_cast<IDispatch*>(nullptr));
    const Word::StylePtr object = makeObject<StyleObject>(sharedServer(), documentModel(), style);
    return _variant_t(object.GetInterfacePtr());
}

void RangeObject::putStyle(const VARIANT& style)
{
    if (isNumber(style))
        range_.setStyle(toLong(style));
    else if (IUnknown* object = toObject(style))
        range_.setStyle(StyleObject::of(object));
    else
        range_.setStyle(toText(style));
}

void RangeObject::doCollapse(const VARIANT& direction)
{
    // True and -1 come from scripts that take the direction for a flag; Word takes any value but 0 for the
    // start.
    const long number = optionalLong(direction).value_or(static_cast<long>(model::CollapseDirection::start));
    range_.collapse(number == 0 ? model::CollapseDirection::end : model::CollapseDirection::start);
}

void RangeObject::doInsertBreak(const VARIANT& type)
{
    const long number = optionalLong(type).value_or(static_cast<long>(model::BreakType::page));
    if (number < static_cast<long>(model::BreakType::sectionNextPage) ||
        number > static_cast<long>(model::BreakType::column))
        throw WordError(WordErrorNumber::valueOutOfRange);
    range_.insertBreak(static_cast<model::BreakType>(number));
}

void RangeObject::doInsertFile(std::u16string_view fileName, const VARIANT& range, const VARIANT&,
                               const VARIANT& link, const VARIANT&)
{
    if (!isMissing(range) && !toText(range).empty())
        throw model::NotSupported("inserting a part of a file is not part of the stand-in");
    if (optionalBool(link).value_or(false))
        throw model::NotSupported("linked text is not part of the stand-in");
    const std::wstring file = resolveFileName(fileName, u"").full();
    const std::string bytes = server().contentOf(file);
    if (server().insertedFiles)
        server().insertedFiles(file, bytes);
    rtf::insertFileContent(range_, bytes);
}

long RangeObject::doDelete(const VARIANT& unit, const VARIANT& count)
{
    if (optionalLong(unit).value_or(Word::wdCharacter) != Word::wdCharacter)
        throw model::NotSupported("this unit is not part of the stand-in");
    return range_.remove(optionalLong(count).value_or(1));
}

Word::TablePtr RangeObject::doConvertToTable(const VARIANT& separator, const VARIANT& rows,
                                             const VARIANT& columns, const VARIANT& columnWidth,
                                             const VARIANT& format, const VARIANT& applyBorders,
                                             const VARIANT&, const VARIANT&, const VARIANT&, const VARIANT&,
                                             const VARIANT&, const VARIANT&, const VARIANT&,
                                             const VARIANT& autoFit, const VARIANT& autoFitBehavior,
                                             const VARIANT& defaultTableBehavior)
{
    if (optionalBool(autoFit).value_or(false))
        throw model::NotSupported("fitting columns to their text needs a layout, which the stand-in has not");
    refuseFitting(autoFitBehavior);
    model::TextToTableOptions options;
    options.separator = separatorOf(separator);
    options.rows = optionalLong(rows);
    options.columns = optionalLong(columns);
    options.columnWidth = isOmitted(columnWidth) ? 0 : toFloat(columnWidth);
    options.borders = bordersOf(defaultTableBehavior);
    const bool asksForNothing =
        isOmitted(format) && isOmitted(applyBorders) && isOmitted(defaultTableBehavior);
    if (asksForNothing && !range_.story().document().switches().convertToTableDrawsNoLines)
        options.borders = model::Table::Borders::single;
    if (formatHasBorders(format, applyBorders))
        options.borders = model::Table::Borders::single;
    return makeObject<TableObject>(sharedServer(), model::convertToTable(range_, options));
}

void RangeObject::doWholeStory()
{
    range_.setRange(0, range_.story().length());
}
} // namespace standin
