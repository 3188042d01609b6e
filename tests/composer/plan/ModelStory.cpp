#include "ModelStory.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace compose;

namespace {

void require(bool condition, const char* what)
{
    if (!condition)
        throw BadOperation(what);
}

void overlay(FontChange& font, const FontChange& change)
{
    const auto take = [](auto& mine, const auto& other) {
        if (other)
            mine = other;
    };
    take(font.name, change.name);
    take(font.size, change.size);
    take(font.isBold, change.isBold);
    take(font.isItalic, change.isItalic);
    take(font.isUnderlined, change.isUnderlined);
    take(font.isStruck, change.isStruck);
}

Font withChange(const Font& font, const FontChange& change)
{
    return {.name = change.name.value_or(font.name),
            .size = change.size.value_or(font.size),
            .isBold = change.isBold.value_or(font.isBold),
            .isItalic = change.isItalic.value_or(font.isItalic),
            .isUnderlined = change.isUnderlined.value_or(font.isUnderlined),
            .isStruck = change.isStruck.value_or(font.isStruck)};
}

bool repeats(const FontChange& change, const Font& font)
{
    return change.name == font.name || change.size == font.size || change.isBold == font.isBold ||
           change.isItalic == font.isItalic || change.isUnderlined == font.isUnderlined ||
           change.isStruck == font.isStruck;
}

} // namespace

ModelStory::ModelStory(SampleStyles& styles, Readings readings, const std::u16string& style)
    : styles_(styles), readings_(readings)
{
    characters_.push_back({.kind = Kind::paragraphEnd, .style = style});
}

bool ModelStory::isEnd(Kind kind)
{
    return kind == Kind::paragraphEnd || kind == Kind::sectionEnd || kind == Kind::cellEnd ||
           kind == Kind::rowEnd;
}

ModelStory::At ModelStory::endOfParagraph(At at) const
{
    while (!endsParagraph(at))
        ++at;
    return at;
}

template <class Move>
void ModelStory::moveLive(Move move)
{
    for (auto& [name, at] : bookmarks_)
        move(at);
    for (std::optional<Live>* const live : {&lastBreak_, &contents_})
        if (*live) {
            move((*live)->start);
            move((*live)->end);
        }
}

template <class Range>
void ModelStory::insert(At at, const Range& characters)
{
    require(at < characters_.size(), "text behind the end of the story");
    characters_.insert(characters_.begin() + static_cast<std::ptrdiff_t>(at), characters.begin(),
                       characters.end());
    moveLive([&](At& live) { live += live > at ? characters.size() : 0; });
}

void ModelStory::erase(At start, At end)
{
    require(start < end && end < characters_.size(), "nothing to remove");
    const auto begin = characters_.begin();
    characters_.erase(begin + static_cast<std::ptrdiff_t>(start), begin + static_cast<std::ptrdiff_t>(end));
    moveLive([&](At& live) { live = live >= end ? live - (end - start) : std::min(live, start); });
}

FontChange ModelStory::fontForInsertion(At at) const
{
    if (!beginsParagraph(at))
        return characters_[at - 1].font;
    if (endsParagraph(at) || readings_.beginningLooksLikeNext || at == 0)
        return characters_[at].font;
    return characters_[at - 1].font;
}

void ModelStory::insertText(At at, const std::u16string& text)
{
    require(at < characters_.size() && characters_[at].kind != Kind::rowEnd, "text in front of a row's end");
    const FontChange font = fontForInsertion(at);
    const Character& paragraph = characters_[endOfParagraph(at)];
    std::vector<Character> inserted;
    for (const char16_t unit : text) {
        Character character{.unit = unit, .font = font};
        if (unit == u'\r') {
            character.kind = Kind::paragraphEnd;
            character.style = paragraph.style;
            character.alignment = paragraph.alignment;
        } else if (unit == u'\f') {
            character.kind = Kind::pageBreak;
        } else {
            require(unit != u'\n' && unit != u'\0', "a character that Word does not keep");
        }
        inserted.push_back(std::move(character));
    }
    insert(at, inserted);
}

void ModelStory::addField(At at, Field field, bool hasResult)
{
    const FontChange font = fontForInsertion(at);
    std::vector<Character> inserted = {{.kind = Kind::fieldBegin, .font = font, .field = fields_.size()},
                                       {.unit = u'c', .font = font}};
    if (hasResult) {
        inserted.push_back({.kind = Kind::fieldSeparator, .font = font, .field = fields_.size()});
        inserted.push_back({.unit = u'r', .font = font});
    }
    inserted.push_back({.kind = Kind::fieldEnd, .font = font, .field = fields_.size()});
    insert(at, inserted);
    fields_.push_back(std::move(field));
    pastField_ = at + inserted.size();
}

ModelStory::At ModelStory::endOfCell(const Passage::Cell& cell) const
{
    std::size_t row = 0;
    std::size_t column = 0;
    for (At at = 0; at < characters_.size(); ++at) {
        const Character& character = characters_[at];
        if (openTable_ == 0 || character.table != openTable_)
            continue;
        if (character.kind == Kind::rowEnd) {
            ++row;
            column = 0;
            continue;
        }
        if (row == cell.row && column == cell.column)
            return at;
        ++column;
    }
    throw BadOperation("a cell that there is not");
}

ModelStory::At ModelStory::baseOf(const std::optional<Passage::Cell>& cell) const
{
    return cell ? endOfCell(*cell) : characters_.size() - 1;
}

ModelStory::At ModelStory::place(Position at) const
{
    require(at >= 0, "a place in front of the passage");
    return base_ + static_cast<At>(at);
}

void ModelStory::carryOut(const Plan& plan)
{
    for (const Passage& passage : plan.passages) {
        require(!passage.operations.empty(), "a passage of nothing");
        const bool extends = std::holds_alternative<ExtendTable>(passage.operations.front());
        base_ = extends ? 0 : baseOf(passage.cell);
        if (passage.drafted)
            base_ = endDraft(*passage.drafted);
        for (const Operation& operation : passage.operations)
            std::visit([&](const auto& each) { perform(each); }, operation);
    }
}

void ModelStory::perform(const WriteText& text)
{
    require(!text.text.empty(), "no text to write");
    insertText(place(text.at), text.text);
}

void ModelStory::perform(const ClearFont& clear)
{
    for (At at = place(clear.span.start); at < place(clear.span.end); ++at)
        characters_.at(at).font = {};
}

void ModelStory::requireWholeParagraphs(At start, At end) const
{
    require(start < end && end <= characters_.size(), "no paragraphs");
    require(endsParagraph(end - 1), "a paragraph's end stays out");
    // What the paragraph holds already may stand in front.
    require(start == base_ || beginsParagraph(start), "a part of a paragraph");
    for (At at = start; at < end; ++at)
        require(characters_[at].kind != Kind::rowEnd, "a row's end");
}

void ModelStory::perform(const PutStyle& style)
{
    const At end = place(style.span.end);
    requireWholeParagraphs(place(style.span.start), end);
    for (At at = place(style.span.start); at < end; ++at) {
        if (!endsParagraph(at))
            continue;
        characters_[at].style = style.style;
        if (!readings_.styleKeepsAlignment)
            characters_[at].alignment.reset();
    }
}

void ModelStory::perform(const PutAlignment& alignment)
{
    const At end = place(alignment.span.end);
    requireWholeParagraphs(place(alignment.span.start), end);
    for (At at = place(alignment.span.start); at < end; ++at)
        if (endsParagraph(at))
            characters_[at].alignment = alignment.alignment;
}

void ModelStory::perform(const PutFont& font)
{
    require(!font.change.isEmpty(), "a font of nothing");
    require(font.span.start < font.span.end, "a font for nothing");
    for (At at = place(font.span.start); at < place(font.span.end); ++at)
        overlay(characters_.at(at).font, font.change);
}

void ModelStory::perform(const MakeTable& table)
{
    require(table.rows > 0 && table.columns > 0, "a table without cells");
    require(table.heights.size() == table.rows, "a height for each row");
    const At start = place(table.span.start);
    At first = start;
    while (first > 0 && characters_[first - 1].kind == Kind::fieldEnd)
        --first; // of a link that covers the paragraph end in front
    require(beginsParagraph(first), "a table in a paragraph");
    require(first == 0 || characters_[first - 1].kind != Kind::rowEnd, "tables that touch");
    ++tables_;
    At at = start;
    for (std::size_t row = 0; row < table.rows; ++row) {
        for (std::size_t column = 0; column < table.columns; ++column) {
            at = endOfParagraph(at);
            require(characters_[at].kind == Kind::paragraphEnd, "a cell of something else than paragraphs");
            characters_[at].kind = Kind::cellEnd;
            characters_[at].table = tables_;
            ++at;
        }
        const At before = at;
        std::vector<std::u16string> behind;
        for (const auto& [name, place] : bookmarks_)
            if (place == before && before == this->place(table.span.end) + row)
                behind.push_back(name);
        insert(
            at,
            std::array{Character{
                .kind = Kind::rowEnd, .style = u"Normal", .table = tables_, .height = table.heights[row]}});
        ++at;
        if (readings_.bookmarkStaysBehindTable)
            for (const std::u16string& name : behind)
                bookmarks_[name] = at;
    }
    require(at == place(table.span.end) + table.rows, "a table of other text");
    require(characters_[at].table == 0, "tables that touch");
    if (table.isLast)
        openTable_ = tables_;
}

void ModelStory::perform(const StyleTables& /*tables*/)
{
    throw BadOperation("a plan knows where its tables are");
}

void ModelStory::perform(const ExtendTable& table)
{
    require(openTable_ != 0, "no table to extend");
    std::size_t rows = 0;
    std::size_t columns = 0;
    for (At at = 0; at < characters_.size(); ++at) {
        if (characters_[at].table != openTable_)
            continue;
        if (characters_[at].kind == Kind::cellEnd) {
            ++columns;
            continue;
        }
        for (; columns < table.columns; ++columns, ++at)
            insert(at, std::array{Character{.kind = Kind::cellEnd, .style = u"Normal", .table = openTable_}});
        columns = 0;
        ++rows;
    }
    require(rows == table.rowsBefore, "other rows than there are");
    require(table.heights.size() == table.rows - table.rowsBefore + 1, "a height for each row");
    for (; rows < table.rows; ++rows) {
        const auto last = std::find_if(characters_.rbegin(), characters_.rend(),
                                       [this](const Character& each) { return each.table == openTable_; });
        const Character cell{.kind = Kind::cellEnd, .style = u"Normal", .table = openTable_};
        std::vector<Character> row(table.columns, cell);
        row.push_back({.kind = Kind::rowEnd, .style = u"Normal", .table = openTable_});
        insert(static_cast<At>(last.base() - characters_.begin()), row);
    }
    putHeights(table.heights, table.rowsBefore - 1);
}

void ModelStory::putHeights(const std::vector<int>& heights, std::size_t firstRow)
{
    std::size_t row = 0;
    for (Character& character : characters_) {
        if (character.kind != Kind::rowEnd || character.table != openTable_)
            continue;
        if (row >= firstRow && row - firstRow < heights.size() && heights[row - firstRow] != 0)
            character.height = heights[row - firstRow];
        ++row;
    }
}

void ModelStory::perform(const AddField& field)
{
    const At at = place(field.at);
    Field added{.text = "field " + std::to_string(field.number), .target = {}};
    if (!field.replacesCharacter)
        return addField(at, std::move(added), true);
    require(characters_.at(at).kind == Kind::character && characters_[at].unit == u'X',
            "a character that is no field's");
    addField(at + 1, std::move(added), true);
    erase(at, at + 1);
    --pastField_;
}

void ModelStory::perform(const AddEntry& entry)
{
    addField(place(entry.at),
             {.text = "entry " + std::to_string(entry.level) + " " + printable(entry.text), .target = {}},
             false);
}

void ModelStory::perform(const AddLink& link)
{
    const At start = place(link.span.start);
    const At end = place(link.span.end);
    require(start < end && end < characters_.size(), "a link of nothing");
    for (At at = start; at < end; ++at) {
        const Kind kind = characters_[at].kind;
        require(kind == Kind::character || kind == Kind::pageBreak || kind == Kind::picture ||
                    kind == Kind::paragraphEnd,
                "a link over more than text");
    }
    const std::size_t number = fields_.size();
    fields_.push_back(
        {.text = {}, .target = printable(link.target.address) + "#" + printable(link.target.bookmark)});
    const FontChange first = characters_[start].font;
    const Character last{.kind = Kind::fieldEnd, .font = characters_[end - 1].font, .field = number};
    insert(end, std::array{last});
    insert(start, std::array{Character{.kind = Kind::fieldBegin, .font = first, .field = number},
                             Character{.unit = u'h', .font = first},
                             Character{.kind = Kind::fieldSeparator, .font = first, .field = number}});
}

void ModelStory::perform(const PlaceTag& tag)
{
    const At at = tag.isBehindField ? pastField_ : place(tag.at);
    require(at < characters_.size(), "a tag behind the end of the story");
    bookmarks_[tag.bookmark] = at;
}

void ModelStory::perform(const AddPicture& picture)
{
    const At at = place(picture.at);
    require(!endsParagraph(at - 1), "a picture without a character in front");
    insert(at, std::array{Character{.kind = Kind::picture, .font = fontForInsertion(at)}});
}

void ModelStory::perform(const RemoveText& removal)
{
    erase(place(removal.span.start), place(removal.span.end));
}

void ModelStory::perform(const BreakSection& section)
{
    const At at = place(section.at);
    require(characters_.at(at).kind == Kind::paragraphEnd, "a section's end in a paragraph");
    Character end = characters_[endOfParagraph(at)];
    end.kind = Kind::sectionEnd;
    insert(at, std::array{end});
    erase(at + 1, at + 2);
}

void ModelStory::perform(const KeepBreak& pageBreak)
{
    const At at = place(pageBreak.at);
    require(characters_.at(at).kind == Kind::pageBreak, "no page break");
    lastBreak_ = Live{at, at + 1};
}

void ModelStory::perform(const KeepContents& contents)
{
    contents_ = Live{place(contents.at), place(contents.at)};
}

void ModelStory::goOnWithDraft(Position length, const std::u16string& text)
{
    const At end = baseOf({});
    if (!draft_)
        draft_ = end;
    require(*draft_ + static_cast<At>(length) == end, "a draft of another length");
    insertText(end, text);
}

ModelStory::At ModelStory::endDraft(Position length)
{
    require(draft_ && *draft_ + static_cast<At>(length) == baseOf({}), "a draft of another length");
    return *std::exchange(draft_, std::nullopt);
}

void ModelStory::addPicture(const std::optional<Passage::Cell>& cell)
{
    const At at = baseOf(cell);
    insert(at, std::array{Character{.kind = Kind::picture, .font = fontForInsertion(at)}});
}

void ModelStory::breakSection()
{
    require(lastBreak_.has_value(), "no page break to end a section with");
    const At at = lastBreak_->end - 1;
    require(characters_[at].kind == Kind::pageBreak, "no page break");
    Character end = characters_[endOfParagraph(at)];
    end.kind = Kind::sectionEnd;
    insert(at, std::array{end});
    erase(at + 1, at + 2);
    lastBreak_.reset();
}

void ModelStory::makeContents()
{
    if (!contents_)
        return;
    insert(contents_->start, std::array{Character{.kind = Kind::contents}});
    contents_.reset();
}

StoryReading ModelStory::read() const
{
    StoryReading result;
    std::vector<std::size_t> openFields;
    std::string link;
    bool linkBegins = false;
    bool isInCode = false;
    std::map<At, std::vector<std::u16string>> tagsAt;
    for (const auto& [name, at] : bookmarks_)
        tagsAt[at].push_back(name);
    const auto add = [&](std::string token) {
        if (!link.empty())
            token += (std::exchange(linkBegins, false) ? " begins " : " in ") + link;
        result.tokens.push_back(std::move(token));
    };
    for (At at = 0; at < characters_.size(); ++at) {
        const Character& character = characters_[at];
        const Character& paragraph = characters_[endOfParagraph(at)];
        const Font& given = styles_.fontOf(paragraph.style);
        if (repeats(character.font, given))
            throw BadOperation("formatting that the style gives");
        const bool isInField = !openFields.empty() && !fields_[openFields.back()].text.empty();
        if (const auto tags = tagsAt.find(at); tags != tagsAt.end())
            for (const std::u16string& name : tags->second) {
                if (isInField || isInCode)
                    throw BadOperation("a tag in a field");
                result.tags[name] = result.tokens.size();
            }
        const std::string font = printable(withChange(given, character.font));
        switch (character.kind) {
        case Kind::fieldBegin: {
            const Field& field = fields_[character.field];
            openFields.push_back(character.field);
            if (field.text.empty()) {
                require(link.empty(), "a link in a link");
                link = field.target;
                linkBegins = true;
                isInCode = true;
            } else {
                add(field.text.starts_with("field") ? field.text + " " + font : field.text);
            }
            continue;
        }
        case Kind::fieldSeparator:
            isInCode = false;
            continue;
        case Kind::fieldEnd:
            require(!openFields.empty() && openFields.back() == character.field, "fields that cross");
            openFields.pop_back();
            if (fields_[character.field].text.empty())
                link.clear();
            continue;
        default:
            break;
        }
        if (isInField || isInCode)
            continue;
        const std::string look = " " + printable(character.style) + " " +
                                 std::to_string(character.alignment.value_or(
                                     isEnd(character.kind) ? styles_.alignmentOf(character.style) : 0));
        if (isEnd(character.kind) && character.kind != Kind::rowEnd &&
            character.alignment == styles_.alignmentOf(character.style))
            throw BadOperation("an alignment that the style gives");
        switch (character.kind) {
        case Kind::character:
            add("'" + printable(std::u16string_view(&character.unit, 1)) + "' " + font);
            break;
        case Kind::pageBreak:
            add("page break");
            break;
        case Kind::picture:
            add("picture");
            break;
        case Kind::contents:
            add("contents");
            break;
        case Kind::paragraphEnd:
            add("end" + look);
            break;
        case Kind::sectionEnd:
            add("section" + look);
            break;
        case Kind::cellEnd:
            add("cell" + look);
            break;
        case Kind::rowEnd:
            add("row " + std::to_string(character.height));
            break;
        default:
            break;
        }
    }
    require(openFields.empty(), "a field without an end");
    return result;
}
