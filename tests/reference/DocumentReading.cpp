#include "DocumentReading.h"

#include "RedundantFormat.h"

#include "Hyperlink.h"
#include "InlineShape.h"
#include "TableSpans.h"
#include "VisibleText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string>

namespace reference {

namespace {

namespace model = standin::model;
using model::Position;

Font fontAt(const model::Story& story, Position position)
{
    const model::FontProperties font = story.effectiveFont(position);
    return {*font.name,           static_cast<int>(std::lround(*font.size)),
            *font.bold,           *font.italic,
            *font.underline != 0, *font.strikeThrough};
}

/// What it is, and its size in twips.
std::u16string lookOf(const model::InlineShape& shape)
{
    static constexpr std::array<const char*, 5> formats = {"png", "jpeg", "emf", "wmf", "bitmap"};
    const auto twips = [](float points) { return std::to_string(std::lround(points * 20)); };
    const std::string look = formats.at(static_cast<std::size_t>(shape.picture->format)) + std::string(" ") +
                             twips(shape.width) + "x" + twips(shape.height);
    return {look.begin(), look.end()};
}

/// Reads one story from front to end.
class StoryReader
{
public:
    explicit StoryReader(const std::shared_ptr<model::Story>& story) : storyPtr_(story), story_(*story)
    {
        places_.assign(static_cast<std::size_t>(story_.length()) + 1, Tag::nowhere);
        read(0, story_.length());
        places_.back() = content.tokens.size();
    }

    /// The token that begins at the position; `nowhere` inside a field's code or what counts as one token.
    [[nodiscard]] std::size_t placeOf(Position position) const
    {
        return places_.at(static_cast<std::size_t>(position));
    }

    StoryContent content;
    std::vector<std::optional<model::HyperlinkTarget>> links; ///< one for each token

private:
    void read(Position start, Position end)
    {
        for (Position at = start; at < end;) {
            mark(at);
            at = story_.at(at) == model::mark::fieldBegin ? readField(at) : readCharacter(at);
        }
    }

    void mark(Position at) { places_[static_cast<std::size_t>(at)] = content.tokens.size(); }

    void push(Token token, Position at)
    {
        token.isInTable = model::isInTable(story_, at);
        token.beginsLink = link_ && linkBegins_;
        linkBegins_ = false;
        content.tokens.push_back(std::move(token));
        links.push_back(link_);
    }

    Position readField(Position begin)
    {
        const model::FieldPlace place = story_.fields().startingIn(begin, begin + 1).front();
        const model::Field field(storyPtr_, place.id);
        const model::FieldCode code = field.parsedCode();
        if (field.type() == model::hyperlinkFieldType) {
            const auto around = link_;
            link_ = model::Hyperlink(field).target();
            linkBegins_ = true;
            read(place.resultStart(), place.end);
            mark(place.end);
            link_ = around;
            linkBegins_ = false;
            return place.past();
        }
        Token token;
        if (const auto object = objectIn(place)) {
            token = *object;
        } else if (field.type() == model::tocFieldType) {
            token.kind = TokenKind::contents;
        } else if (field.type() == model::tocEntryFieldType) {
            token.kind = TokenKind::entry;
            token.text = code.argument(0);
            token.level = levelOf(code.value(u'l').value_or(std::u16string()));
        } else {
            token.kind = TokenKind::field;
            token.text = code.keyword();
            token.font = fontAt(story_, place.resultStart());
        }
        token.isHidden = token.kind != TokenKind::entry && *story_.effectiveFont(begin).hidden;
        push(std::move(token), begin);
        return place.past();
    }

    /// A field may stand around an object's one character.
    [[nodiscard]] std::optional<Token> objectIn(const model::FieldPlace& place) const
    {
        if (place.end - place.resultStart() != 1)
            return {};
        return objectAt(place.resultStart());
    }

    [[nodiscard]] std::optional<Token> objectAt(Position at) const
    {
        const std::shared_ptr<model::InlineShape>& shape = story_.runAt(at).format->shape;
        if (!shape || !shape->isObject())
            return {};
        Token token;
        token.kind = TokenKind::object;
        token.text = shape->type == model::InlineShapeType::linkedObject ? u"linked" : u"embedded";
        return token;
    }

    static int levelOf(const std::u16string& text)
    {
        int level = 0;
        for (const char16_t digit : text)
            level = level * 10 + (digit - u'0');
        return level;
    }

    Position readCharacter(Position at)
    {
        const char16_t character = story_.at(at);
        const model::Paragraph paragraph = story_.paragraphAt(at);
        Token token;
        if (at == paragraph.end - 1) {
            readEnd(token, *paragraph.format);
        } else if (character == model::mark::page) {
            token.kind = TokenKind::pageBreak;
        } else if (const auto object = objectAt(at)) {
            token = *object;
        } else if (character == model::mark::picture) {
            token.kind = TokenKind::picture;
            if (const auto& shape = story_.runAt(at).format->shape; shape && shape->picture)
                token.text = lookOf(*shape);
        } else {
            token.character = character;
            token.font = fontAt(story_, at);
        }
        token.isHidden = token.kind != TokenKind::rowEnd && *story_.effectiveFont(at).hidden;
        token.redundantFormat = redundantFormat(story_, at);
        push(std::move(token), at);
        return at + 1;
    }

    static bool hasLines(const model::CellFormat& cell)
    {
        return cell.top.isVisible || cell.left.isVisible || cell.bottom.isVisible || cell.right.isVisible;
    }

    static void readEnd(Token& token, const model::ParagraphFormat& format)
    {
        switch (format.end) {
        case model::ParagraphEnd::mark:
            token.kind = TokenKind::paragraphEnd;
            break;
        case model::ParagraphEnd::section:
            token.kind = TokenKind::sectionEnd;
            break;
        case model::ParagraphEnd::cell:
            token.kind = TokenKind::cellEnd;
            break;
        case model::ParagraphEnd::row:
            token.kind = TokenKind::rowEnd;
            if (format.row->style)
                token.style = format.row->style->name();
            if (std::ranges::any_of(format.row->cells, hasLines))
                token.text = u"with lines";
            return;
        }
        token.style = format.style->name();
        token.alignment = static_cast<Alignment>(
            format.properties.alignment.value_or(*format.style->resolvedParagraph().alignment));
    }

    std::shared_ptr<model::Story> storyPtr_;
    const model::Story& story_;
    std::vector<std::size_t> places_;
    std::optional<model::HyperlinkTarget> link_;
    bool linkBegins_ = false;
};

/// Where the next tag's bookmark begins, or the story's end.
Position nextStart(const std::vector<model::BookmarkPtr>& bookmarks, const model::Bookmark& bookmark)
{
    const model::LiveRange& range = bookmark.range();
    Position next = range.story().length();
    for (const model::BookmarkPtr& other : bookmarks)
        if (other->range().storyPtr() == range.storyPtr() && other->range().start() > range.start())
            next = std::min(next, other->range().start());
    return next;
}

class DocumentReader
{
public:
    explicit DocumentReader(const model::Document& document) : document_(document)
    {
        add(document.mainStory());
        for (std::int32_t number = 1; number <= document.sectionCount(); ++number)
            for (const auto part : {model::Section::Part::header, model::Section::Part::footer})
                add(ownStory(*document.section(number), part, number == 1));
        for (const model::BookmarkPtr& bookmark : document.bookmarks().all())
            if (!bookmark->isHidden())
                bookmarks_.push_back(bookmark);
    }

    DocumentContent read()
    {
        for (const model::BookmarkPtr& bookmark : bookmarks_)
            readTag(*bookmark);
        DocumentContent content;
        for (auto& reader : readers_) {
            content.stories.emplace_back();
            if (!reader)
                continue;
            for (std::size_t i = 0; i < reader->links.size(); ++i)
                if (reader->links[i])
                    reader->content.tokens[i].link = targetOf(*reader->links[i]);
            std::stable_sort(reader->content.tags.begin(), reader->content.tags.end(),
                             [](const Tag& a, const Tag& b) { return a.start < b.start; });
            content.stories.back() = std::move(reader->content);
        }
        for (std::int32_t number = 1; number <= document_.sectionCount(); ++number)
            content.pages.push_back(pageOf(document_.section(number)->pageSetup));
        return content;
    }

private:
    static std::shared_ptr<model::Story> ownStory(model::Section& section, model::Section::Part part,
                                                  bool isFirst)
    {
        constexpr auto primary = model::HeaderFooterIndex::primary;
        return isFirst ? section.story(part, primary) : section.ownStory(part, primary);
    }

    void add(const std::shared_ptr<model::Story>& story)
    {
        readers_.emplace_back();
        if (!story)
            return;
        numbers_[story.get()] = readers_.size() - 1;
        readers_.back().emplace(story);
    }

    void readTag(const model::Bookmark& bookmark)
    {
        const model::LiveRange& range = bookmark.range();
        StoryReader& reader = *readers_[numbers_.at(&range.story())];
        const bool endsInPlace = range.end() <= nextStart(bookmarks_, bookmark);
        reader.content.tags.push_back({reader.placeOf(range.start()), endsInPlace});
    }

    static Page pageOf(const model::PageSetup& setup)
    {
        return {setup.orientation == model::Orientation::landscape,
                static_cast<int>(std::lround(setup.leftMargin))};
    }

    LinkTarget targetOf(const model::HyperlinkTarget& target) const
    {
        if (target.subAddress.empty())
            return {target.address};
        const model::BookmarkPtr bookmark = document_.bookmarks().find(target.subAddress);
        if (!bookmark)
            return {};
        const std::size_t story = numbers_.at(&bookmark->range().story());
        return {{}, Place{story, readers_[story]->placeOf(bookmark->range().start())}};
    }

    const model::Document& document_;
    std::vector<std::optional<StoryReader>> readers_;
    std::map<const model::Story*, std::size_t> numbers_;
    std::vector<model::BookmarkPtr> bookmarks_;
};

} // namespace

DocumentContent readContent(const model::Document& document)
{
    return DocumentReader(document).read();
}

} // namespace reference
