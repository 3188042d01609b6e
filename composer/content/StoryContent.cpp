#include "StoryContent.h"

#include <algorithm>
#include <utility>

namespace compose {

namespace {

constexpr std::u16string_view normal = u"Normal";
constexpr int centred = 2;

/// What an item and a paragraph take up beside their characters, roughly.
constexpr std::size_t itemSize = sizeof(Item);
constexpr std::size_t paragraphSize = sizeof(Paragraph) + sizeof(Block);

bool endsParagraph(char16_t unit)
{
    return unit == u'\r' || unit == u'\n';
}

/// What Word takes as text, and keeps as one character.
bool isPlain(char16_t unit)
{
    constexpr char16_t nonBreakingHyphen = 30;
    constexpr char16_t optionalHyphen = 31;
    return unit >= u' ' || unit == u'\t' || unit == u'\v' || unit == nonBreakingHyphen ||
           unit == optionalHyphen;
}

template <class What>
bool holds(const Item& item)
{
    return std::holds_alternative<What>(item.what);
}

bool isSameFont(const FontWishPtr& a, const FontWishPtr& b)
{
    return a == b || (a && b && *a == *b);
}

} // namespace

StoryContent::StoryContent(std::u16string_view style)
{
    beginStyle(style, style);
}

void StoryContent::write(Item item)
{
    settleParagraph();
    current().items.push_back(std::move(item));
    addWaiting(itemSize);
}

// In a cell the paragraphs are plain, whatever style gives the font.
void StoryContent::settleParagraph()
{
    if (isTableOpen_)
        return;
    Paragraph& paragraph = outside();
    if (!paragraph.holdsAnything()) {
        paragraph.style = style_;
        paragraph.alignment = alignment_;
        paragraph.isSettled = true;
        paragraph.isAligned = false;
    }
    isStyleFresh_ = false;
}

void StoryContent::objectWritten()
{
    current().holdsWritten = true;
    current().tagsAtEnd.clear();
    current().endsInEntry = false;
    holdsBehindBreak_ = true;
}

bool StoryContent::takesKeptPicture() const
{
    return isTableOpen_ ? table().writtenRows == 0 : !outside().holdsWritten;
}

void StoryContent::addKeptPicture(const KeptPicturePtr& picture, const LinkTarget* target)
{
    write({Picture{true, picture}, {}, target ? addLink(*target) : noLink});
    addWaiting(picture->file.size());
}

bool StoryContent::takesPictureIntoTable() const
{
    return isTableOpen_ && table().writtenRows == 0 && table().rows.back()[column_].size() == 1;
}

void StoryContent::addPicture()
{
    write({Picture()});
}

void StoryContent::pictureWritten(const LinkTarget* target)
{
    Item& item = current().items.back();
    std::get<Picture>(item.what).isThere = true;
    if (target)
        item.link = addLink(*target);
}

void StoryContent::dropPicture()
{
    current().items.pop_back();
}

void StoryContent::prepareFile()
{
    if (current().holdsAnything())
        endParagraph();
}

void StoryContent::fileWritten(bool endsInTable)
{
    current().tagsAtEnd.clear();
    if (!isTableOpen_)
        isBehindTable_ = endsInTable;
}

// A link ends in front of a paragraph end behind which nothing of it comes, and so never in a table that
// follows.
void StoryContent::insertText(std::u16string_view text, const LinkTarget* target)
{
    LinkNumber link = noLink;
    if (target && !text.empty())
        link = addLink(*target);
    while (!text.empty()) {
        const auto end = std::ranges::find_if(text, endsParagraph);
        const auto length = static_cast<std::size_t>(end - text.begin());
        writeCharacters(text.substr(0, length), link);
        text.remove_prefix(length);
        if (!text.empty()) {
            text.remove_prefix(text.starts_with(u"\r\n") ? 2 : 1);
            endParagraph(text.empty() ? noLink : link);
        }
    }
}

LinkNumber StoryContent::addLink(const LinkTarget& target)
{
    links_.push_back(target);
    addWaiting(sizeof(LinkTarget) + 2 * (target.address.size() + target.bookmark.size()));
    return static_cast<LinkNumber>(links_.size()) - 1;
}

void StoryContent::writeCharacters(std::u16string_view characters, LinkNumber link)
{
    while (!characters.empty()) {
        const bool breaksPage = characters.front() == u'\f' && !isTableOpen_;
        if (breaksPage) {
            write({PageBreak(), {}, link});
            entry_.add(u" ");
            characters.remove_prefix(1);
            continue;
        }
        const std::size_t length = std::min(characters.find(u'\f', 1), characters.size());
        std::u16string plain(characters.substr(0, length));
        std::ranges::replace_if(
            plain, [](char16_t unit) { return !isPlain(unit); }, u' ');
        entry_.add(plain);
        addWaiting(plain.size() * sizeof(char16_t));
        std::vector<Item>& items = current().items;
        Text* const last = items.empty() ? nullptr : std::get_if<Text>(&items.back().what);
        if (last && items.back().link == link && isSameFont(items.back().font, font_))
            last->characters += plain;
        else
            write({Text{std::move(plain)}, font_, link});
        characters.remove_prefix(length);
    }
}

void StoryContent::insertEndl()
{
    endParagraph();
}

void StoryContent::endParagraph(LinkNumber link)
{
    Paragraph& paragraph = current();
    paragraph.endLink = link;
    entry_.add(u"\r");
    addWaiting(paragraphSize);
    if (isTableOpen_) {
        Paragraph next;
        next.alignment = alignment_;
        cell().push_back(std::move(next));
        return;
    }
    if (!paragraph.holdsAnything()) {
        paragraph.style = isStyleFresh_ ? normal : style_;
        paragraph.alignment = alignment_;
    }
    blocks_.emplace_back(Paragraph());
    isBehindTable_ = false;
}

void StoryContent::endParagraphIfItHoldsAnything()
{
    if (outside().holdsAnything())
        endParagraph();
}

bool StoryContent::insertPageBreak()
{
    if (isTableOpen_)
        return false;
    if (lastBreak_ == LastBreak::waiting) {
        std::vector<Item>& items = std::get<Paragraph>(blocks_[lastBreakBlock_]).items;
        const auto breakBefore = std::ranges::find_if(items.rbegin(), items.rend(), isLastBreak);
        std::get<PageBreak>(breakBefore->what).isLast = false;
    }
    isBreakBehindEntry_ = outside().endsInAnyEntry();
    write({PageBreak{.isLast = true}});
    lastBreak_ = LastBreak::waiting;
    lastBreakBlock_ = blocks_.size() - 1;
    return true;
}

void StoryContent::insertField(int number)
{
    write({Field{number}, font_});
}

void StoryContent::insertTag(const std::u16string& bookmark)
{
    current().items.push_back({Tag{bookmark, waitingTags_.place(bookmark)}});
    addWaiting(itemSize);
}

void StoryContent::removeTag(std::u16string_view bookmark)
{
    waitingTags_.remove(bookmark);
}

const Blocks& StoryContent::blocks()
{
    waitingTags_.dropStale(blocks_);
    return blocks_;
}

void StoryContent::beginStyle(std::u16string_view name, std::u16string_view style)
{
    styleName_ = name;
    style_ = style;
    isStyleFresh_ = name != normal;
    changeFont({.style = style_});
}

void StoryContent::prepareStyle()
{
    if (!isTableOpen_)
        endParagraphIfItHoldsAnything();
}

void StoryContent::setStyle(std::u16string_view name, std::u16string_view style)
{
    beginStyle(name, style);
}

void StoryContent::changeFont(FontWish font)
{
    font_ = std::make_shared<const FontWish>(std::move(font));
}

// A face alone was said: everything else is as in a font that nobody has changed.
void StoryContent::setFontName(std::u16string_view name)
{
    changeFont({.style = style_,
                .name = std::u16string(name),
                .size = 0,
                .isBold = false,
                .isItalic = false,
                .isUnderlined = false,
                .isStruck = false});
}

void StoryContent::setFontSize(int points)
{
    FontWish font = *font_;
    font.size = points;
    changeFont(std::move(font));
}

void StoryContent::setFontAttribute(int attribute, bool isOn)
{
    FontWish font = *font_;
    switch (attribute) {
    case 1:
        font.isBold = isOn;
        break;
    case 2:
        font.isItalic = isOn;
        break;
    case 4:
        font.isUnderlined = isOn;
        break;
    case 8:
        font.isStruck = isOn;
        break;
    default:
        return;
    }
    changeFont(std::move(font));
}

// In a table the paragraph in hand is aligned too, and the cells behind it in its row.
void StoryContent::setTextAlign(int number)
{
    if (number == alignmentNumber_)
        return;
    if (!isTableOpen_)
        endParagraphIfItHoldsAnything();
    alignmentNumber_ = number;
    alignment_ = number;
    if (!isTableOpen_)
        return;
    Row& row = table().rows.back();
    for (std::size_t column = column_; column < row.size(); ++column) {
        row[column].back().alignment = number;
        row[column].back().isAligned = false;
    }
}

// Word makes one table of two that touch, so a paragraph keeps them apart. Tags in front of a table move into
// its first cell: so they stay in front of what the client wrote behind them.
bool StoryContent::startTable()
{
    if (isTableOpen_)
        return false;
    endParagraphIfItHoldsAnything();
    beginStyle(normal, normal);
    const bool isBehindTable =
        blocks_.size() == 1 ? isBehindTable_ : std::holds_alternative<Table>(blocks_[blocks_.size() - 2]);
    // All memory first: there is always an open paragraph behind the table, or nothing can go on.
    Table made{.rows = {Row{Cell{Paragraph()}}}, .heights = {0}};
    if (blocks_.capacity() - blocks_.size() < 2)
        blocks_.reserve(2 * blocks_.size() + 2);
    Paragraph& inFront = outside();
    if (isBehindTable) {
        inFront.style = normal;
        inFront.alignment.reset();
        blocks_.emplace_back(std::move(made));
    } else {
        made.rows.front().front().front().items = std::move(inFront.items);
        blocks_.back() = std::move(made);
    }
    blocks_.emplace_back(Paragraph());
    alignmentNumber_ = 0;
    alignment_.reset();
    waitingInFront_ = waiting_;
    addWaiting(2 * paragraphSize);
    isBehindTable_ = false;
    isTableOpen_ = true;
    rowsBegun_ = cellsBegun_ = column_ = 0;
    rowHeight_ = 0;
    return true;
}

bool StoryContent::addRow()
{
    if (!isTableOpen_ || (rowsBegun_ == 1 && cellsBegun_ == 0))
        return false;
    if (rowsBegun_ > 0) {
        Paragraph empty;
        empty.alignment = alignment_;
        Table& open = table();
        open.heights.resize(open.rows.size() + 1); // without a row for it, it is the next one's
        open.rows.push_back(Row(open.columns(), Cell{empty}));
        open.heights.back() = rowHeight_;
        addWaiting(open.columns() * paragraphSize);
    }
    ++rowsBegun_;
    cellsBegun_ = column_ = 0;
    return true;
}

// Cells beyond those of the first row are its last one.
bool StoryContent::addCell()
{
    if (!isTableOpen_ || rowsBegun_ == 0)
        return false;
    ++cellsBegun_;
    Row& row = table().rows.back();
    if (rowsBegun_ == 1 && cellsBegun_ > 1) {
        Paragraph empty;
        empty.alignment = alignment_;
        row.push_back(Cell{empty});
        addWaiting(paragraphSize);
    }
    column_ = std::min(cellsBegun_, row.size()) - 1;
    return true;
}

bool StoryContent::endTable()
{
    if (!isTableOpen_)
        return false;
    isTableOpen_ = false;
    beginStyle(normal, normal);
    alignmentNumber_ = 0;
    alignment_.reset();
    return true;
}

bool StoryContent::setTableRowHeight(int points)
{
    if (!isTableOpen_ || rowsBegun_ == 0)
        return false;
    rowHeight_ = points;
    table().heights.back() = points;
    isHeightWaiting_ = true;
    return true;
}

StoryContent::CellPlace StoryContent::currentCell() const
{
    const std::size_t before = table().writtenRows == 0 ? 0 : table().writtenRows - 1;
    return {before + table().rows.size() - 1, column_};
}

bool StoryContent::insertTOC(std::u16string_view title, std::u16string_view titleStyle)
{
    if (isTableOpen_)
        return false;
    const std::u16string styleName = styleName_;
    const std::u16string style = style_;
    const FontWishPtr font = font_;
    const std::optional<int> alignment = alignment_;
    for (Block& block : blocks_)
        if (auto* const paragraph = std::get_if<Paragraph>(&block))
            std::erase_if(paragraph->items, holds<Contents>);
    endParagraphIfItHoldsAnything();
    if (!title.empty())
        writeTitle(title, titleStyle);
    beginStyle(normal, normal);
    alignment_ = alignment;
    write({Contents()});
    endParagraph();
    beginStyle(styleName, style);
    font_ = font;
    hasContents_ = true;
    return std::exchange(isContentsWritten_, false);
}

/// A style says itself how its paragraphs are aligned, and how far they are from others.
void StoryContent::writeTitle(std::u16string_view title, std::u16string_view style)
{
    const std::u16string_view used = style.empty() ? normal : style;
    beginStyle(used, used);
    alignment_ = style.empty() ? std::optional(centred) : std::nullopt;
    insertText(title);
    endParagraph();
    if (style.empty())
        endParagraph();
}

bool StoryContent::startTOCEntry()
{
    if (!hasContents_)
        return false;
    entry_.begin();
    return true;
}

bool StoryContent::endTOCEntry()
{
    if (!entry_.isOpen())
        return false;
    if (std::optional<Entry> entry = entry_.end(style_))
        write({std::move(*entry)});
    return true;
}

StoryContent::LastBreak StoryContent::breakSection()
{
    const LastBreak found = std::exchange(lastBreak_, LastBreak::none);
    if (found == LastBreak::written && isBreakInOpenParagraph())
        outside().holdsWritten = holdsBehindBreak_;
    if (found != LastBreak::waiting)
        return found;
    auto& paragraph = std::get<Paragraph>(blocks_[lastBreakBlock_]);
    const auto last = std::ranges::find_if(paragraph.items, isLastBreak);
    Paragraph behind = paragraph;
    behind.items.assign(std::next(last), paragraph.items.end());
    behind.holdsWritten = false;
    behind.endsInEntry = false;
    behind.isSettled = behind.holdsAnything(); // What comes to stand in it settles it anew.
    paragraph.items.erase(last, paragraph.items.end());
    paragraph.end = ParagraphEnd::section;
    paragraph.endLink = noLink;
    blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(lastBreakBlock_) + 1, std::move(behind));
    return found;
}

bool StoryContent::isPending() const
{
    if (blocks_.size() > (isTableOpen_ ? 2U : 1U))
        return true;
    const auto isPendingIn = [](const Paragraph& paragraph) {
        return !paragraph.items.empty() || (paragraph.isSettled && !paragraph.isAligned);
    };
    if (isTableOpen_) {
        const Table& open = table();
        if (open.writtenRows == 0 || open.rows.size() > 1 || open.columns() > open.writtenColumns ||
            isHeightWaiting_)
            return true;
        for (const Cell& each : open.rows.front())
            if (each.size() > 1 || isPendingIn(each.back()) || !each.back().isAligned)
                return true;
        return false;
    }
    return isPendingIn(std::get<Paragraph>(blocks_.back()));
}

bool StoryContent::isBreakInOpenParagraph() const
{
    return isWrittenBreakInFirst_ && !isTableOpen_ && blocks_.size() == 1;
}

/// Follows what comes to stand behind the last page break in its paragraph.
void StoryContent::lookBehindBreak()
{
    const bool isWaiting = lastBreak_ == LastBreak::waiting;
    if (isWaiting) {
        isWrittenBreakInFirst_ = !isTableOpen_ && lastBreakBlock_ == blocks_.size() - 1;
        holdsBehindBreak_ = false;
    } else {
        isWrittenBreakInFirst_ = isBreakInOpenParagraph();
    }
    if (!isWrittenBreakInFirst_)
        return;
    const std::vector<Item>& items = outside().items;
    const auto behind =
        isWaiting ? std::ranges::find_if(items.rbegin(), items.rend(), isLastBreak).base() : items.begin();
    holdsBehindBreak_ = holdsBehindBreak_ || std::any_of(behind, items.end(), isAnything);
}

void StoryContent::keepEnd(Paragraph& paragraph)
{
    const auto last = std::ranges::find_if(paragraph.items.rbegin(), paragraph.items.rend(), isAnything);
    if (last != paragraph.items.rend())
        paragraph.tagsAtEnd.clear();
    paragraph.endsInEntry = paragraph.endsInAnyEntry();
    for (auto item = paragraph.items.rbegin(); item != last; ++item)
        if (const auto* const tag = std::get_if<Tag>(&item->what))
            paragraph.tagsAtEnd.push_back(tag->bookmark);
}

void StoryContent::taken()
{
    lookBehindBreak();
    const auto keepOpen = [](Paragraph& paragraph) {
        keepEnd(paragraph);
        paragraph.holdsWritten = paragraph.holdsAnything();
        paragraph.isAligned = true;
        paragraph.items.clear();
    };
    if (isTableOpen_) {
        Table& open = table();
        open.writtenRows = currentCell().row + 1;
        open.writtenColumns = open.columns();
        open.rows.erase(open.rows.begin(), open.rows.end() - 1);
        open.heights.erase(open.heights.begin(), open.heights.end() - 1);
        for (Cell& each : open.rows.back()) {
            each.erase(each.begin(), each.end() - 1);
            keepOpen(each.back());
        }
        blocks_.erase(blocks_.begin(), blocks_.end() - 2);
    } else {
        if (blocks_.size() > 1)
            isBehindTable_ = std::holds_alternative<Table>(blocks_[blocks_.size() - 2]);
        blocks_.erase(blocks_.begin(), blocks_.end() - 1);
        keepOpen(outside());
    }
    links_.clear();
    waitingTags_.clear();
    waiting_ = waitingInFront_ = 0;
    isHeightWaiting_ = false;
    placesTaken();
}

/// Page breaks and the table of contents stand outside of tables.
void StoryContent::placesTaken()
{
    isContentsWritten_ = hasContents_;
    if (lastBreak_ == LastBreak::waiting)
        lastBreak_ = LastBreak::written;
}

std::span<const Block> StoryContent::blocksInFrontOfTable()
{
    return std::span(blocks()).first(blocks_.size() - 2);
}

// The table's links keep their numbers.
void StoryContent::takenInFrontOfTable()
{
    lookBehindBreak();
    blocks_.erase(blocks_.begin(), blocks_.end() - 2);
    waiting_ -= std::exchange(waitingInFront_, 0);
    placesTaken();
}

} // namespace compose
