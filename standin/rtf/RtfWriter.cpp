#include "RtfWriter.h"

#include "RtfBookmarks.h"
#include "RtfFields.h"
#include "RtfObjects.h"
#include "RtfPictures.h"
#include "RtfTableLook.h"
#include "RtfTables.h"
#include "RtfText.h"
#include "TableSpans.h"
#include "VisibleText.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

namespace standin::rtf {

namespace {

using namespace model;

/// Numbers in the order in which things are first asked for.
template <typename Key>
class Table
{
public:
    std::int32_t number(const Key& key)
    {
        const auto [place, isNew] = numbers_.try_emplace(key, static_cast<std::int32_t>(keys_.size()));
        if (isNew)
            keys_.push_back(key);
        return place->second;
    }
    const std::vector<Key>& keys() const { return keys_; }

private:
    std::map<Key, std::int32_t> numbers_;
    std::vector<Key> keys_;
};

/// RTF knows the built-in styles by these names, whatever the language.
std::u16string rtfStyleName(const Style& style)
{
    static constexpr std::array keptUpper = {-1, -66, -86, -87, -88, -89, -90, -91, -92, -95};
    const auto number = style.builtinNumber();
    const bool keeps = std::find(keptUpper.begin(), keptUpper.end(), number) != keptUpper.end() ||
                       number <= -93 || (number <= -47 && number >= -85);
    if (!style.isBuiltin() || keeps)
        return style.name();
    return foldCase(style.name());
}

std::string_view fontFamily(std::u16string_view name)
{
    if (name == u"Times New Roman")
        return "\\froman";
    if (name == u"Arial" || name == u"Tahoma")
        return "\\fswiss";
    return name == u"Courier New" ? "\\fmodern" : "\\fnil";
}

std::string_view alignmentWord(Alignment alignment)
{
    switch (alignment) {
    case Alignment::center:
        return "\\qc";
    case Alignment::right:
        return "\\qr";
    case Alignment::justify:
        return "\\qj";
    case Alignment::left:
        break;
    }
    return "\\ql";
}

std::string_view sectionStartWord(SectionStart start)
{
    switch (start) {
    case SectionStart::continuous:
        return "\\sbknone";
    case SectionStart::newColumn:
        return "\\sbkcol";
    case SectionStart::evenPage:
        return "\\sbkeven";
    case SectionStart::oddPage:
        return "\\sbkodd";
    case SectionStart::newPage:
        break;
    }
    return "\\sbkpage";
}

std::string_view tabLeaderWord(TabStop::Leader leader)
{
    switch (leader) {
    case TabStop::Leader::dots:
        return "\\tldot";
    case TabStop::Leader::dashes:
        return "\\tlhyph";
    case TabStop::Leader::lines:
        return "\\tlul";
    case TabStop::Leader::heavy:
        return "\\tlth";
    case TabStop::Leader::middleDot:
        return "\\tlmdot";
    case TabStop::Leader::spaces:
        break;
    }
    return "";
}

std::string tabStops(const std::vector<TabStop>& tabs)
{
    std::string rtf;
    for (const TabStop& tab : tabs) {
        if (tab.kind != TabStop::Kind::left)
            rtf += tab.kind == TabStop::Kind::center ? "\\tqc" : "\\tqr";
        rtf += tabLeaderWord(tab.leader);
        rtf += control("\\tx", twips(tab.position));
    }
    return rtf;
}

std::string paragraphBorder(std::string_view side, const std::optional<Border>& border)
{
    // Word keeps a line a point away from the text.
    return border && border->isVisible ? borderLine(side, *border) + "\\brsp20" : "";
}

std::string paragraphProperties(const ParagraphProperties& properties)
{
    std::string rtf(alignmentWord(properties.alignment.value_or(Alignment::left)));
    const auto length = [&rtf](std::string_view word, const std::optional<float>& points) {
        if (points.value_or(0) != 0)
            rtf += control(word, twips(*points));
    };
    length("\\li", properties.leftIndent);
    length("\\ri", properties.rightIndent);
    length("\\fi", properties.firstLineIndent);
    length("\\sb", properties.spaceBefore);
    length("\\sa", properties.spaceAfter);
    if (properties.keepWithNext.value_or(false))
        rtf += "\\keepn";
    if (properties.pageBreakBefore.value_or(false))
        rtf += "\\pagebb";
    const std::int32_t level = properties.outlineLevel.value_or(10);
    if (level >= 1 && level <= 9)
        rtf += control("\\outlinelevel", level - 1);
    rtf += paragraphBorder("\\brdrt", properties.topBorder) +
           paragraphBorder("\\brdrb", properties.bottomBorder);
    return rtf + tabStops(properties.tabs.value_or(std::vector<TabStop>()));
}

/// The words for Word's underline kinds that RTF 1.6 names.
std::string_view underlineWord(std::int32_t kind)
{
    switch (kind) {
    case 0:
        return "";
    case 2:
        return "\\ulw";
    case 3:
        return "\\uldb";
    case 4:
        return "\\uld";
    case 6:
        return "\\ulth";
    case 7:
        return "\\uldash";
    case 9:
        return "\\uldashd";
    case 10:
        return "\\uldashdd";
    case 11:
        return "\\ulwave";
    default:
        return "\\ul";
    }
}

std::string shapeText(const InlineShape& shape)
{
    return shape.isObject() ? objectText(shape) : pictureText(shape);
}

class Writer
{
public:
    explicit Writer(const Document& document) : document_(document)
    {
        for (const char16_t* usual : {u"Times New Roman", u"Arial", u"Courier New"})
            fonts_.number(usual);
        numberStyles();
    }

    std::string write()
    {
        // The body comes first, because it decides which fonts and colours the tables in front of it hold.
        const std::string sheet = styleSheet();
        const std::string body = sections();
        return "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0\\deflang1033\n" + fontTable() + colorTable() + sheet +
               documentProperties() + body + "}\n";
    }

private:
    /// Built-in styles have their numbers in every file: Normal 0, headings 1 to 9.
    void numberStyles()
    {
        std::int32_t next = 200;
        for (const StylePtr& style : document_.styles().all())
            styleNumbers_[style.get()] = style->isBuiltin() ? -style->builtinNumber() - 1 : next++;
    }

    std::string fontProperties(const FontProperties& font)
    {
        std::string rtf;
        if (font.name)
            rtf += control("\\f", fonts_.number(*font.name));
        if (font.size)
            rtf += control("\\fs", std::clamp(twips(*font.size) / 10, 2, 3276));
        rtf += font.bold.value_or(false) ? "\\b" : "";
        rtf += font.italic.value_or(false) ? "\\i" : "";
        rtf += font.strikeThrough.value_or(false) ? "\\strike" : "";
        rtf += font.hidden.value_or(false) ? "\\v" : "";
        rtf += underlineWord(font.underline.value_or(0));
        const std::int32_t color = font.color.value_or(FontProperties::automaticColor);
        if (color != FontProperties::automaticColor)
            rtf += control("\\cf", colors_.number(color) + 1);
        return rtf;
    }

    std::string fontTable() const
    {
        std::string rtf = "{\\fonttbl";
        for (std::size_t i = 0; i < fonts_.keys().size(); ++i) {
            const std::u16string& name = fonts_.keys()[i];
            rtf += control("{\\f", static_cast<std::int32_t>(i));
            rtf += fontFamily(name);
            rtf += "\\fcharset0\\fprq2 " + nameText(name) + ";}";
        }
        return rtf + "}\n";
    }

    /// A name that may hold anything, for a place where a semicolon ends it.
    static std::string nameText(std::u16string name)
    {
        std::replace_if(
            name.begin(), name.end(), [](char16_t c) { return c < 0x20 || c == u';'; }, u' ');
        return escapeText(name);
    }

    std::string colorTable() const
    {
        std::string rtf = "{\\colortbl;";
        for (const std::int32_t color : colors_.keys()) {
            rtf += control("\\red", color & 0xFF) + control("\\green", (color >> 8) & 0xFF) +
                   control("\\blue", (color >> 16) & 0xFF) + ";";
        }
        return rtf + "}\n";
    }

    std::string styleSheet()
    {
        std::string rtf = "{\\stylesheet" + styleEntry(document_.styles().normal());
        for (const StylePtr& style : document_.styles().all())
            if (style.get() != &document_.styles().normal())
                rtf += styleEntry(*style);
        return rtf + "}\n";
    }

    std::string styleEntry(const Style& style)
    {
        const std::int32_t number = styleNumbers_.at(&style);
        std::string rtf = "\n{";
        if (style.type() == StyleType::table)
            return tableStyleEntries(style);
        if (style.type() == StyleType::character) {
            rtf += control("\\*\\cs", number) + "\\additive" + fontProperties(style.resolvedFont());
        } else {
            rtf += control("\\s", number) + paragraphProperties(style.resolvedParagraph()) +
                   fontProperties(style.resolvedFont()) + control("\\snext", styleNumbers_.at(style.next()));
        }
        if (style.base())
            rtf += control("\\sbasedon", styleNumbers_.at(style.base()));
        return rtf + " " + nameText(rtfStyleName(style)) + ";}";
    }

    std::string tableStyleEntries(const Style& style)
    {
        const std::int32_t number = styleNumbers_.at(&style);
        const RowNumbers numbers = rowNumbers(number);
        const std::string start = "\n{" + control("\\*\\ts", number) + "\\tsrowd";
        const std::string end = control("\\snext", number) + " " + nameText(style.name()) + ";}";
        return start + tableWords(style.table, numbers) + end + start + "\\tscfirstrow" +
               headingWords(style.table, numbers) + fontProperties(style.table.headingFont) + end;
    }

    RowNumbers rowNumbers(std::int32_t style)
    {
        return {style, [this](std::int32_t color) { return colors_.number(color) + 1; }};
    }

    std::string documentProperties() const
    {
        const PageSetup& setup = document_.section(1)->pageSetup;
        std::string rtf =
            control("\\paperw", twips(setup.pageWidth)) + control("\\paperh", twips(setup.pageHeight)) +
            control("\\margl", twips(setup.leftMargin)) + control("\\margr", twips(setup.rightMargin)) +
            control("\\margt", twips(setup.topMargin)) + control("\\margb", twips(setup.bottomMargin));
        rtf += setup.orientation == Orientation::landscape ? "\\landscape" : "";
        rtf += setup.oddAndEvenPages ? "\\facingp" : "";
        return rtf + "\n";
    }

    std::string sections()
    {
        std::string rtf;
        StoryState body(*document_.mainStory());
        for (std::int32_t index = 1; index <= document_.sectionCount(); ++index) {
            const SectionPtr section = document_.section(index);
            rtf += sectionProperties(section->pageSetup, index == 1) + headersAndFooters(*section);
            rtf += paragraphs(body, document_.sectionStart(index), document_.sectionEnd(index));
            rtf += index < document_.sectionCount() ? "\\sect\n" : "";
        }
        return rtf;
    }

    static std::string sectionProperties(const PageSetup& setup, bool isFirst)
    {
        std::string rtf = "\\sectd";
        // A first section that starts in place cuts words apart in some readers, and says nothing there.
        rtf += isFirst && setup.sectionStart == SectionStart::continuous
                   ? "\\sbkpage"
                   : sectionStartWord(setup.sectionStart);
        rtf +=
            control("\\pgwsxn", twips(setup.pageWidth)) + control("\\pghsxn", twips(setup.pageHeight)) +
            control("\\marglsxn", twips(setup.leftMargin)) + control("\\margrsxn", twips(setup.rightMargin)) +
            control("\\margtsxn", twips(setup.topMargin)) + control("\\margbsxn", twips(setup.bottomMargin)) +
            control("\\headery", twips(setup.headerDistance)) +
            control("\\footery", twips(setup.footerDistance));
        rtf += setup.orientation == Orientation::landscape ? "\\lndscpsxn" : "";
        rtf += setup.differentFirstPage ? "\\titlepg" : "";
        return rtf + "\n";
    }

    std::string headersAndFooters(const Section& section)
    {
        std::string rtf;
        for (const auto part : {Section::Part::header, Section::Part::footer}) {
            const std::string word = part == Section::Part::header ? "\\header" : "\\footer";
            const bool evenPages = section.pageSetup.oddAndEvenPages;
            rtf += headerOrFooter(section, part, HeaderFooterIndex::primary, evenPages ? word + "r" : word);
            if (section.pageSetup.differentFirstPage)
                rtf += headerOrFooter(section, part, HeaderFooterIndex::firstPage, word + "f");
            if (evenPages)
                rtf += headerOrFooter(section, part, HeaderFooterIndex::evenPages, word + "l");
        }
        return rtf;
    }

    std::string headerOrFooter(const Section& section, Section::Part part, HeaderFooterIndex index,
                               const std::string& word)
    {
        const auto story = section.ownStory(part, index);
        if (!story)
            return "";
        StoryState state(*story);
        return "{" + word + paragraphs(state, 0, story->length()) + "}\n";
    }

    struct OpenField
    {
        Position begin;
        Position resultStart; ///< 0 as long as its code is written
        bool isInCode;        ///< of another field
    };

    /// What is open while a story is written.
    struct StoryState
    {
        explicit StoryState(const Story& written) : story(written), bookmarks(written) {}

        const Story& story;
        BookmarkWriter bookmarks;
        std::vector<OpenField> fields;
    };

    std::string paragraphs(StoryState& state, Position start, Position end)
    {
        const Story& story = state.story;
        std::string rtf;
        for (Position at = start; at < end;) {
            const std::size_t index = story.paragraphIndexAt(at);
            const Paragraph paragraph = story.paragraph(index);
            if (startsRow(story, index))
                rtf += rowStart(story, rowAt(story, index));
            else if (!paragraph.format->inTable)
                heading_ = nullptr;
            if (paragraph.format->end != ParagraphEnd::row)
                rtf += paragraphStart(*paragraph.format) + runs(state, paragraph);
            rtf += paragraphEnd(paragraph.format->end);
            at = paragraph.end;
        }
        return rtf + (end == story.length() ? state.bookmarks.bordersUpTo(end) : "");
    }

    std::string rowStart(const Story& story, const ParagraphSpan& row)
    {
        const RowFormat& format = formatOf(story, row);
        const auto isTableAt = [&](std::size_t paragraph) {
            return paragraph < story.paragraphCount() && story.paragraph(paragraph).format->inTable;
        };
        const bool isFirst = row.first == 0 || !isTableAt(row.first - 1);
        RowPlace place{.isFirst = isFirst, .isLast = !isTableAt(row.past)};
        if (!isFirst) {
            const ParagraphSpan before = rowEndingAt(story, row.first - 1);
            place.isSecond = before.first == 0 || !isTableAt(before.first - 1);
        }
        heading_ = isFirst && format.style ? &format.style->table.headingFont : nullptr;
        return rowDefinition(format, place, rowNumbers(format.style ? styleNumbers_.at(format.style) : 0));
    }

    static bool startsRow(const Story& story, std::size_t paragraph)
    {
        if (!story.paragraph(paragraph).format->inTable)
            return false;
        const ParagraphFormat* before = paragraph > 0 ? story.paragraph(paragraph - 1).format : nullptr;
        return !before || !before->inTable || before->end == ParagraphEnd::row;
    }

    static std::string_view paragraphEnd(ParagraphEnd end)
    {
        switch (end) {
        case ParagraphEnd::mark:
            return "\\par\n";
        case ParagraphEnd::cell:
            return "\\cell\n";
        case ParagraphEnd::row:
            return "\\row\n";
        case ParagraphEnd::section:
            break;
        }
        return "";
    }

    std::string paragraphStart(const ParagraphFormat& format)
    {
        ParagraphProperties properties = format.style->resolvedParagraph();
        properties.overlay(format.properties);
        return std::string("\\pard\\plain") + (format.inTable ? "\\intbl" : "") +
               control("\\s", styleNumbers_.at(format.style)) + paragraphProperties(properties);
    }

    /// The paragraph's characters; the last stretch stays open, so that the mark takes its formatting.
    std::string runs(StoryState& state, const Paragraph& paragraph)
    {
        const Story& story = state.story;
        std::string rtf;
        for (Position at = paragraph.start; at < paragraph.end;) {
            const CharacterRun run = story.runAt(at);
            const Position past = behindPair(story, std::min(run.end, paragraph.end));
            const Position textEnd = std::min(past, paragraph.end - 1);
            const std::string font = runStart(*paragraph.format, *run.format);
            at = writeMarked(rtf, state, paragraph, {at, textEnd, font});
            if (at > past)
                continue;
            const std::string text =
                run.format->shape ? shapeText(*run.format->shape) : escapeText(story.text(at, textEnd));
            if (past == paragraph.end)
                rtf += font + " " + text + state.bookmarks.bordersUpTo(textEnd);
            else if (at < textEnd)
                rtf += "{" + font + " " + text + "}";
            at = past;
        }
        return rtf;
    }

    struct Stretch
    {
        Position start;
        Position end;
        const std::string& font;
    };

    /// Writes the stretch up to behind the last of its field characters and borders of bookmarks; returns
    /// where the rest begins.
    Position writeMarked(std::string& rtf, StoryState& state, const Paragraph& paragraph,
                         const Stretch& stretch)
    {
        const Story& story = state.story;
        Position at = stretch.start;
        for (;;) {
            rtf += state.bookmarks.bordersUpTo(at);
            const Position mark = story.fields().nextMark(at).value_or(stretch.end);
            const Position border = state.bookmarks.next();
            const Position next = border < mark ? behindPair(story, border) : mark;
            if (next >= stretch.end)
                return at;
            if (at < next)
                rtf += "{" + stretch.font + " " + escapeText(story.text(at, next)) + "}";
            at = next;
            if (const auto object = at == mark ? objectField(story, at) : std::nullopt) {
                const Position shape = object->resultStart();
                rtf += "{" + stretch.font + shapeText(*story.runAt(shape).format->shape) + "}";
                at = object->past();
            } else if (at == mark) {
                rtf += state.bookmarks.bordersUpTo(at) + fieldCharacter(state, paragraph, at, stretch.font);
                ++at;
            }
        }
    }

    /// The field that begins at `begin`, if it is one that stands around an object: an object's RTF says as
    /// much.
    static std::optional<FieldPlace> objectField(const Story& story, Position begin)
    {
        const std::vector<FieldPlace> fields = story.fields().startingIn(begin, begin + 1);
        if (fields.empty() || fields.front().end != fields.front().resultStart() + 1)
            return std::nullopt;
        const FieldPlace& field = fields.front();
        const InlineShape* shape = story.runAt(field.resultStart()).format->shape.get();
        const bool fits = shape && shape->isObject() &&
                          story.text(field.codeStart(), field.codeEnd()) == objectFieldCode(*shape);
        return fits ? std::optional(field) : std::nullopt;
    }

    std::string fieldCharacter(StoryState& state, const Paragraph& paragraph, Position at,
                               const std::string& font)
    {
        if (state.story.at(at) == mark::fieldBegin) {
            const bool isInCode = !state.fields.empty() && state.fields.back().resultStart == 0;
            state.fields.push_back({at, 0, isInCode});
            return (isInCode ? codeFieldBegin() : "") + fieldBegin(font);
        }
        OpenField& field = state.fields.back();
        // What was said of the paragraph inside a group ends with it.
        const std::string again = field.begin < paragraph.start ? paragraphStart(*paragraph.format) : "";
        if (state.story.at(at) == mark::fieldSeparator) {
            field.resultStart = at + 1;
            return std::string(fieldSeparator()) + again;
        }
        std::string rtf(fieldEnd());
        if (field.isInCode) {
            const Position resultStart = field.resultStart == 0 ? at : field.resultStart;
            rtf += codeFieldEnd(visibleText(state.story, resultStart, at));
        }
        state.fields.pop_back();
        return rtf + again;
    }

    /// A surrogate pair is one character to the reader, so it is not cut where formatting changes inside it.
    static Position behindPair(const Story& story, Position at)
    {
        const bool cutsPair =
            at < story.length() && (story.at(at - 1) & 0xFC00) == 0xD800 && (story.at(at) & 0xFC00) == 0xDC00;
        return cutsPair ? at + 1 : at;
    }

    std::string runStart(const ParagraphFormat& paragraph, const CharacterFormat& format)
    {
        const std::string style = format.style ? control("\\cs", styleNumbers_.at(format.style)) : "";
        FontProperties font = Story::effectiveFont(paragraph, format);
        // Readers go by what is said of the text, and not by its table's style.
        if (heading_ && !format.font.bold && heading_->bold)
            font.bold = heading_->bold;
        if (heading_ && !format.font.color && !(format.style && format.style->font.color) && heading_->color)
            font.color = heading_->color;
        return style + fontProperties(font);
    }

    const Document& document_;
    Table<std::u16string> fonts_;
    Table<std::int32_t> colors_;
    std::map<const Style*, std::int32_t> styleNumbers_;
    const FontProperties* heading_ = nullptr; ///< of the row in hand, if it is a table's first one
};

} // namespace

std::string writeRtf(const Document& document)
{
    return Writer(document).write();
}

} // namespace standin::rtf
