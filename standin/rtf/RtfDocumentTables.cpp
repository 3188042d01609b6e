#include "RtfDocumentTables.h"

#include "RtfParagraphWords.h"
#include "RtfTableLook.h"
#include "RtfText.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace standin::rtf {

using namespace model;

namespace {

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

/// A name that may hold anything, for a place where a semicolon ends it.
std::string nameText(std::u16string name)
{
    std::replace_if(
        name.begin(), name.end(), [](char16_t c) { return c < 0x20 || c == u';'; }, u' ');
    return escapeText(name);
}

} // namespace

DocumentTables::DocumentTables(const Document& document) : document_(document)
{
    for (const char16_t* usual : {u"Times New Roman", u"Arial", u"Courier New"})
        fonts_.number(usual);
    // Built-in styles have their numbers in every file: Normal 0, headings 1 to 9.
    std::int32_t next = 200;
    for (const StylePtr& style : document_.styles().all())
        styleNumbers_[style.get()] = style->isBuiltin() ? -style->builtinNumber() - 1 : next++;
}

RowNumbers DocumentTables::rowNumbers(const Style* style)
{
    return {style ? number(*style) : 0, [this](std::int32_t color) { return colors_.number(color) + 1; }};
}

std::string DocumentTables::fontWords(const FontProperties& font)
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

std::string DocumentTables::fontTable() const
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

std::string DocumentTables::colorTable() const
{
    std::string rtf = "{\\colortbl;";
    for (const std::int32_t color : colors_.keys()) {
        rtf += control("\\red", color & 0xFF) + control("\\green", (color >> 8) & 0xFF) +
               control("\\blue", (color >> 16) & 0xFF) + ";";
    }
    return rtf + "}\n";
}

std::string DocumentTables::styleSheet()
{
    std::string rtf = "{\\stylesheet" + styleEntry(document_.styles().normal());
    for (const StylePtr& style : document_.styles().all())
        if (style.get() != &document_.styles().normal())
            rtf += styleEntry(*style);
    return rtf + "}\n";
}

std::string DocumentTables::styleEntry(const Style& style)
{
    const std::int32_t own = number(style);
    std::string rtf = "\n{";
    if (style.type() == StyleType::table)
        return tableStyleEntries(style);
    if (style.type() == StyleType::character) {
        rtf += control("\\*\\cs", own) + "\\additive" + fontWords(style.resolvedFont());
    } else {
        rtf += control("\\s", own) + paragraphWords(style.resolvedParagraph()) +
               fontWords(style.resolvedFont()) + control("\\snext", number(*style.next()));
    }
    if (style.base())
        rtf += control("\\sbasedon", number(*style.base()));
    return rtf + " " + nameText(rtfStyleName(style)) + ";}";
}

std::string DocumentTables::tableStyleEntries(const Style& style)
{
    const std::int32_t own = number(style);
    const RowNumbers numbers = rowNumbers(&style);
    const std::string start = "\n{" + control("\\*\\ts", own) + "\\tsrowd";
    const std::string end = control("\\snext", own) + " " + nameText(style.name()) + ";}";
    return start + tableWords(style.table, numbers) + end + start + "\\tscfirstrow" +
           headingWords(style.table, numbers) + fontWords(style.table.headingFont) + end;
}

} // namespace standin::rtf
