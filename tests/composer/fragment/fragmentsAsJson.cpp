// fragments_as_json FIRST COUNT: fragments of random content, one a line, as a JSON object with
//   rtf     the fragment
//   blocks  what it shows: {"paragraph": {...}}, or {"heights": [...], "rows": [...]} with a list of cells in
//           each row and a list of paragraphs in each cell
// Of fonts and alignments there is what differs from the style.
#include "ClientNumbers.h"
#include "ContentTokens.h"
#include "FontChange.h"
#include "Fragment.h"
#include "TestStyles.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <random>

namespace compose {
namespace {

std::string quoted(std::u16string_view text)
{
    std::string json = "\"";
    for (const char16_t c : text) {
        char escaped[8];
        std::snprintf(escaped, sizeof escaped, "\\u%04x", static_cast<unsigned>(c));
        json +=
            c > u' ' && c < 0x7F && c != u'"' && c != u'\\' ? std::string(1, static_cast<char>(c)) : escaped;
    }
    return json + '"';
}

std::string quotedAscii(std::string_view text)
{
    return quoted(std::u16string(text.begin(), text.end()));
}

/// Puts commas between what is added.
class List
{
public:
    void add(const std::string& item)
    {
        text_ += text_.empty() ? "" : ", ";
        text_ += item;
    }
    void add(std::string_view name, const std::string& value) { add(quotedAscii(name) + ": " + value); }
    [[nodiscard]] std::string asObject() const { return "{" + text_ + "}"; }
    [[nodiscard]] std::string asArray() const { return "[" + text_ + "]"; }

private:
    std::string text_;
};

class Description
{
public:
    explicit Description(const RandomContent& content) : content_(content) {}

    std::string blocks()
    {
        List blocks;
        for (std::size_t index = 0; index < content_.blocks.size(); ++index) {
            List block;
            if (const auto* table = std::get_if<Table>(&content_.blocks[index])) {
                List heights;
                for (const int height : table->heights)
                    heights.add(std::to_string(height));
                block.add("heights", heights.asArray());
                block.add("rows", rows(*table));
            } else {
                block.add("paragraph", paragraph(std::get<Paragraph>(content_.blocks[index])));
            }
            blocks.add(block.asObject());
        }
        return blocks.asArray();
    }

private:
    std::string rows(const Table& table)
    {
        List rows;
        for (const Row& row : table.rows) {
            List cells;
            for (const Cell& cell : row) {
                List paragraphs;
                for (const Paragraph& each : cell)
                    paragraphs.add(paragraph(each));
                cells.add(paragraphs.asArray());
            }
            rows.add(cells.asArray());
        }
        return rows.asArray();
    }

    std::string paragraph(const Paragraph& paragraph)
    {
        List items;
        for (const Item& each : paragraph.items)
            items.add(item(each, paragraph.style));
        const int styles = TestStyles::find(paragraph.style).alignment;
        List object;
        object.add("style", quoted(paragraph.style));
        if (paragraph.alignment && clientNumbers::wordAlignment(*paragraph.alignment) != styles)
            object.add("alignment", std::to_string(clientNumbers::wordAlignment(*paragraph.alignment)));
        if (paragraph.endLink != noLink)
            object.add("linkGoesOn", "true");
        object.add("items", items.asArray());
        return object.asObject();
    }

    std::string item(const Item& item, const std::u16string& style)
    {
        List object;
        if (const auto* text = std::get_if<Text>(&item.what))
            object.add("text", quoted(text->characters));
        else if (const auto* field = std::get_if<Field>(&item.what))
            object.add("field", std::to_string(field->number));
        else if (const auto* entry = std::get_if<Entry>(&item.what))
            object.add("entry", quoted(entry->text));
        else if (const auto* tag = std::get_if<Tag>(&item.what))
            object.add("tag", quoted(tag->bookmark));
        else if (const auto* picture = std::get_if<Picture>(&item.what))
            object.add("picture", described(*picture->kept));
        else
            object.add("pageBreak", "true");
        if (const auto* entry = std::get_if<Entry>(&item.what))
            object.add("level", std::to_string(entry->level));
        if (item.link != noLink)
            addLink(object, content_.links[static_cast<std::size_t>(item.link)]);
        object.add("font", font(changeOf(item.font.get(), style, styles_)));
        return object.asObject();
    }

    /// Width and height in points, and its data in hexadecimal.
    static std::string described(const KeptPicture& picture)
    {
        constexpr double twipsPerPoint = 20;
        std::string data;
        for (const char byte : picture.data()) {
            char digits[3];
            std::snprintf(digits, sizeof digits, "%02x",
                          static_cast<unsigned>(static_cast<unsigned char>(byte)));
            data += digits;
        }
        List description;
        description.add(std::to_string(picture.form.naturalWidth / twipsPerPoint));
        description.add(std::to_string(picture.form.naturalHeight / twipsPerPoint));
        description.add(quotedAscii(data));
        return description.asArray();
    }

    static void addLink(List& object, const LinkTarget& target)
    {
        if (!target.address.empty())
            object.add("link", quoted(target.address));
        else if (isLinkedBookmark(target.bookmark))
            object.add("link", quoted(u"#" + target.bookmark));
    }

    static std::string font(const FontChange& change)
    {
        List object;
        const auto add = [&object](std::string_view name, std::optional<bool> value) {
            if (value)
                object.add(name, *value ? "true" : "false");
        };
        if (change.name)
            object.add("name", quoted(*change.name));
        if (change.size)
            object.add("size", std::to_string(*change.size));
        add("bold", change.isBold);
        add("italic", change.isItalic);
        add("underlined", change.isUnderlined);
        add("struck", change.isStruck);
        return object.asObject();
    }

    const RandomContent& content_;
    TestStyles styles_;
};

std::string asJson(const RandomContent& content)
{
    TestStyles styles;
    List object;
    object.add("rtf",
               quotedAscii(fragmentOf(content.blocks, {styles, content.links, isLinkedBookmark, 432})));
    object.add("blocks", Description(content).blocks());
    return object.asObject();
}

} // namespace
} // namespace compose

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    const auto first = static_cast<std::uint32_t>(std::atoi(argv[1]));
    const auto count = static_cast<std::uint32_t>(std::atoi(argv[2]));
    for (std::uint32_t seed = first; seed < first + count; ++seed) {
        std::mt19937 numbers(seed);
        const auto below = [&numbers](std::size_t limit) { return numbers() % limit; };
        std::cout << compose::asJson(compose::makeContent(below)) << '\n';
    }
    return 0;
}
