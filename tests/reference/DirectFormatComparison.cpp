#include "DirectFormatComparison.h"

#include "ReferenceStyles.h"
#include "TokenAlignment.h"

#include <set>
#include <utility>

namespace reference {

namespace {

/// The places of what stands for something out of a file.
std::set<std::size_t> placesFromFiles(const StoryContent& expected, const StoryContent& found)
{
    std::set<std::size_t> places;
    const TokenAlignment alignment(expected.tokens, found.tokens);
    for (std::size_t i = 0; i < expected.tokens.size(); ++i)
        if (expected.tokens[i].isFromFile && alignment.matches()[i])
            places.insert(*alignment.matches()[i]);
    return places;
}

/// The properties that are the style's and stay when the style's font changes.
std::string keptProperties(const Font& ofStyle, const Token& token, const Font& restyled)
{
    std::string kept;
    const auto check = [&](const char* name, auto Font::*property) {
        if ((*token.font).*property == ofStyle.*property && restyled.*property == ofStyle.*property)
            kept += std::string(kept.empty() ? "" : ", ") + name;
    };
    check("name", &Font::name);
    check("size", &Font::size);
    check("bold", &Font::isBold);
    check("italic", &Font::isItalic);
    if (!token.link) // links have a look of their own
        check("underline", &Font::isUnderlined);
    check("strike", &Font::isStruck);
    return kept;
}

class Checker
{
public:
    Checker(std::size_t number, const StoryContent& expected, const StoryContent& found)
        : number_(number), found_(found), fromFiles_(placesFromFiles(expected, found))
    {
    }

    void checkRedundant()
    {
        for (std::size_t i = 0; i < found_.tokens.size(); ++i)
            if (!found_.tokens[i].redundantFormat.empty())
                note(i, "formatting where the style says the same", found_.tokens[i].redundantFormat);
    }

    void checkRestyled(const StoryContent& restyled)
    {
        const std::vector<const ReferenceStyle*> styles = stylesOfTokens();
        for (std::size_t i = 0; i < found_.tokens.size(); ++i) {
            const Token& token = found_.tokens[i];
            const ReferenceStyle* const style = styles[i];
            if (token.kind != TokenKind::character || !style || !restyled.tokens.at(i).font)
                continue;
            const std::string kept = keptProperties(style->font, token, *restyled.tokens[i].font);
            if (!kept.empty())
                note(i, "a font that stays when the style's changes", kept);
        }
    }

    [[nodiscard]] std::vector<Difference> differences() const
    {
        std::vector<Difference> result;
        for (const Finding& finding : findings_) {
            std::string text =
                "story " + std::to_string(number_) + ", place, as it is, " + std::to_string(finding.first);
            if (finding.last != finding.first)
                text += " to " + std::to_string(finding.last);
            result.push_back({DifferenceKind::directFormat, text + ": " + finding.text});
        }
        return result;
    }

private:
    /// The same at places in a row.
    struct Finding
    {
        std::size_t first;
        std::size_t last;
        std::string text;
    };

    /// Of the paragraph that each is in.
    [[nodiscard]] std::vector<const ReferenceStyle*> stylesOfTokens() const
    {
        std::vector<const ReferenceStyle*> styles(found_.tokens.size());
        const ReferenceStyle* style = nullptr;
        for (std::size_t i = styles.size(); i-- > 0;) {
            if (!found_.tokens[i].style.empty())
                style = findStyle(found_.tokens[i].style);
            styles[i] = style;
        }
        return styles;
    }

    void note(std::size_t place, const std::string& what, const std::string& properties)
    {
        if (fromFiles_.contains(place))
            return;
        std::string text = what + " (" + properties + ")";
        if (!findings_.empty() && findings_.back().last + 1 == place && findings_.back().text == text)
            findings_.back().last = place;
        else
            findings_.push_back({place, place, std::move(text)});
    }

    std::size_t number_;
    const StoryContent& found_;
    std::set<std::size_t> fromFiles_;
    std::vector<Finding> findings_;
};

} // namespace

std::vector<Difference> compareDirectFormat(const DocumentContent& expected, const DocumentContent& found,
                                            const DocumentContent& restyled)
{
    static const StoryContent nothing;
    std::vector<Difference> differences;
    for (std::size_t number = 0; number < found.stories.size(); ++number) {
        if (!found.stories[number])
            continue;
        const bool isExpected = number < expected.stories.size() && expected.stories[number];
        Checker checker(number, isExpected ? *expected.stories[number] : nothing, *found.stories[number]);
        checker.checkRedundant();
        checker.checkRestyled(restyled.stories.at(number).value());
        const std::vector<Difference> ofStory = checker.differences();
        differences.insert(differences.end(), ofStory.begin(), ofStory.end());
    }
    return differences;
}

} // namespace reference
