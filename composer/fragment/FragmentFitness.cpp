#include "FragmentFitness.h"

#include "EscapedText.h"
#include "FieldCode.h"
#include "FragmentFont.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace compose {

namespace {

constexpr int largestSize = 1638;   // points, of a font
constexpr int largestHeight = 1584; // points, of a row
constexpr std::size_t mostRows = 32767;
constexpr std::size_t mostColumns = 63;

constexpr bool isControl(char16_t c)
{
    return c < u' ' || c == 0x7F;
}

bool isOneLine(std::u16string_view text)
{
    return std::ranges::none_of(text, isControl) && rtf::isEscapable(text);
}

/// Of a style or a font: RTF's tables end a name with a semicolon.
bool isName(std::u16string_view text)
{
    return !text.empty() && isOneLine(text) && text.find(u';') == text.npos;
}

bool fits(const Entry& entry)
{
    const std::u16string code = entryCode(entry);
    return entry.level >= 1 && entry.level <= 9 && rtf::isEscapable(code) &&
           std::ranges::none_of(code, [](char16_t c) { return isControl(c) && c != u'\t'; });
}

bool fits(const FontWish& wish)
{
    return (!wish.name || (isName(*wish.name) && *wish.name != fragmentFont)) && wish.size.value_or(0) >= 0 &&
           wish.size.value_or(0) <= largestSize;
}

bool holdsContents(const Paragraph& paragraph)
{
    return std::ranges::any_of(paragraph.items,
                               [](const Item& item) { return std::holds_alternative<Contents>(item.what); });
}

class Fitness
{
public:
    Fitness(const std::vector<LinkTarget>& links, const Extent& page) : links_(links), room_(page) {}

    bool operator()(const Paragraph& paragraph) const { return fits(paragraph, false); }
    bool operator()(const Table& table)
    {
        room_.width = cellWidthOn(room_.width, std::max<std::size_t>(table.columns(), 1));
        return table.writtenRows == 0 && !table.rows.empty() && table.rows.size() <= mostRows &&
               table.columns() > 0 && table.columns() <= mostColumns &&
               std::ranges::all_of(table.heights,
                                   [](int height) { return height >= 0 && height <= largestHeight; }) &&
               std::ranges::all_of(table.rows, [this](const Row& row) {
                   return std::ranges::all_of(row, [this](const Cell& cell) { return fits(cell); });
               });
    }

private:
    [[nodiscard]] bool fits(const Cell& cell) const
    {
        return std::ranges::all_of(cell,
                                   [this](const Paragraph& paragraph) { return fits(paragraph, true); });
    }
    [[nodiscard]] bool fits(const Paragraph& paragraph, bool isInCell) const
    {
        return !paragraph.holdsWritten && (!isInCell || paragraph.end == ParagraphEnd::mark) &&
               isName(paragraph.style) && fitsLink(paragraph.endLink) &&
               (!holdsContents(paragraph) || paragraph.items.size() == 1) &&
               std::ranges::all_of(paragraph.items, [&](const Item& item) { return fits(item, isInCell); });
    }
    [[nodiscard]] bool fits(const Item& item, bool isInCell) const
    {
        if ((item.font && !compose::fits(*item.font)) || !fitsLink(item.link))
            return false;
        if (const auto* text = std::get_if<Text>(&item.what))
            return rtf::isEscapable(text->characters) &&
                   !(isInCell && text->characters.find(u'\f') != std::u16string::npos);
        if (const auto* field = std::get_if<Field>(&item.what))
            return !fieldCode(field->number).empty();
        if (const auto* entry = std::get_if<Entry>(&item.what))
            return compose::fits(*entry);
        if (const auto* tag = std::get_if<Tag>(&item.what))
            return !tag->bookmark.empty() && isOneLine(tag->bookmark);
        if (const auto* picture = std::get_if<Picture>(&item.what))
            return picture->kept && fits(extentOf(*picture->kept));
        return (std::holds_alternative<PageBreak>(item.what) ||
                std::holds_alternative<Contents>(item.what)) &&
               !isInCell;
    }
    [[nodiscard]] bool fits(const Extent& picture) const
    {
        return picture.width <= room_.width && picture.height <= room_.height;
    }
    [[nodiscard]] bool fitsLink(LinkNumber number) const
    {
        if (number == noLink)
            return true;
        const LinkTarget& target = links_.at(static_cast<std::size_t>(number));
        return isOneLine(target.address) && isOneLine(target.bookmark);
    }

    const std::vector<LinkTarget>& links_;
    Extent room_; ///< for pictures
};

} // namespace

bool endsFragment(const Block& block)
{
    const auto* const paragraph = std::get_if<Paragraph>(&block);
    return paragraph && (paragraph->end == ParagraphEnd::section || holdsContents(*paragraph));
}

bool fitsFragment(const Block& block, const std::vector<LinkTarget>& links, const Extent& page)
{
    return std::visit(Fitness(links, page), block);
}

} // namespace compose
