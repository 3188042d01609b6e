#include "ReferenceStory.h"

#include "ReferenceStyles.h"

#include <algorithm>
#include <array>

namespace reference {

namespace {

constexpr std::u16string_view normal = u"Normal";
constexpr char16_t paragraphEnd = u'\r';

/// Each CR LF, CR and LF as one CR.
std::u16string withSingleEnds(std::u16string_view text)
{
    std::u16string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
            ++i;
        result += text[i] == u'\n' ? paragraphEnd : text[i];
    }
    return result;
}

/// Each run of paragraph ends as one space.
std::u16string asEntry(std::u16string_view collected)
{
    std::u16string entry;
    for (std::size_t i = 0; i < collected.size(); ++i)
        if (collected[i] != paragraphEnd)
            entry += collected[i];
        else if (i == 0 || collected[i - 1] != paragraphEnd)
            entry += u' ';
    return entry;
}

Alignment alignmentOf(const Paragraph& paragraph)
{
    if (!paragraph.alignment)
        return findStyle(paragraph.style)->alignment;
    switch (*paragraph.alignment) {
    case textAlign::centred:
        return Alignment::centre;
    case textAlign::right:
        return Alignment::right;
    case textAlign::justified:
        return Alignment::justified;
    default:
        return Alignment::left;
    }
}

std::vector<Paragraph> paragraphsOf(const SessionFile& file)
{
    const bool saysFormat = file.kind == SessionFile::Kind::formatted;
    std::vector<Paragraph> paragraphs;
    for (const FileParagraph& each : file.paragraphs) {
        Paragraph& paragraph = paragraphs.emplace_back();
        paragraph.style = each.style;
        paragraph.alignment = each.alignment;
        paragraph.isFromFile = true;
        paragraph.isFormatOpen = !saysFormat;
        for (const FileRun& run : each.runs) {
            for (const char16_t character : run.text) {
                Item& item = paragraph.items.emplace_back();
                item.token.character = character;
                if (saysFormat)
                    item.token.font = run.font;
            }
        }
    }
    return paragraphs;
}

/// Lays a story's paragraphs end to end.
class Flattener
{
public:
    /// The format of an empty one may be left open.
    void add(const Paragraph& paragraph, TokenKind end, bool isInTable, bool isOpenWhenEmpty = false)
    {
        const Font& styleFont = findStyle(paragraph.style)->font;
        for (const Item& item : paragraph.items) {
            if (!item.tag.empty()) {
                result.tags[item.tag] = result.content.tokens.size();
                continue;
            }
            Token token = item.token;
            token.isInTable = isInTable;
            if (token.font && token.font->size == 0)
                token.font->size = styleFont.size;
            token.isFromFile = paragraph.isFromFile;
            push(std::move(token), item.link);
        }
        Token token;
        token.kind = end;
        token.style = paragraph.style;
        token.alignment = alignmentOf(paragraph);
        token.isInTable = isInTable;
        token.isFormatOpen = paragraph.isFormatOpen || (isOpenWhenEmpty && !paragraph.holdsAnything());
        token.isFromFile = paragraph.isFromFile;
        push(std::move(token), paragraph.endLink);
    }

    void add(const Table& table)
    {
        for (const Row& row : table) {
            for (const Cell& cell : row)
                for (const Paragraph& paragraph : cell) {
                    const bool isLast = &paragraph == &cell.back();
                    add(paragraph, isLast ? TokenKind::cellEnd : TokenKind::paragraphEnd, true,
                        isLast && paragraph.isBehindFile);
                }
            Token end;
            end.kind = TokenKind::rowEnd;
            end.isInTable = true;
            push(std::move(end), {});
        }
    }

    ReferenceStory::Flattened result;

private:
    void push(Token token, const std::optional<RequestedLink>& link)
    {
        result.content.tokens.push_back(std::move(token));
        result.links.push_back(link);
    }
};

} // namespace

bool Paragraph::holdsAnything() const
{
    return std::any_of(items.begin(), items.end(), [](const Item& item) { return item.tag.empty(); });
}

ReferenceStory::ReferenceStory(std::u16string_view style)
{
    beginStyle(std::u16string(style));
}

void ReferenceStory::write(Item item)
{
    Paragraph& paragraph = current();
    if (!isTableOpen()) {
        if (!paragraph.holdsAnything()) {
            paragraph.style = findStyle(style_)->name;
            paragraph.alignment = alignment_;
        }
        styleIsFresh_ = false;
    }
    paragraph.items.push_back(std::move(item));
}

void ReferenceStory::endParagraph(const std::optional<RequestedLink>& link)
{
    Paragraph& paragraph = current();
    paragraph.endLink = link;
    collect({&paragraphEnd, 1});
    if (isTableOpen()) {
        Paragraph next;
        next.alignment = alignment_;
        cell().push_back(std::move(next));
        return;
    }
    if (!paragraph.holdsAnything()) {
        paragraph.style = styleIsFresh_ ? normal : findStyle(style_)->name;
        paragraph.alignment = alignment_;
    }
    blocks_.emplace_back(Paragraph());
}

void ReferenceStory::endParagraphIfItHoldsAnything()
{
    if (outside().holdsAnything())
        endParagraph();
}

void ReferenceStory::insertText(std::u16string_view text, std::optional<RequestedLink> link)
{
    if (link)
        link->begins = true;
    const auto characters = withSingleEnds(text);
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const char16_t character = characters[i];
        if (character == paragraphEnd) {
            endParagraph(i + 1 < characters.size() ? link
                                                   : std::nullopt); // a link ends in front of the last one
        } else {
            Item item;
            item.token.character = character;
            item.token.font = font_;
            item.link = link;
            write(std::move(item));
            collect({&character, 1});
        }
        if (link)
            link->begins = false;
    }
}

void ReferenceStory::insertEndl()
{
    endParagraph();
}

void ReferenceStory::writeToken(TokenKind kind, const std::u16string& text, const std::u16string& target)
{
    Item item;
    item.token.kind = kind;
    item.token.text = text;
    if (!target.empty())
        item.link = RequestedLink{target, true};
    write(std::move(item));
}

void ReferenceStory::insertPageBreak()
{
    if (isTableOpen())
        return;
    for (Block& block : blocks_)
        if (auto* paragraph = std::get_if<Paragraph>(&block))
            for (Item& item : paragraph->items)
                item.isLastBreak = false;
    writeToken(TokenKind::pageBreak, {});
    outside().items.back().isLastBreak = true;
}

void ReferenceStory::insertField(int kind)
{
    static const std::array<std::u16string, 4> keywords = {u"DATE", u"TIME", u"FILENAME", u"PAGE"};
    writeToken(TokenKind::field, keywords.at(static_cast<std::size_t>(kind - 1)));
    current().items.back().token.font = font_;
}

void ReferenceStory::insertImage(std::u16string_view look, const std::u16string& target)
{
    writeToken(TokenKind::picture, std::u16string(look), target);
}

void ReferenceStory::insertObject(bool isLinked)
{
    writeToken(TokenKind::object, isLinked ? u"linked" : u"embedded");
}

void ReferenceStory::insertNothing()
{
    if (current().holdsAnything())
        endParagraph();
}

void ReferenceStory::insertContent(const SessionFile& file, bool isEndLost)
{
    insertNothing();
    std::vector<Paragraph> content = paragraphsOf(file);
    if (isEndLost && file.kind == SessionFile::Kind::formatted)
        content.back().isFormatOpen = true;
    Paragraph& behind = current();
    // Tags: their place is now the file's beginning.
    std::vector<Item>& first = content.front().items;
    first.insert(first.begin(), behind.items.begin(), behind.items.end());
    behind.items.clear();
    behind.isBehindFile = true;
    if (isTableOpen())
        cell().insert(cell().end() - 1, content.begin(), content.end());
    else
        blocks_.insert(blocks_.end() - 1, content.begin(), content.end());
}

void ReferenceStory::insertTag(const std::u16string& name)
{
    Item item;
    item.tag = name;
    current().items.push_back(std::move(item));
}

void ReferenceStory::removeTag(std::u16string_view name)
{
    const auto removeFrom = [name](Paragraph& paragraph) {
        std::erase_if(paragraph.items, [name](const Item& item) { return item.tag == name; });
    };
    for (Block& block : blocks_) {
        if (auto* paragraph = std::get_if<Paragraph>(&block)) {
            removeFrom(*paragraph);
            continue;
        }
        for (Row& row : std::get<Table>(block))
            for (Cell& each : row)
                std::for_each(each.begin(), each.end(), removeFrom);
    }
}

void ReferenceStory::beginStyle(const std::u16string& name)
{
    style_ = name;
    styleIsFresh_ = name != normal;
    font_ = findStyle(name)->font;
}

void ReferenceStory::setStyle(const std::u16string& name)
{
    if (name == style_)
        return;
    if (!isTableOpen())
        endParagraphIfItHoldsAnything();
    if (findStyle(name))
        beginStyle(name);
}

void ReferenceStory::setFontName(const std::u16string& name)
{
    font_ = Font{name};
}

void ReferenceStory::setFontSize(int size)
{
    font_.size = size;
}

void ReferenceStory::setFontAttribute(int attribute, bool isOn)
{
    if (attribute == 1)
        font_.isBold = isOn;
    else if (attribute == 2)
        font_.isItalic = isOn;
    else if (attribute == 4)
        font_.isUnderlined = isOn;
    else if (attribute == 8)
        font_.isStruck = isOn;
}

void ReferenceStory::setTextAlign(int number)
{
    if (number == alignmentNumber_)
        return;
    if (!isTableOpen())
        endParagraphIfItHoldsAnything();
    alignmentNumber_ = number;
    alignment_ = number;
    if (!isTableOpen())
        return;
    cell().back().alignment = number;
    Row& row = table().back();
    for (std::size_t behind = cell_ + 1; behind < row.size(); ++behind)
        row[behind].back().alignment = number;
}

void ReferenceStory::startTable()
{
    if (isTableOpen())
        return;
    endParagraphIfItHoldsAnything();
    Paragraph inFront = std::move(outside());
    blocks_.pop_back();
    Paragraph first;
    if (!blocks_.empty() && std::holds_alternative<Table>(blocks_.back())) {
        inFront.style = normal;
        inFront.isFormatOpen = true;
        blocks_.emplace_back(std::move(inFront));
    } else {
        first.items = std::move(inFront.items); // tags: their place is now the table's beginning
    }
    beginStyle(std::u16string(normal));
    alignmentNumber_ = 0;
    alignment_.reset();
    blocks_.emplace_back(Table{Row{Cell{std::move(first)}}});
    blocks_.emplace_back(Paragraph());
    isTableOpen_ = true;
    rowsBegun_ = cellsBegun_ = cell_ = 0;
}

void ReferenceStory::addRow()
{
    if (!isTableOpen() || (rowsBegun_ == 1 && cellsBegun_ == 0))
        return;
    ++rowsBegun_;
    if (rowsBegun_ > 1) {
        Paragraph empty;
        empty.alignment = alignment_;
        table().push_back(Row(table().front().size(), Cell{empty}));
    }
    cellsBegun_ = cell_ = 0;
}

void ReferenceStory::addCell()
{
    if (!isTableOpen() || rowsBegun_ == 0)
        return;
    ++cellsBegun_;
    Row& row = table().back();
    if (rowsBegun_ == 1 && cellsBegun_ > 1) {
        Paragraph empty;
        empty.alignment = alignment_;
        row.push_back(Cell{empty});
    }
    cell_ = std::min(cellsBegun_, row.size()) - 1;
}

void ReferenceStory::endTable()
{
    if (!isTableOpen())
        return;
    isTableOpen_ = false;
    beginStyle(std::u16string(normal));
    alignmentNumber_ = 0;
    alignment_.reset();
}

bool ReferenceStory::removeContents()
{
    std::size_t removed = 0;
    for (Block& block : blocks_)
        if (auto* paragraph = std::get_if<Paragraph>(&block))
            removed += std::erase_if(paragraph->items,
                                     [](const Item& item) { return item.token.kind == TokenKind::contents; });
    return removed > 0;
}

void ReferenceStory::insertTOC(const std::u16string& title, const std::u16string& titleStyle)
{
    if (isTableOpen())
        return;
    const std::u16string style = style_;
    const Font font = font_;
    const std::optional<int> alignment = alignment_;
    removeContents();
    endParagraphIfItHoldsAnything();
    beginStyle(titleStyle.empty() ? std::u16string(normal) : titleStyle);
    if (!title.empty()) {
        alignment_ = titleStyle.empty() ? std::optional(textAlign::centred) : std::nullopt;
        insertText(title);
        endParagraph();
        if (titleStyle.empty())
            endParagraph();
    }
    beginStyle(std::u16string(normal));
    alignment_ = alignment;
    writeToken(TokenKind::contents, {});
    endParagraph();
    beginStyle(style);
    font_ = font;
    hasContents_ = true;
}

void ReferenceStory::collect(std::u16string_view text)
{
    if (isCollecting_)
        entry_ += text;
}

void ReferenceStory::startTOCEntry()
{
    if (!hasContents_)
        return;
    isCollecting_ = true;
    entry_.clear();
}

void ReferenceStory::endTOCEntry()
{
    if (!isCollecting_)
        return;
    isCollecting_ = false;
    if (entry_.empty())
        return;
    writeToken(TokenKind::entry, asEntry(entry_));
    current().items.back().token.level = std::clamp(headingNumber(style_), 1, 9);
}

bool ReferenceStory::breakSection()
{
    for (std::size_t index = 0; index < blocks_.size(); ++index) {
        auto* paragraph = std::get_if<Paragraph>(&blocks_[index]);
        if (!paragraph)
            continue;
        const auto found = std::find_if(paragraph->items.begin(), paragraph->items.end(),
                                        [](const Item& item) { return item.isLastBreak; });
        if (found == paragraph->items.end())
            continue;
        Paragraph behind = *paragraph;
        behind.items.assign(std::next(found), paragraph->items.end());
        paragraph->items.erase(found, paragraph->items.end());
        paragraph->end = TokenKind::sectionEnd;
        paragraph->endLink.reset();
        blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(index) + 1, std::move(behind));
        return true;
    }
    return false;
}

ReferenceStory::Flattened ReferenceStory::flatten() const
{
    Flattener flattener;
    for (const Block& block : blocks_)
        if (const auto* paragraph = std::get_if<Paragraph>(&block))
            flattener.add(*paragraph, paragraph->end, false, &block == &blocks_.back());
        else
            flattener.add(std::get<Table>(block));
    return std::move(flattener.result);
}

} // namespace reference
