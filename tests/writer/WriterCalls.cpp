#include "WriterCalls.h"

FontData FontLook::data() const
{
    FontData font;
    font.name = name;
    font.size = static_cast<std::int16_t>(size);
    font.bold = bold;
    font.italic = italic;
    font.underline = underline;
    font.strikeThrough = strikeThrough;
    return font;
}

std::string numbered(const std::string& kind, int number, const char* sign)
{
    return number == 1 ? kind : kind + sign + std::to_string(number);
}

Calls styleFontRead(const std::string& argument, const FontLook& font)
{
    const std::string style = "document.Styles(" + argument + ")";
    const std::string object = style + ".Font";
    const auto flag = [](bool set) { return set ? "-1" : "0"; };
    return {"document.Styles.Item(" + argument + ") -> " + style,
            style + ".Font -> " + object,
            object + ".Name -> \"" + font.name + '"',
            object + ".Size -> " + std::to_string(font.size) + 'f',
            object + ".Bold -> " + flag(font.bold),
            object + ".Italic -> " + flag(font.italic),
            object + ".Underline -> " + (font.underline ? "1" : "0"),
            object + ".StrikeThrough -> " + flag(font.strikeThrough)};
}

Calls fontWritten(const std::string& range, const FontLook& font)
{
    const std::string object = range + ".Font";
    const auto flag = [](bool set) { return set ? "1" : "0"; };
    Calls calls = {range + ".Font -> " + object, object + ".Name = \"" + font.name + '"'};
    if (font.size != 0)
        calls.push_back(object + ".Size = " + std::to_string(font.size) + 'f');
    calls.push_back(object + ".Bold = " + flag(font.bold));
    calls.push_back(object + ".Italic = " + flag(font.italic));
    calls.push_back(object + ".Underline = " + flag(font.underline));
    calls.push_back(object + ".StrikeThrough = " + flag(font.strikeThrough));
    return calls;
}

Calls alignmentWritten(const std::string& range, int alignment)
{
    const std::string format = range + ".ParagraphFormat";
    return {range + ".ParagraphFormat -> " + format, format + ".Alignment = " + std::to_string(alignment)};
}

Calls rangeLaid(std::int32_t start, std::int32_t end, const std::string& range)
{
    return {range + ".Start = " + std::to_string(start), range + ".End = " + std::to_string(end)};
}

Calls styleRunApplied(std::int32_t start, std::int32_t end, const std::string& style, const FontLook& font,
                      const std::string& range)
{
    return join(rangeLaid(start, end, range), Calls{range + ".Style = " + style},
                rangeLaid(start, end, range), fontWritten(range, font));
}

bool operator==(const FontData& a, const FontData& b)
{
    return !(a != b);
}

std::ostream& operator<<(std::ostream& out, const FontData& font)
{
    return out << '"' << font.name.data() << "\" " << font.size << (font.bold ? " bold" : "")
               << (font.italic ? " italic" : "") << (font.underline ? " underlined" : "")
               << (font.strikeThrough ? " struck through" : "");
}
