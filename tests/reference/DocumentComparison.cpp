#include "DocumentComparison.h"

#include "PrintableText.h"
#include "TokenAlignment.h"

#include <algorithm>
#include <array>

namespace reference {

namespace {

constexpr std::array<std::string_view, 4> alignmentNames = {"left", "centre", "right", "justified"};

std::string nameOf(Alignment alignment)
{
    return std::string(alignmentNames.at(static_cast<std::size_t>(alignment)));
}

std::string nameOf(const Font& font)
{
    std::string name = printable(font.name) + " " + std::to_string(font.size);
    name += font.isBold ? " bold" : "";
    name += font.isItalic ? " italic" : "";
    name += font.isUnderlined ? " underlined" : "";
    name += font.isStruck ? " struck" : "";
    return name;
}

std::string nameOf(const std::optional<LinkTarget>& target)
{
    if (!target)
        return "no link";
    if (!target->address.empty())
        return "a link to " + printable(target->address);
    if (!target->place)
        return "a link to a place that there is not";
    return "a link to story " + std::to_string(target->place->story) + ", place " +
           std::to_string(target->place->position);
}

std::string nameOf(const Token& token)
{
    switch (token.kind) {
    case TokenKind::character:
        return printable({&token.character, 1});
    case TokenKind::pageBreak:
        return "<page break>";
    case TokenKind::picture:
        return "<picture>";
    case TokenKind::field:
        return "<field " + printable(token.text) + ">";
    case TokenKind::entry:
        return "<entry " + std::to_string(token.level) + " \"" + printable(token.text) + "\">";
    case TokenKind::contents:
        return "<table of contents>";
    case TokenKind::paragraphEnd:
        return "<paragraph end>";
    case TokenKind::sectionEnd:
        return "<section end>";
    case TokenKind::cellEnd:
        return "<cell end>";
    case TokenKind::rowEnd:
        return "<row end>";
    }
    return {};
}

std::string nameOfStory(std::size_t number)
{
    if (number == bodyStory)
        return "body";
    return (number % 2 == 1 ? "header " : "footer ") + std::to_string((number + 1) / 2);
}

/// What a token too many, or one that lacks, is a difference in.
DifferenceKind kindOf(const Token& token)
{
    switch (token.kind) {
    case TokenKind::picture:
        return DifferenceKind::picture;
    case TokenKind::field:
        return DifferenceKind::field;
    case TokenKind::entry:
        return DifferenceKind::entry;
    case TokenKind::contents:
        return DifferenceKind::contents;
    default:
        return token.isInTable ? DifferenceKind::cells : DifferenceKind::text;
    }
}

DifferenceKind kindOfUnexpected(const std::vector<Token>& tokens, std::size_t index)
{
    const Token& token = tokens[index];
    if (token.kind == TokenKind::paragraphEnd && index + 1 == tokens.size())
        return DifferenceKind::addedEnd;
    const bool isBehindTable = index > 0 && tokens[index - 1].kind == TokenKind::rowEnd;
    if (token.character == u' ' && isBehindTable)
        return DifferenceKind::addedSpace;
    return kindOf(token);
}

class Comparer
{
public:
    Comparer(const DocumentContent& expected, const DocumentContent& found)
        : expected_(expected), found_(found), alignments_(expected.stories.size())
    {
    }

    std::vector<Difference> compare()
    {
        if (expected_.stories.size() != found_.stories.size()) {
            story_ = bodyStory;
            note(DifferenceKind::text, "sections", std::to_string(expected_.stories.size() / 2),
                 std::to_string(found_.stories.size() / 2));
        }
        const std::size_t both = std::min(expected_.stories.size(), found_.stories.size());
        for (std::size_t number = 0; number < both; ++number)
            if (expected_.stories[number] && found_.stories[number])
                alignments_[number].emplace(expected_.stories[number]->tokens,
                                            found_.stories[number]->tokens);
        for (story_ = 0; story_ < both; ++story_) {
            const auto& expected = expected_.stories[story_];
            const auto& found = found_.stories[story_];
            if (expected && found)
                compareStory(*expected, *found);
            else if (expected || found)
                note(DifferenceKind::text, "the story", expected ? "its own" : "that of the section before",
                     found ? "its own" : "that of the section before");
        }
        return std::move(differences_);
    }

private:
    void note(DifferenceKind kind, const std::string& where, const std::string& expected,
              const std::string& found)
    {
        std::string description = nameOfStory(story_) + ", " + where + ": expected " + expected;
        description += ", found " + found;
        differences_.push_back(
            {story_ == bodyStory ? kind : DifferenceKind::headerOrFooter, std::move(description)});
    }

    void compareStory(const StoryContent& expected, const StoryContent& found)
    {
        const TokenAlignment& alignment = *alignments_[story_];
        for (std::size_t i = 0; i < expected.tokens.size(); ++i) {
            const std::string where = "place " + std::to_string(i);
            const Token& token = expected.tokens[i];
            if (const auto match = alignment.matches()[i])
                compareTokens(where, token, found.tokens[*match]);
            else
                note(kindOf(token), where, nameOf(token), "nothing");
        }
        for (const std::size_t i : alignment.unexpected())
            note(kindOfUnexpected(found.tokens, i), "place " + std::to_string(i) + " of what is", "nothing",
                 nameOf(found.tokens[i]));
        compareTags(expected.tags, found.tags);
    }

    void compareTokens(const std::string& where, const Token& expected, const Token& found)
    {
        if (expected.isInTable != found.isInTable)
            note(DifferenceKind::cells, where, expected.isInTable ? "in a table" : "outside of tables",
                 nameOf(found));
        if (expected.text != found.text || expected.level != found.level)
            note(kindOf(expected), where, nameOf(expected), nameOf(found));
        if (expected.font && expected.font != found.font)
            note(DifferenceKind::font, where + " " + nameOf(expected), nameOf(*expected.font),
                 found.font ? nameOf(*found.font) : "none");
        if (!expected.isFormatOpen && expected.style != found.style)
            note(DifferenceKind::style, where, printable(expected.style), printable(found.style));
        if (!expected.isFormatOpen && expected.alignment != found.alignment)
            note(DifferenceKind::alignment, where, nameOf(expected.alignment), nameOf(found.alignment));
        if (!isSameTarget(expected.link, found.link) || expected.beginsLink != found.beginsLink)
            note(DifferenceKind::link, where + " " + nameOf(expected),
                 nameOf(expected.link) + (expected.beginsLink ? " that begins" : ""),
                 nameOf(found.link) + (found.beginsLink ? " that begins" : ""));
    }

    [[nodiscard]] bool isSameTarget(const std::optional<LinkTarget>& expected,
                                    const std::optional<LinkTarget>& found) const
    {
        if (!expected || !found)
            return !expected && !found;
        if (expected->address != found->address || expected->place.has_value() != found->place.has_value())
            return false;
        return !expected->place ||
               (expected->place->story == found->place->story && found->place->position != Tag::nowhere &&
                alignments_[expected->place->story] &&
                alignments_[expected->place->story]->isSamePlace(expected->place->position,
                                                                 found->place->position));
    }

    void compareTags(const std::vector<Tag>& expected, std::vector<Tag> found)
    {
        for (const Tag& tag : expected) {
            const auto same = std::find_if(found.begin(), found.end(), [&](const Tag& each) {
                return each.start != Tag::nowhere && alignments_[story_]->isSamePlace(tag.start, each.start);
            });
            if (same == found.end()) {
                note(DifferenceKind::bookmark, "place " + std::to_string(tag.start), "a tag", "none");
                continue;
            }
            if (!same->endsInPlace)
                note(DifferenceKind::bookmark, "place " + std::to_string(tag.start),
                     "a tag that ends between its start and the next tag's", "one that does not");
            found.erase(same);
        }
        for (const Tag& tag : found)
            note(DifferenceKind::bookmark, "place " + std::to_string(tag.start) + " of what is", "no tag",
                 "one");
    }

    const DocumentContent& expected_;
    const DocumentContent& found_;
    std::vector<std::optional<TokenAlignment>> alignments_;
    std::size_t story_ = 0;
    std::vector<Difference> differences_;
};

} // namespace

std::string_view nameOf(DifferenceKind kind)
{
    static constexpr std::array<std::string_view, differenceKindCount> names = {
        "text",
        "a paragraph end too much at the end",
        "a space too much behind a table",
        "text, rows or cells of a table",
        "style",
        "font",
        "alignment",
        "link",
        "tag's bookmark",
        "entry of the table of contents",
        "place of the table of contents",
        "field",
        "picture",
        "anything in a header or footer",
        "a call that fails",
    };
    return names.at(static_cast<std::size_t>(kind));
}

std::vector<Difference> compare(const DocumentContent& expected, const DocumentContent& found)
{
    return Comparer(expected, found).compare();
}

std::string printable(const StoryContent& story)
{
    std::string text;
    for (const Token& token : story.tokens)
        text += nameOf(token);
    return text;
}

} // namespace reference
