#include "TableOfContents.h"

#include "Decimal.h"
#include "Document.h"
#include "PageNumbers.h"
#include "TableOfContentsEntries.h"
#include "WordError.h"

#include <algorithm>
#include <cstdlib>

namespace standin::model {

namespace {

constexpr std::u16string_view noEntries = u"Error! No table of contents entries found.";

std::string narrow(std::u16string_view text)
{
    std::string narrowed;
    for (const char16_t unit : text)
        narrowed += unit < 0x80 ? static_cast<char>(unit) : '?';
    return narrowed;
}

std::u16string codeOf(const TableOfContentsOptions& options)
{
    std::u16string code = u" TOC ";
    if (options.useHeadingStyles) {
        code += u"\\o \"" + decimal(options.upperHeadingLevel) + u'-' + decimal(options.lowerHeadingLevel) +
                u"\" ";
    }
    if (options.useFields || !options.tableId.empty())
        code += options.tableId.empty() ? u"\\f " : u"\\f " + options.tableId + u' ';
    code += options.includePageNumbers ? u"" : u"\\n ";
    code += options.rightAlignPageNumbers ? u"" : u"\\p \" \" ";
    code += options.useHyperlinks ? u"\\h " : u"";
    code += options.hidePageNumbersInWeb ? u"\\z " : u"";
    if (!options.addedStyles.empty())
        code += u"\\t " + quotedArgument(options.addedStyles) + u' ';
    return code;
}

void readLevels(const std::u16string& levels, TableOfContentsOptions& options)
{
    const std::string text = narrow(levels);
    const std::size_t dash = text.find('-');
    if (dash != std::string::npos) {
        options.upperHeadingLevel = std::atoi(text.c_str());
        options.lowerHeadingLevel = std::atoi(text.c_str() + dash + 1);
    }
}

std::int32_t tocStyle(std::int32_t level)
{
    return -19 - level;
}

TabStop* rightTab(ParagraphProperties& properties)
{
    if (properties.tabs) {
        for (TabStop& tab : *properties.tabs)
            if (tab.kind == TabStop::Kind::right)
                return &tab;
    }
    return nullptr;
}

/// The page numbers' tab stands at the right margin of the text.
void setUpTocStyles(const Document& document, Position at)
{
    const PageSetup& page = document.section(document.sectionIndexAt(at))->pageSetup;
    const float width = std::max(0.0f, page.pageWidth - page.leftMargin - page.rightMargin);
    for (std::int32_t level = 1; level <= 9; ++level) {
        Style& style = *document.styles().findBuiltin(tocStyle(level));
        if (!rightTab(style.paragraph))
            style.paragraph.tabs = std::vector<TabStop>{{width, TabStop::Kind::right, TabStop::Leader::dots}};
    }
}

std::u16string markedField(std::u16string_view code, const std::u16string& result)
{
    std::u16string text;
    text += mark::fieldBegin;
    text += code;
    text += mark::fieldSeparator;
    text += result;
    text += mark::fieldEnd;
    return text;
}

/// One paragraph of the table, with the field characters of what is linked.
std::u16string lineOf(const TableOfContentsEntry& entry, const TableOfContentsOptions& options)
{
    std::u16string line = entry.text;
    if (options.includePageNumbers) {
        const std::u16string page = decimal(entry.page);
        line += options.rightAlignPageNumbers ? mark::tab : u' ';
        line += options.useHyperlinks ? markedField(u" PAGEREF " + entry.bookmark + u" \\h ", page) : page;
    }
    if (options.useHyperlinks)
        line = markedField(u" HYPERLINK  \\l \"" + entry.bookmark + u"\" ", line);
    return line + mark::paragraph;
}

void nameBookmarks(std::vector<TableOfContentsEntry>& entries, const Document& document)
{
    std::int32_t last = 0;
    for (TableOfContentsEntry& entry : entries) {
        for (const BookmarkPtr& each :
             document.bookmarks().touching(LiveRange(document.mainStory(), entry.start, entry.end)))
            if (each->name().starts_with(u"_Toc") && each->range().start() == entry.start &&
                each->range().end() == entry.end)
                entry.bookmark = each->name();
        while (entry.bookmark.empty()) {
            const std::u16string digits = decimal(++last);
            const std::u16string name =
                u"_Toc" + std::u16string(9 - std::min<std::size_t>(9, digits.size()), u'0') + digits;
            entry.bookmark = document.bookmarks().find(name) ? u"" : name;
        }
    }
}

} // namespace

TableOfContentsOptions TableOfContents::options() const
{
    const FieldCode code = field_.parsedCode();
    TableOfContentsOptions options;
    options.useHeadingStyles = code.has(u'o');
    if (options.useHeadingStyles)
        readLevels(*code.value(u'o'), options);
    options.useFields = code.has(u'f');
    options.tableId = code.value(u'f').value_or(std::u16string());
    options.addedStyles = code.value(u't').value_or(std::u16string());
    options.rightAlignPageNumbers = !code.has(u'p');
    options.includePageNumbers = !code.has(u'n');
    options.useHyperlinks = code.has(u'h');
    options.hidePageNumbersInWeb = code.has(u'z');
    return options;
}

TabStop::Leader TableOfContents::tabLeader() const
{
    const Document& document = field_.code().story().document();
    const TabStop* tab = rightTab(document.styles().findBuiltin(tocStyle(1))->paragraph);
    return tab ? tab->leader : TabStop::Leader::spaces;
}

void TableOfContents::setTabLeader(TabStop::Leader leader)
{
    Document& document = field_.code().story().document();
    for (std::int32_t level = 1; level <= 9; ++level)
        if (TabStop* tab = rightTab(document.styles().findBuiltin(tocStyle(level))->paragraph))
            tab->leader = leader;
    document.touched();
}

void TableOfContents::update()
{
    field_.setResult({});
    Story& story = *field_.storyPtr();
    Document& document = story.document();
    const TableOfContentsOptions options = this->options();
    std::vector<TableOfContentsEntry> entries = tableOfContentsEntries(document, options);
    const Position at = field_.place().resultStart();
    if (entries.empty()) {
        field_.setResult(noEntries);
        field_.result().setFont({.bold = true});
        return;
    }
    if (options.rightAlignPageNumbers)
        setUpTocStyles(document, story.type() == StoryType::mainText ? at : 0);
    if (options.useHyperlinks)
        nameBookmarks(entries, document);
    // Text in front of the table stays in a paragraph of its own.
    const bool startsParagraph = story.paragraphAt(field_.place().begin).start == field_.place().begin;
    std::u16string text(startsParagraph ? 0 : 1, mark::paragraph);
    std::vector<Position> lines;
    for (const TableOfContentsEntry& entry : entries) {
        lines.push_back(at + static_cast<Position>(text.size()));
        text += lineOf(entry, options);
    }
    story.insert(at, text);
    const auto count = static_cast<Position>(text.size());
    story.setCharacterFormat(at, at + count, {});
    for (std::size_t i = 0; i < entries.size(); ++i) {
        ParagraphFormat format;
        format.style = document.styles().findBuiltin(tocStyle(entries[i].level)).get();
        story.setParagraphFormat(story.paragraphIndexAt(lines[i]), format);
        if (options.useHyperlinks) {
            const Position moved = &story == document.mainStory().get() && entries[i].start >= at ? count : 0;
            document.bookmarks().add(
                entries[i].bookmark,
                LiveRange(document.mainStory(), entries[i].start + moved, entries[i].end + moved));
        }
    }
}

TableOfContents addTableOfContents(const LiveRange& range, const TableOfContentsOptions& options)
{
    Story& story = range.story();
    const Switches& switches = story.document().switches();
    if (story.type() != StoryType::mainText && !switches.headerTakesContents)
        throw WordError(WordErrorNumber::notAvailable);
    const auto isLevel = [](std::int32_t level) { return level >= 1 && level <= 9; };
    if ((options.useHeadingStyles || !switches.contentsTakeAnyLevel) &&
        (!isLevel(options.upperHeadingLevel) || !isLevel(options.lowerHeadingLevel)))
        throw WordError(WordErrorNumber::valueOutOfRange);
    const Position at = std::min(range.start(), story.length() - 1);
    const Position past = std::max(at, std::min(range.end(), story.length() - 1));
    const Position place = story.erase(at, past);
    std::u16string text;
    text += mark::fieldBegin;
    text += codeOf(options);
    text += mark::fieldEnd;
    story.insert(place, text);
    const Position end = place + static_cast<Position>(text.size()) - 1;
    TableOfContents table(Field(range.storyPtr(), story.fields().endingAt(end)->id));
    table.update();
    return table;
}

std::vector<TableOfContents> tablesOfContentsIn(const LiveRange& range)
{
    std::vector<TableOfContents> tables;
    for (const Field& field : fieldsIn(range))
        if (field.type() == tocFieldType)
            tables.emplace_back(field);
    return tables;
}

} // namespace standin::model
