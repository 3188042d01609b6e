#include "ContentReading.h"

#include <utility>

using namespace compose;

namespace {

class Reader
{
public:
    Reader(const std::vector<LinkTarget>& links, SampleStyles& styles) : links_(links), styles_(styles) {}

    void read(const Paragraph& paragraph, const std::string& end)
    {
        for (const Item& item : paragraph.items)
            std::visit([&](const auto& what) { read(what, item, paragraph); }, item.what);
        add(end + lookOf(paragraph), paragraph.endLink);
    }

    void read(const Table& table)
    {
        for (std::size_t row = 0; row < table.rows.size(); ++row) {
            for (const Cell& cell : table.rows[row])
                for (const Paragraph& paragraph : cell)
                    read(paragraph, &paragraph == &cell.back() ? "cell" : "end");
            add("row " + std::to_string(table.heights[row]), noLink);
        }
    }

    StoryReading result;

private:
    void read(const Text& text, const Item& item, const Paragraph& paragraph)
    {
        const std::string font = printable(wishedFont(item.font.get(), paragraph.style, styles_));
        for (const char16_t unit : text.characters)
            add("'" + printable(std::u16string_view(&unit, 1)) + "' " + font, item.link);
    }
    void read(const PageBreak&, const Item& item, const Paragraph&) { add("page break", item.link); }
    void read(const Field& field, const Item& item, const Paragraph& paragraph)
    {
        if (field.number == pictureNumber)
            return add("picture", noLink);
        const std::string font = printable(wishedFont(item.font.get(), paragraph.style, styles_));
        add("field " + std::to_string(field.number) + " " + font, item.link);
    }
    void read(const Entry& entry, const Item&, const Paragraph&)
    {
        add("entry " + std::to_string(entry.level) + " " + printable(entry.text), noLink);
    }
    void read(const Tag& tag, const Item&, const Paragraph&)
    {
        result.tags[tag.bookmark] = result.tokens.size();
    }
    void read(const Picture&, const Item& item, const Paragraph&) { add("picture", item.link); }
    void read(const Contents&, const Item&, const Paragraph&) { add("contents", noLink); }

    std::string lookOf(const Paragraph& paragraph)
    {
        const int alignment = paragraph.alignment.value_or(0);
        int look = styles_.alignmentOf(paragraph.style);
        if (paragraph.alignment)
            look = alignment == 2 ? 1 : alignment == 3 ? 2 : alignment == 4 ? 3 : 0;
        return " " + printable(paragraph.style) + " " + std::to_string(look);
    }

    void add(std::string token, LinkNumber link)
    {
        if (link != noLink && links_[static_cast<std::size_t>(link)].bookmark != missingBookmark) {
            const LinkTarget& target = links_[static_cast<std::size_t>(link)];
            token += link == linkBefore_ ? " in " : " begins ";
            token += printable(target.address) + "#" + printable(target.bookmark);
        }
        linkBefore_ = link;
        result.tokens.push_back(std::move(token));
    }

    const std::vector<LinkTarget>& links_;
    SampleStyles& styles_;
    LinkNumber linkBefore_ = noLink;
};

} // namespace

Font wishedFont(const FontWish* wish, const std::u16string& paragraphStyle, SampleStyles& styles)
{
    if (!wish)
        return styles.fontOf(paragraphStyle);
    Font font = styles.fontOf(wish->style);
    if (wish->name)
        font.name = *wish->name;
    if (wish->size)
        font.size = *wish->size == 0 ? styles.fontOf(paragraphStyle).size : static_cast<float>(*wish->size);
    font.isBold = wish->isBold.value_or(font.isBold);
    font.isItalic = wish->isItalic.value_or(font.isItalic);
    font.isUnderlined = wish->isUnderlined.value_or(font.isUnderlined);
    font.isStruck = wish->isStruck.value_or(font.isStruck);
    return font;
}

StoryReading readingOf(const Blocks& blocks, const std::vector<LinkTarget>& links, SampleStyles& styles)
{
    Reader reader(links, styles);
    for (const Block& block : blocks)
        if (const auto* const paragraph = std::get_if<Paragraph>(&block))
            reader.read(*paragraph, paragraph->end == ParagraphEnd::section ? "section" : "end");
        else
            reader.read(std::get<Table>(block));
    const auto& last = std::get<Paragraph>(blocks.back());
    if (!last.holdsAnything() && !last.isSettled)
        reader.result.tokens.back() = StoryReading::anyEnd;
    return std::move(reader.result);
}
