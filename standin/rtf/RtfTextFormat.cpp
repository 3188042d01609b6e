#include "RtfTextFormat.h"

#include "RtfText.h"

#include <algorithm>
#include <map>

namespace standin::rtf {

using namespace model;

namespace {

/// Says it of the text, and remembers that it was said.
template <typename Value>
void say(TextFormat& format, std::optional<Value> FontProperties::*property, Value value)
{
    format.font.*property = value;
    format.statedFont.*property = std::move(value);
}

template <typename Value>
void say(TextFormat& format, std::optional<Value> ParagraphProperties::*property, Value value)
{
    format.paragraph.*property = value;
    format.statedParagraph.*property = std::move(value);
}

bool flagWord(TextFormat& format, std::string_view name, bool on)
{
    static const std::map<std::string_view, std::optional<bool> FontProperties::*> flags = {
        {"b", &FontProperties::bold},
        {"i", &FontProperties::italic},
        {"strike", &FontProperties::strikeThrough},
        {"v", &FontProperties::hidden}};
    const auto flag = flags.find(name);
    if (flag != flags.end())
        say(format, flag->second, on);
    return flag != flags.end();
}

/// Word's numbers for the kinds of lines.
bool underlineWord(TextFormat& format, std::string_view name, bool on)
{
    static const std::map<std::string_view, std::int32_t> kinds = {
        {"ul", 1},     {"ulw", 2},    {"uldb", 3},    {"uld", 4},       {"ulth", 6},
        {"ulnone", 0}, {"uldash", 7}, {"uldashd", 9}, {"uldashdd", 10}, {"ulwave", 11}};
    const auto kind = kinds.find(name);
    if (kind != kinds.end())
        say(format, &FontProperties::underline, on ? kind->second : 0);
    return kind != kinds.end();
}

bool fontWord(TextFormat& format, const TextTables& tables, const RtfToken& token)
{
    const std::string_view name = token.word;
    const std::int32_t number = token.number.value_or(0);
    const bool on = token.number.value_or(1) != 0;
    if (name == "plain") {
        format.font = tables.plain();
        format.statedFont = {};
        format.characterStyle = nullptr;
    } else if (name == "f") {
        if (const std::u16string* found = tables.fonts.name(number))
            say(format, &FontProperties::name, *found);
    } else if (name == "fs") {
        say(format, &FontProperties::size, static_cast<float>(std::clamp(number, 2, 3276)) / 2);
    } else if (name == "cf") {
        say(format, &FontProperties::color, tables.colors.color(number));
    } else if (name == "cs") {
        const Style* style = tables.styles.style(number, StyleType::character);
        const bool isDefault = style && style->builtinNumber() == Styles::defaultParagraphFont;
        format.characterStyle = isDefault ? nullptr : style;
    } else {
        return flagWord(format, name, on) || underlineWord(format, name, on);
    }
    return true;
}

bool alignmentWord(TextFormat& format, std::string_view name)
{
    static const std::map<std::string_view, Alignment> alignments = {{"ql", Alignment::left},
                                                                     {"qc", Alignment::center},
                                                                     {"qr", Alignment::right},
                                                                     {"qj", Alignment::justify}};
    const auto alignment = alignments.find(name);
    if (alignment != alignments.end())
        say(format, &ParagraphProperties::alignment, alignment->second);
    return alignment != alignments.end();
}

bool lengthWord(TextFormat& format, std::string_view name, std::int32_t number)
{
    static const std::map<std::string_view, std::optional<float> ParagraphProperties::*> lengths = {
        {"li", &ParagraphProperties::leftIndent},
        {"ri", &ParagraphProperties::rightIndent},
        {"fi", &ParagraphProperties::firstLineIndent},
        {"sb", &ParagraphProperties::spaceBefore},
        {"sa", &ParagraphProperties::spaceAfter}};
    const auto length = lengths.find(name);
    if (length != lengths.end())
        say(format, length->second, points(number));
    return length != lengths.end();
}

void addTab(TextFormat& format, std::int32_t number)
{
    static constexpr std::size_t mostTabs = 64; // as many as Word keeps in a paragraph
    std::vector<TabStop> tabs = *format.paragraph.tabs;
    if (tabs.size() < mostTabs) {
        format.nextTab.position = points(number);
        tabs.push_back(format.nextTab);
        say(format, &ParagraphProperties::tabs, std::move(tabs));
    }
    format.nextTab = {};
}

bool tabWord(TextFormat& format, std::string_view name, std::int32_t number)
{
    static const std::map<std::string_view, TabStop::Kind> kinds = {{"tqc", TabStop::Kind::center},
                                                                    {"tqr", TabStop::Kind::right}};
    static const std::map<std::string_view, TabStop::Leader> leaders = {
        {"tldot", TabStop::Leader::dots},
        {"tlhyph", TabStop::Leader::dashes},
        {"tlul", TabStop::Leader::lines},
        {"tlth", TabStop::Leader::heavy},
        {"tlmdot", TabStop::Leader::middleDot}};
    if (const auto kind = kinds.find(name); kind != kinds.end())
        format.nextTab.kind = kind->second;
    else if (const auto leader = leaders.find(name); leader != leaders.end())
        format.nextTab.leader = leader->second;
    else if (name == "tx")
        addTab(format, number);
    else
        return false;
    return true;
}

bool borderWord(TextFormat& format, std::string_view name, std::int32_t number)
{
    if (name == "brdrt" || name == "brdrb") {
        format.border =
            name == "brdrt" ? &ParagraphProperties::topBorder : &ParagraphProperties::bottomBorder;
        return true;
    }
    if (name == "brdrl" || name == "brdrr" || name.starts_with("clbrdr")) {
        format.border = nullptr;
        return false;
    }
    if (!format.border || (name != "brdrs" && name != "brdrnone" && name != "brdrw"))
        return false;
    Border border = *(format.paragraph.*format.border);
    if (name == "brdrw")
        border.width = points(std::clamp(number, 1, 75));
    else
        border.isVisible = name == "brdrs";
    say(format, format.border, border);
    return true;
}

bool paragraphWord(TextFormat& format, const TextTables& tables, const RtfToken& token)
{
    const std::string_view name = token.word;
    const std::int32_t number = token.number.value_or(0);
    if (name == "pard") {
        format.paragraph = plainParagraph();
        format.statedParagraph = {};
        format.border = nullptr;
        format.paragraphStyle = &tables.styles.normal();
        format.inTable = false;
    } else if (name == "intbl") {
        format.inTable = true;
    } else if (name == "s") {
        const Style* style = tables.styles.style(number, StyleType::paragraph);
        format.paragraphStyle = style ? style : &tables.styles.normal();
    } else if (name == "keepn") {
        say(format, &ParagraphProperties::keepWithNext, true);
    } else if (name == "pagebb") {
        say(format, &ParagraphProperties::pageBreakBefore, true);
    } else if (name == "outlinelevel") {
        say(format, &ParagraphProperties::outlineLevel, std::clamp(number, 0, 9) + 1);
    } else {
        return alignmentWord(format, name) || lengthWord(format, name, number) ||
               tabWord(format, name, number) || borderWord(format, name, number);
    }
    return true;
}

} // namespace

FontProperties TextFormat::ownFont(bool allStated) const
{
    FontProperties base = paragraphStyle->resolvedFont();
    if (characterStyle)
        base.overlay(characterStyle->resolvedFont());
    FontProperties own = fontBeyond(font, base);
    if (allStated)
        own.overlay(statedFont);
    return own;
}

ParagraphProperties TextFormat::ownParagraph(bool allStated) const
{
    ParagraphProperties own = paragraphBeyond(paragraph, paragraphStyle->resolvedParagraph());
    if (allStated)
        own.overlay(statedParagraph);
    return own;
}

FontProperties TextTables::plain() const
{
    FontProperties plain = plainFont();
    if (const std::u16string* name = fonts.name(defaultFont))
        plain.name = *name;
    return plain;
}

bool takeFormatWord(TextFormat& format, const TextTables& tables, const RtfToken& token)
{
    return fontWord(format, tables, token) || paragraphWord(format, tables, token);
}

} // namespace standin::rtf
