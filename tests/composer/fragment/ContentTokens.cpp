#include "ContentTokens.h"

#include "TestStyles.h"

#include <cmath>
#include <sstream>

namespace compose {

std::string printable(std::u16string_view text)
{
    std::ostringstream out;
    for (const char16_t c : text)
        if (c > u' ' && c < 0x7F)
            out << static_cast<char>(c);
        else
            out << '<' << std::hex << static_cast<unsigned>(c) << '>';
    return out.str();
}

namespace {

std::string described(const Look& look)
{
    std::ostringstream out;
    out << printable(look.font.name) << ' ' << look.font.size << (look.font.isBold ? " bold" : "")
        << (look.font.isItalic ? " italic" : "") << (look.font.isUnderlined ? " underlined" : "")
        << (look.font.isStruck ? " struck" : "") << (look.link.empty() ? "" : " -> " + look.link);
    return out.str();
}

class Reading
{
public:
    Reading(const RandomContent& content, float textWidth) : content_(content), textWidth_(textWidth) {}

    std::vector<std::string> read()
    {
        for (std::size_t index = 0; index < content_.blocks.size(); ++index) {
            if (const auto* table = std::get_if<Table>(&content_.blocks[index])) {
                read(*table);
                continue;
            }
            const bool goesOn = index + 1 < content_.blocks.size() &&
                                std::holds_alternative<Paragraph>(content_.blocks[index + 1]);
            read(std::get<Paragraph>(content_.blocks[index]), "par", goesOn);
        }
        return std::move(tokens_);
    }

private:
    void read(const Table& table)
    {
        for (std::size_t row = 0; row < table.rows.size(); ++row) {
            for (const Cell& cell : table.rows[row])
                for (std::size_t index = 0; index < cell.size(); ++index) {
                    const bool isLast = index + 1 == cell.size();
                    read(cell[index], isLast ? "cell" : "par", !isLast);
                }
            std::vector<int> edges;
            for (std::size_t column = 1; column <= table.columns(); ++column)
                edges.push_back(
                    static_cast<int>(std::lround(-108 + textWidth_ * 20 * static_cast<float>(column) /
                                                            static_cast<float>(table.columns()))));
            tokens_.push_back(rowToken(edges, -20 * table.heights[row]));
        }
    }

    void read(const Paragraph& paragraph, std::string_view mark, bool goesOn)
    {
        for (const Item& item : paragraph.items)
            read(item, paragraph.style);
        const TestStyle& style = TestStyles::find(paragraph.style);
        const int number = paragraph.alignment.value_or(style.alignment + 1);
        const int wanted = number >= 2 ? number - 1 : 0;
        tokens_.push_back(markToken(mark, style.rtfName, wanted, goesOn ? targetOf(paragraph.endLink) : ""));
    }

    void read(const Item& item, const std::u16string& style)
    {
        static const char* const keywords[] = {"", "DATE", "TIME", "FILENAME", "PAGE"};
        const Look look{fontOf(item.font.get(), style), targetOf(item.link)};
        if (const auto* text = std::get_if<Text>(&item.what))
            for (const char16_t c : text->characters)
                tokens_.push_back(characterToken(c, look));
        else if (const auto* field = std::get_if<Field>(&item.what))
            tokens_.push_back(fieldToken(keywords[field->number], look));
        else if (const auto* entry = std::get_if<Entry>(&item.what))
            tokens_.push_back(entryToken(entry->text, entry->level));
        else if (const auto* tag = std::get_if<Tag>(&item.what))
            tokens_.push_back(tagToken(tag->bookmark));
        else if (const auto* picture = std::get_if<Picture>(&item.what))
            tokens_.push_back(pictureToken(picture->kept->form, picture->kept->data(), look.link));
        else
            tokens_.push_back(pageBreakToken());
    }

    static Font fontOf(const FontWish* wish, const std::u16string& style)
    {
        const Font& given = TestStyles::find(style).font;
        if (!wish)
            return given;
        Font font = TestStyles::find(wish->style).font;
        font.name = wish->name.value_or(font.name);
        if (wish->size)
            font.size = *wish->size == 0 ? given.size : static_cast<float>(*wish->size);
        font.isBold = wish->isBold.value_or(font.isBold);
        font.isItalic = wish->isItalic.value_or(font.isItalic);
        font.isUnderlined = wish->isUnderlined.value_or(font.isUnderlined);
        font.isStruck = wish->isStruck.value_or(font.isStruck);
        return font;
    }

    std::string targetOf(LinkNumber link) const
    {
        if (link == noLink)
            return "";
        const LinkTarget& target = content_.links[static_cast<std::size_t>(link)];
        if (target.address.empty())
            return isLinkedBookmark(target.bookmark) ? "#" + printable(target.bookmark) : "";
        return printable(target.address);
    }

    const RandomContent& content_;
    float textWidth_;
    std::vector<std::string> tokens_;
};

} // namespace

std::vector<std::string> tokensOf(const RandomContent& content, float textWidth)
{
    return Reading(content, textWidth).read();
}

std::string characterToken(char16_t c, const Look& look)
{
    return printable(std::u16string(1, c)) + ' ' + described(look);
}

std::string fieldToken(std::string_view keyword, const Look& look)
{
    return "field " + std::string(keyword) + ' ' + described(look);
}

std::string entryToken(std::u16string_view text, int level)
{
    std::u16string line;
    bool wasEnd = false;
    for (const char16_t c : text) {
        const bool isEnd = c == u'\r' || c == u'\n';
        if (!isEnd || !wasEnd)
            line += isEnd ? u' ' : c;
        wasEnd = isEnd;
    }
    return "entry " + printable(line) + " level " + std::to_string(level);
}

std::string tagToken(std::u16string_view bookmark)
{
    return "tag " + printable(bookmark);
}

std::string pageBreakToken()
{
    return "page break";
}

std::string pictureToken(const PictureForm& form, std::string_view data, const std::string& link)
{
    static const char* const kinds[] = {"png", "jpeg", "emf", "bitmap"};
    std::ostringstream out;
    out << kinds[static_cast<int>(form.kind)] << ' ' << form.width << 'x' << form.height << " of "
        << form.naturalWidth << 'x' << form.naturalHeight << ' ' << std::hex;
    for (const char byte : data)
        out << static_cast<int>(static_cast<unsigned char>(byte)) << ',';
    return out.str() + (link.empty() ? "" : " -> " + link);
}

std::string markToken(std::string_view kind, const std::u16string& rtfStyle, int wordAlignment,
                      const std::string& link)
{
    return std::string(kind) + " style " + printable(rtfStyle) + " alignment " +
           std::to_string(wordAlignment) + (link.empty() ? "" : " -> " + link);
}

std::string rowToken(const std::vector<int>& edges, int height)
{
    std::string token = "row height " + std::to_string(height) + " edges";
    for (const int edge : edges)
        token += ' ' + std::to_string(edge);
    return token;
}

} // namespace compose
