#include "RandomContent.h"

#include "SamplePictures.h"
#include "TestStyles.h"

#include <array>
#include <memory>
#include <string>
#include <utility>

namespace compose {

namespace {

constexpr std::u16string_view missing = u"b99";

class Maker
{
public:
    explicit Maker(const std::function<std::size_t(std::size_t)>& below) : below_(below) {}

    RandomContent make()
    {
        const std::size_t count = 1 + below_(8);
        while (content_.blocks.size() < count) {
            if (onceIn(6)) {
                content_.blocks.emplace_back(table());
                content_.blocks.emplace_back(paragraph(true, true));
            } else {
                content_.blocks.emplace_back(paragraph(false, true));
            }
        }
        for (std::size_t link = 0; onceIn(2) && link < 3; ++link)
            spreadLink();
        for (std::size_t picture = 0; !onceIn(3) && picture < 4; ++picture)
            addPicture();
        return std::move(content_);
    }

private:
    bool onceIn(std::size_t count) { return below_(count) == 0; }
    template <class List>
    const auto& oneOf(const List& list)
    {
        return list[below_(list.size())];
    }
    template <class List>
    auto& partOf(List& list)
    {
        return list[below_(list.size())];
    }

    std::u16string text()
    {
        static const std::array<std::u16string, 24> pieces = {u"a",
                                                              u"Stra\u00DFe",
                                                              u" ",
                                                              u"7 ",
                                                              u"-1",
                                                              u"\\par",
                                                              u"{",
                                                              u"}",
                                                              u"}{\\b ",
                                                              u"\t",
                                                              u"\v",
                                                              u"\u20AC",
                                                              u"\u4E2D\u6587",
                                                              u"\U0001F600",
                                                              u"\u00A0",
                                                              u"\u05D0",
                                                              u"\uFFFD",
                                                              u"\"q\"",
                                                              u"'e4",
                                                              u";",
                                                              u"words and words",
                                                              u"*",
                                                              u"\\",
                                                              u"~"};
        std::u16string text;
        for (std::size_t count = below_(4); count > 0; --count)
            text += oneOf(pieces);
        return text;
    }

    std::u16string entryText()
    {
        static const std::array<std::u16string, 3> ends = {u"", u"\r", u"x\r\ny"};
        std::u16string entry = text() + oneOf(ends);
        std::erase(entry, u'\v');
        return entry;
    }

    FontWishPtr font()
    {
        static const std::array<std::u16string, 6> names = {u"Arial",       u"Times New Roman",
                                                            u"Courier New", u"Verdana",
                                                            u"Georgia",     u"\uFF2D\uFF33 \u660E\u671D"};
        static const std::array sizes = {0, 8, 9, 10, 12, 14, 16, 20, 37};
        if (onceIn(2))
            return last_;
        FontWish wish{.style = onceIn(2) ? oneOf(TestStyles::all()).name : std::u16string(u"Normal")};
        if (onceIn(3))
            wish.name = oneOf(names);
        if (onceIn(3))
            wish.size = oneOf(sizes);
        for (auto property :
             {&FontWish::isBold, &FontWish::isItalic, &FontWish::isUnderlined, &FontWish::isStruck})
            if (onceIn(3))
                wish.*property = onceIn(2);
        return last_ = onceIn(6) ? nullptr : std::make_shared<const FontWish>(std::move(wish));
    }

    Item item(bool isInCell)
    {
        switch (below_(10)) {
        case 0:
            return {Field{1 + static_cast<int>(below_(4))}, font()};
        case 1:
            return {Entry{entryText(), 1 + static_cast<int>(below_(9))}};
        case 2:
            return {Tag{u"b" + decimal(++tags_)}};
        case 3:
            if (!isInCell)
                return {PageBreak()};
            [[fallthrough]];
        default:
            return {Text{text()}, font()};
        }
    }

    static std::u16string decimal(int number)
    {
        const std::string digits = std::to_string(number);
        return {digits.begin(), digits.end()};
    }

    Paragraph paragraph(bool isBehindTable, bool isInBody)
    {
        Paragraph paragraph{.style = oneOf(TestStyles::all()).name};
        if (onceIn(2))
            paragraph.alignment = static_cast<int>(1 + below_(4));
        if (isBehindTable && onceIn(2))
            return paragraph;
        for (std::size_t count = below_(6); count > 0; --count) {
            paragraph.items.push_back(item(!isInBody));
            if (onceIn(4))
                linkItem(paragraph.items.back());
        }
        return paragraph;
    }

    Table table()
    {
        const std::size_t rows = 1 + below_(3);
        const std::size_t columns = 1 + below_(4);
        Table table{.rows = std::vector<Row>(rows, Row(columns))};
        for (Row& row : table.rows) {
            table.heights.push_back(onceIn(2) ? 0 : static_cast<int>(10 + below_(90)));
            for (Cell& cell : row)
                for (std::size_t count = onceIn(3) ? 1 + below_(3) : 1; count > 0; --count)
                    cell.push_back(paragraph(false, false));
            if (onceIn(3))
                spreadLink(row[below_(columns)]);
        }
        return table;
    }

    LinkNumber newLink()
    {
        static const std::array<LinkTarget, 6> targets = {LinkTarget{u"http://example.com/a?b=1&c=2", u""},
                                                          LinkTarget{u"mailto:x@example.com", u""},
                                                          LinkTarget{u"C:\\Docs\\new file.doc", u""},
                                                          LinkTarget{u"http://example.com/\u00E4{1}", u""},
                                                          LinkTarget{u"", u"b1"},
                                                          LinkTarget{u"", std::u16string(missing)}};
        content_.links.push_back(oneOf(targets));
        return static_cast<LinkNumber>(content_.links.size() - 1);
    }

    void linkItem(Item& item)
    {
        if (std::holds_alternative<Text>(item.what))
            item.link = newLink();
    }

    /// A link over the end of a paragraph, and what stands next to it.
    void spread(Paragraph& before, Paragraph& behind)
    {
        const LinkNumber link = newLink();
        before.endLink = link;
        for (auto last = before.items.rbegin(); last != before.items.rend() && isFreeText(*last); ++last)
            last->link = link;
        for (auto first = behind.items.begin(); first != behind.items.end() && isFreeText(*first); ++first)
            first->link = link;
        if (onceIn(2) && !behind.items.empty() && behind.items.back().link == link)
            behind.endLink = link;
    }

    static bool isFreeText(const Item& item)
    {
        return std::holds_alternative<Text>(item.what) && item.link == noLink;
    }

    void spreadLink()
    {
        const std::size_t index = below_(content_.blocks.size());
        auto* before = std::get_if<Paragraph>(&content_.blocks[index]);
        auto* behind = index + 1 < content_.blocks.size()
                           ? std::get_if<Paragraph>(&content_.blocks[index + 1])
                           : nullptr;
        if (before && behind && before->endLink == noLink)
            spread(*before, *behind);
    }

    void spreadLink(Cell& cell)
    {
        if (cell.size() > 1)
            spread(cell[0], cell[1]);
    }

    static KeptPicturePtr kept(std::string file)
    {
        const std::optional<PictureForm> form = pictureForm(file);
        return std::make_shared<const KeptPicture>(KeptPicture{form.value(), std::move(file), u""});
    }

    void addPicture()
    {
        Block& block = partOf(content_.blocks);
        if (auto* const table = std::get_if<Table>(&block))
            addPicture(partOf(partOf(partOf(table->rows))));
        else
            addPicture(std::get<Paragraph>(block));
    }

    /// Behind anything in it. What one link covers goes on to lie side by side.
    void addPicture(Paragraph& paragraph)
    {
        static const std::array pictures = {kept(sample::png()), kept(sample::jpeg()), kept(sample::emf()),
                                            kept(sample::bmp())};
        std::vector<Item>& items = paragraph.items;
        Item picture{Picture{.isThere = true, .kept = oneOf(pictures)}};
        const std::size_t at = items.empty() ? 0 : 1 + below_(items.size());
        const LinkNumber before = at > 0 ? items[at - 1].link : noLink;
        const LinkNumber behind = at < items.size() ? items[at].link : paragraph.endLink;
        if (before != noLink && before == behind)
            picture.link = before;
        else if (onceIn(2))
            picture.link = newLink();
        items.insert(items.begin() + static_cast<std::ptrdiff_t>(at), std::move(picture));
    }

    const std::function<std::size_t(std::size_t)>& below_;
    RandomContent content_;
    FontWishPtr last_;
    int tags_ = 0;
};

} // namespace

RandomContent makeContent(const std::function<std::size_t(std::size_t)>& below)
{
    return Maker(below).make();
}

bool isLinkedBookmark(const std::u16string& bookmark)
{
    return bookmark != missing;
}

} // namespace compose
