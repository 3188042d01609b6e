#include "DocumentComparison.h"

#include "PrintableText.h"
#include "TokenAlignment.h"

#include <algorithm>
#include <array>
#include <iterator>

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

std::string nameOf(const Page& page)
{
    return std::string(page.isLandscape ? "landscape" : "portrait") + " with a left margin of " +
           std::to_string(page.leftMargin);
}

std::string nameOf(const Token& token)
{
    switch (token.kind) {
    case TokenKind::character:
        return printable({&token.character, 1});
    case TokenKind::pageBreak:
        return "<page break>";
    case TokenKind::picture:
        return token.text.empty() ? "<picture>" : "<picture " + printable(token.text) + ">";
    case TokenKind::object:
        return "<" + printable(token.text) + " object>";
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
        return token.text.empty() ? "<row end>" : "<row end " + printable(token.text) + ">";
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
    case TokenKind::object:
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
            note(DifferenceKind::text, 0, std::to_string(expected_.stories.size() / 2) + " sections",
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
                note(DifferenceKind::text, 0, expected ? "its own" : "that of the section before",
                     found ? "its own" : "that of the section before");
        }
        comparePages();
        std::vector<Difference> differences;
        std::transform(findings_.begin(), findings_.end(), std::back_inserter(differences), asDifference);
        return differences;
    }

private:
    /// A difference at one place, or the same one at places in a row.
    struct Finding
    {
        DifferenceKind kind;
        std::size_t story;
        std::string_view of; ///< what the places count
        std::size_t first;
        std::size_t last;
        std::string expected;
        std::string found;
    };

    static constexpr std::string_view ofExpected = "place";
    static constexpr std::string_view ofSections = "pages of section";
    static constexpr std::string_view ofFound = "place, as it is,";

    void note(DifferenceKind kind, std::size_t place, std::string expected, std::string found,
              std::string_view of = ofExpected)
    {
        if (!findings_.empty()) {
            Finding& last = findings_.back();
            if (last.kind == kind && last.story == story_ && last.of == of && last.last + 1 == place &&
                last.expected == expected && last.found == found) {
                last.last = place;
                return;
            }
        }
        findings_.push_back({kind, story_, of, place, place, std::move(expected), std::move(found)});
    }

    void comparePages()
    {
        story_ = bodyStory;
        for (std::size_t i = 0; i < std::min(expected_.pages.size(), found_.pages.size()); ++i)
            if (expected_.pages[i] != found_.pages[i])
                note(DifferenceKind::page, i, nameOf(expected_.pages[i]), nameOf(found_.pages[i]),
                     ofSections);
    }

    static Difference asDifference(const Finding& finding)
    {
        std::string text = nameOfStory(finding.story) + ", " + std::string(finding.of) + " ";
        text += finding.first == Tag::nowhere ? "inside a field" : std::to_string(finding.first);
        if (finding.last != finding.first)
            text += " to " + std::to_string(finding.last);
        text += ": expected " + finding.expected + ", found " + finding.found;
        return {finding.story == bodyStory ? finding.kind : DifferenceKind::headerOrFooter, std::move(text)};
    }

    void compareStory(const StoryContent& expected, const StoryContent& found)
    {
        const TokenAlignment& alignment = *alignments_[story_];
        for (std::size_t i = 0; i < expected.tokens.size(); ++i) {
            const auto match = alignment.matches()[i];
            if (!match)
                note(kindOf(expected.tokens[i]), i, nameOf(expected.tokens[i]), "nothing");
        }
        for (const std::size_t i : alignment.unexpected())
            note(kindOfUnexpected(found.tokens, i), i, "nothing", nameOf(found.tokens[i]), ofFound);
        for (const auto compareOne : {&Comparer::compareTexts, &Comparer::compareFonts,
                                      &Comparer::compareParagraphs, &Comparer::compareLinks})
            for (std::size_t i = 0; i < expected.tokens.size(); ++i)
                if (const auto match = alignment.matches()[i])
                    (this->*compareOne)(i, expected.tokens[i], found.tokens[*match]);
        compareTags(expected.tags, found.tags);
    }

    void compareTexts(std::size_t place, const Token& expected, const Token& found)
    {
        if (expected.isInTable != found.isInTable)
            note(DifferenceKind::cells, place, expected.isInTable ? "in a table" : "outside of tables",
                 found.isInTable ? "in a table" : "outside of tables");
        if (found.isHidden)
            note(kindOf(expected), place, nameOf(expected), "hidden");
        if (expected.text != found.text || expected.level != found.level)
            note(kindOf(expected), place, nameOf(expected), nameOf(found));
    }

    void compareFonts(std::size_t place, const Token& expected, const Token& found)
    {
        if (!expected.font || !found.font)
            return;
        Font font = *found.font;
        if (expected.link) // links have a look of their own
            font.isUnderlined = expected.font->isUnderlined;
        if (font != *expected.font)
            note(DifferenceKind::font, place, nameOf(*expected.font), nameOf(font));
    }

    void compareParagraphs(std::size_t place, const Token& expected, const Token& found)
    {
        if (expected.isFormatOpen)
            return;
        if (expected.style != found.style)
            note(DifferenceKind::style, place, printable(expected.style), printable(found.style));
        if (expected.alignment != found.alignment)
            note(DifferenceKind::alignment, place, nameOf(expected.alignment), nameOf(found.alignment));
    }

    void compareLinks(std::size_t place, const Token& expected, const Token& found)
    {
        if (!isSameTarget(expected.link, found.link))
            note(DifferenceKind::link, place, nameOf(expected.link), nameOf(found.link));
        else if (expected.beginsLink != found.beginsLink)
            note(DifferenceKind::link, place, expected.beginsLink ? "a link's beginning" : "the same link",
                 found.beginsLink ? "a link's beginning" : "the same link");
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
                note(DifferenceKind::bookmark, tag.start, "a tag", "none");
                continue;
            }
            if (!same->endsInPlace)
                note(DifferenceKind::bookmark, tag.start,
                     "a tag that ends between its start and the next tag's", "one that does not");
            found.erase(same);
        }
        for (const Tag& tag : found)
            note(DifferenceKind::bookmark, tag.start, "no tag", "one", ofFound);
    }

    const DocumentContent& expected_;
    const DocumentContent& found_;
    std::vector<std::optional<TokenAlignment>> alignments_;
    std::size_t story_ = 0;
    std::vector<Finding> findings_;
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
        "page of a section",
        "direct formatting that the style gives",
    };
    return names.at(static_cast<std::size_t>(kind));
}

std::vector<Difference> compare(const DocumentContent& expected, const DocumentContent& found)
{
    return Comparer(expected, found).compare();
}

std::string printable(const std::vector<Difference>& differences)
{
    std::string text;
    for (const Difference& difference : differences)
        text += "    " + std::string(nameOf(difference.kind)) + ": " + difference.description + "\n";
    return text;
}

std::string printable(const StoryContent& story)
{
    std::string text;
    for (const Token& token : story.tokens)
        text += nameOf(token);
    return text;
}

} // namespace reference
