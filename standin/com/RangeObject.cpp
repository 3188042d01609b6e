#include "RangeObject.h"

#include "Arguments.h"
#include "BookmarksObject.h"
#include "CellsObject.h"
#include "FieldsObject.h"
#include "FileContent.h"
#include "FileNames.h"
#include "FontObject.h"
#include "HyperlinksObject.h"
#include "InlineShapesObject.h"
#include "PageSetupObject.h"
#include "ParagraphFormatObject.h"
#include "SectionsObject.h"
#include "StyleObject.h"
#include "TableArguments.h"
#include "TableObject.h"
#include "TablesObject.h"
#include "TextToTable.h"

namespace standin {
namespace {
using model::WordError;
using model::WordErrorNumber;

std::optional<model::Unit> optionalUnit(const VARIANT& argument)
{
    const std::optional<long> number = optionalLong(argument);
    if (!number)
        return std::nullopt;
    switch (static_cast<model::Unit>(*number)) {
    case model::Unit::character:
    case model::Unit::word:
    case model::Unit::paragraph:
    case model::Unit::story:
        return static_cast<model::Unit>(*number);
    }
    throw model::NotSupported("this unit is not part of the stand-in");
}

std::vector<model::SectionPtr> sectionsTouched(const model::LiveRange& range)
{
    const model::Story& story = range.story();
    model::Document& document = story.document();
    if (story.type() != model::StoryType::mainText)
        throw model::NotSupported("sections of a header or footer are not part of the stand-in");
    const model::Position last = range.isCollapsed() ? range.end() : range.end() - 1;
    std::vector<model::SectionPtr> sections;
    for (auto index = document.sectionIndexAt(range.start()); index <= document.sectionIndexAt(last); ++index)
        sections.push_back(document.section(index));
    return sections;
}

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
    case 0: // wdSeparateByParagraphs
        return std::nullopt;
    case 1: // wdSeparateByTabs
        return model::mark::tab;
    case 2: // wdSeparateByCommas
    case 3: // wdSeparateByDefaultListSeparator
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

bool contains(const model::LiveRange& outer, const model::LiveRange& inner)
{
    return outer.storyPtr() == inner.storyPtr() && outer.start() <= inner.start() &&
           inner.end() <= outer.end();
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

model::DocumentPtr RangeObject::documentModel() const
{
    return range_.story().document().shared_from_this();
}

Word::IDispatchPtr RangeObject::getParent()
{
    return Word::IDispatchPtr(server().document(documentModel()).GetInterfacePtr());
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

Word::PageSetupPtr RangeObject::getPageSetup()
{
    return makeObject<PageSetupObject>(sharedServer(), sectionsTouched(range_));
}

Word::SectionsPtr RangeObject::getSections()
{
    return makeObject<SectionsObject>(sharedServer(), documentModel(), sectionsTouched(range_));
}

Word::BookmarksPtr RangeObject::getBookmarks()
{
    return makeObject<BookmarksObject>(sharedServer(), range_);
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
    return makeObject<InlineShapesObject>(sharedServer(), range_);
}

Word::CellsPtr RangeObject::getCells()
{
    range_.story();
    return makeObject<CellsObject>(sharedServer(), CellsObject::sourceOf(range_));
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

long RangeObject::doMove(const VARIANT& unit, const VARIANT& count)
{
    return range_.move(optionalUnit(unit).value_or(model::Unit::character), optionalLong(count).value_or(1));
}

long RangeObject::doMoveStart(const VARIANT& unit, const VARIANT& count)
{
    return range_.moveStart(optionalUnit(unit).value_or(model::Unit::character),
                            optionalLong(count).value_or(1));
}

long RangeObject::doMoveEnd(const VARIANT& unit, const VARIANT& count)
{
    return range_.moveEnd(optionalUnit(unit).value_or(model::Unit::character),
                          optionalLong(count).value_or(1));
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
    const std::string bytes = readFile(file);
    if (server().insertedFiles)
        server().insertedFiles(file, bytes);
    rtf::insertFileContent(range_, bytes);
}

bool RangeObject::doInStory(Word::Range* range)
{
    return of(range).storyPtr() == range_.storyPtr();
}

bool RangeObject::doInRange(Word::Range* range)
{
    return contains(of(range), range_);
}

bool RangeObject::doIsEqual(Word::Range* range)
{
    return contains(of(range), range_) && contains(range_, of(range));
}

long RangeObject::doDelete(const VARIANT& unit, const VARIANT& count)
{
    return range_.remove(optionalUnit(unit), optionalLong(count));
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
    if (formatHasBorders(format, applyBorders))
        options.borders = model::Table::Borders::single;
    return makeObject<TableObject>(sharedServer(), model::convertToTable(range_, options));
}

Word::TablePtr RangeObject::doConvertToTableOld(const VARIANT& separator, const VARIANT& rows,
                                                const VARIANT& columns, const VARIANT& columnWidth,
                                                const VARIANT& format, const VARIANT& applyBorders,
                                                const VARIANT& applyShading, const VARIANT& applyFont,
                                                const VARIANT& applyColor, const VARIANT& applyHeadingRows,
                                                const VARIANT& applyLastRow, const VARIANT& applyFirstColumn,
                                                const VARIANT& applyLastColumn, const VARIANT& autoFit)
{
    return doConvertToTable(separator, rows, columns, columnWidth, format, applyBorders, applyShading,
                            applyFont, applyColor, applyHeadingRows, applyLastRow, applyFirstColumn,
                            applyLastColumn, autoFit, Word::missing, Word::missing);
}

void RangeObject::doWholeStory()
{
    range_.setRange(0, range_.story().length());
}
} // namespace standin
