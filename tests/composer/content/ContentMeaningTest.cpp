// What content comes to, against what the calls mean.
#include "StoryContent.h"

#include "RandomNumbers.h"
#include "ReferenceStory.h"
#include "ReferenceStyles.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace {

using Tokens = std::vector<std::string>;

std::string printable(std::u16string_view text)
{
    std::string result;
    for (const char16_t unit : text)
        result += unit < 0x7F && unit >= 0x20 ? std::string(1, static_cast<char>(unit))
                                              : "<" + std::to_string(static_cast<unsigned>(unit)) + ">";
    return result;
}

std::string printable(const reference::Font& font)
{
    return printable(font.name) + std::to_string(font.size) + (font.isBold ? "b" : "") +
           (font.isItalic ? "i" : "") + (font.isUnderlined ? "u" : "") + (font.isStruck ? "s" : "");
}

std::string printable(reference::TokenKind kind)
{
    return std::to_string(static_cast<int>(kind));
}

/// A story's tokens, a line each, and in front of which of them its tags are.
struct Reading
{
    Tokens tokens;
    std::map<std::u16string, std::size_t> tags;
    bool operator==(const Reading&) const = default;
};

Reading readingOf(const reference::ReferenceStory& story)
{
    const reference::ReferenceStory::Flattened flat = story.flatten();
    Reading reading{.tokens = {}, .tags = flat.tags};
    for (std::size_t i = 0; i < flat.content.tokens.size(); ++i) {
        const reference::Token& token = flat.content.tokens[i];
        std::string line = printable(token.kind) + " ";
        switch (token.kind) {
        case reference::TokenKind::character:
            line += printable(std::u16string_view(&token.character, 1)) + " " + printable(*token.font);
            break;
        case reference::TokenKind::field:
            line += printable(token.text) + " " + printable(*token.font);
            break;
        case reference::TokenKind::entry:
            line += printable(token.text) + std::to_string(token.level);
            break;
        case reference::TokenKind::paragraphEnd:
        case reference::TokenKind::sectionEnd:
        case reference::TokenKind::cellEnd:
            line += token.isFormatOpen
                        ? "any look"
                        : printable(token.style) + std::to_string(static_cast<int>(token.alignment));
            break;
        default:
            break;
        }
        if (flat.links[i])
            line += (flat.links[i]->begins ? " begins " : " in ") + printable(flat.links[i]->target);
        reading.tokens.push_back(line);
    }
    return reading;
}

class ContentReader
{
public:
    explicit ContentReader(compose::StoryContent& content) : links_(content.links())
    {
        for (const compose::Block& block : content.blocks()) {
            const bool isLast = &block == &content.blocks().back();
            if (const auto* const paragraph = std::get_if<compose::Paragraph>(&block))
                read(*paragraph,
                     paragraph->end == compose::ParagraphEnd::section ? reference::TokenKind::sectionEnd
                                                                      : reference::TokenKind::paragraphEnd,
                     isLast && !paragraph->holdsAnything());
            else
                read(std::get<compose::Table>(block));
        }
    }
    Reading reading;

private:
    void read(const compose::Table& table)
    {
        EXPECT_EQ(table.heights.size(), table.rows.size());
        for (const compose::Row& row : table.rows) {
            EXPECT_EQ(row.size(), table.columns());
            for (const compose::Cell& cell : row)
                for (const compose::Paragraph& paragraph : cell)
                    read(paragraph,
                         &paragraph == &cell.back() ? reference::TokenKind::cellEnd
                                                    : reference::TokenKind::paragraphEnd,
                         false);
            add(printable(reference::TokenKind::rowEnd) + " ", compose::noLink);
        }
    }

    void read(const compose::Paragraph& paragraph, reference::TokenKind end, bool mayLookAnyWay)
    {
        for (const compose::Item& item : paragraph.items)
            std::visit([&](const auto& what) { read(what, item, paragraph); }, item.what);
        using enum reference::Alignment;
        reference::Alignment alignment = reference::findStyle(paragraph.style)->alignment;
        if (paragraph.alignment)
            alignment = *paragraph.alignment == 2   ? centre
                        : *paragraph.alignment == 3 ? right
                        : *paragraph.alignment == 4 ? justified
                                                    : left;
        add(printable(end) + " " +
                (mayLookAnyWay ? "any look"
                               : printable(paragraph.style) + std::to_string(static_cast<int>(alignment))),
            paragraph.endLink);
    }

    static std::string fontOf(const compose::Item& item, const compose::Paragraph& paragraph)
    {
        reference::Font font = reference::findStyle(item.font->style)->font;
        font.name = item.font->name.value_or(font.name);
        font.size = item.font->size.value_or(font.size);
        if (font.size == 0)
            font.size = reference::findStyle(paragraph.style)->font.size;
        font.isBold = item.font->isBold.value_or(font.isBold);
        font.isItalic = item.font->isItalic.value_or(font.isItalic);
        font.isUnderlined = item.font->isUnderlined.value_or(font.isUnderlined);
        font.isStruck = item.font->isStruck.value_or(font.isStruck);
        return printable(font);
    }

    void read(const compose::Text& text, const compose::Item& item, const compose::Paragraph& paragraph)
    {
        EXPECT_FALSE(text.characters.empty());
        for (const char16_t unit : text.characters)
            add(printable(reference::TokenKind::character) + " " + printable(std::u16string_view(&unit, 1)) +
                    " " + fontOf(item, paragraph),
                item.link);
    }
    void read(const compose::PageBreak&, const compose::Item& item, const compose::Paragraph&)
    {
        add(printable(reference::TokenKind::pageBreak) + " ", item.link);
    }
    void read(const compose::Field& field, const compose::Item& item, const compose::Paragraph& paragraph)
    {
        static const std::array<std::string, 4> keywords = {"DATE", "TIME", "FILENAME", "PAGE"};
        add(printable(reference::TokenKind::field) + " " +
                keywords.at(static_cast<std::size_t>(field.number) - 1) + " " + fontOf(item, paragraph),
            item.link);
    }
    void read(const compose::Entry& entry, const compose::Item& item, const compose::Paragraph&)
    {
        add(printable(reference::TokenKind::entry) + " " + printable(entry.text) +
                std::to_string(entry.level),
            item.link);
    }
    void read(const compose::Tag& tag, const compose::Item&, const compose::Paragraph&)
    {
        EXPECT_FALSE(reading.tags.contains(tag.bookmark)) << "two places for one tag";
        reading.tags[tag.bookmark] = reading.tokens.size();
    }
    static void read(const compose::Picture&, const compose::Item&, const compose::Paragraph&)
    {
        ADD_FAILURE() << "nothing was put into Word";
    }
    void read(const compose::Contents&, const compose::Item& item, const compose::Paragraph&)
    {
        add(printable(reference::TokenKind::contents) + " ", item.link);
    }

    void add(std::string line, compose::LinkNumber link)
    {
        if (link != compose::noLink) {
            const compose::LinkTarget& target = links_[static_cast<std::size_t>(link)];
            line += link == linkBefore_ ? " in " : " begins ";
            line += printable(target.address.empty() ? target.bookmark : target.address);
        }
        linkBefore_ = link;
        reading.tokens.push_back(std::move(line));
    }

    const std::vector<compose::LinkTarget>& links_;
    compose::LinkNumber linkBefore_ = compose::noLink;
};

/// Random calls that both hear.
class Hearing
{
public:
    explicit Hearing(std::uint32_t seed)
        : numbers_(seed), first_(seed % 5 == 0 ? u"Header" : u"Normal"), content_(first_), meaning_(first_)
    {
        for (std::size_t calls = 1 + numbers_.below(40); calls > 0; --calls)
            call();
    }

    Reading found() { return ContentReader(content_).reading; }
    [[nodiscard]] Reading wanted() const { return readingOf(meaning_); }
    [[nodiscard]] const std::string& calls() const { return calls_; }

private:
    template <class Call>
    void both(const char* name, Call call)
    {
        calls_ += std::string(name) + "\n";
        call(content_);
        call(meaning_);
    }

    void call()
    {
        static constexpr std::array<std::u16string_view, 12> texts = {
            u"a",     u"bc",   u"",     u"\n",           u"\r\nd", u"e\r\rf",
            u"g\n\r", u"h\ti", u"\n\n", u"\xD83D\xDE00", u"j k",   u"\rl\n"};
        static constexpr std::array<std::u16string_view, 2> targets = {u"http://a", u"b"};
        static constexpr std::array<std::u16string_view, 6> styles = {
            u"Normal", u"Heading 1", u"Heading 2", u"Heading 9", u"Title", u"Plain Text"};
        static constexpr std::array<std::u16string_view, 3> tags = {u"t1", u"t2", u"t3"};
        const std::u16string_view text = numbers_.oneOf(texts);
        const int number = static_cast<int>(numbers_.below(6));
        switch (numbers_.below(25)) {
        case 0:
        case 1:
        case 2:
            return both("insertText", [&](auto& story) { story.insertText(text); });
        case 3: {
            const std::u16string target(numbers_.oneOf(targets));
            calls_ += "insertText with a link\n";
            const compose::LinkTarget place{.address = target};
            content_.insertText(text, &place);
            meaning_.insertText(text, reference::RequestedLink{.target = target});
            return;
        }
        case 4:
            return both("insertEndl", [](auto& story) { story.insertEndl(); });
        case 5:
            return both("insertPageBreak", [](auto& story) { story.insertPageBreak(); });
        case 6:
            return both("insertField", [&](auto& story) { story.insertField(1 + number % 4); });
        case 7: {
            const std::u16string tag(numbers_.oneOf(tags));
            calls_ += "insertTag\n";
            meaning_.removeTag(tag);
            content_.insertTag(tag);
            meaning_.insertTag(tag);
            return;
        }
        case 8: {
            const std::u16string_view tag = numbers_.oneOf(tags);
            return both("removeTag", [&](auto& story) { story.removeTag(tag); });
        }
        case 9:
        case 10: {
            const std::u16string style(numbers_.oneOf(styles));
            calls_ += "setStyle " + printable(style) + "\n";
            meaning_.setStyle(style);
            if (content_.isInForce(style))
                return;
            content_.prepareStyle();
            content_.setStyle(style, style);
            return;
        }
        case 11:
            return both("setFontName", [](auto& story) { story.setFontName(u"Georgia"); });
        case 12:
            return both("setFontSize", [&](auto& story) { story.setFontSize(10 * (number % 3)); });
        case 13:
        case 14: {
            const bool isOn = numbers_.onceIn(2);
            return both("setFontAttribute",
                        [&](auto& story) { story.setFontAttribute(number == 5 ? 3 : 1 << number, isOn); });
        }
        case 15:
            return both("setTextAlign", [&](auto& story) { story.setTextAlign(number); });
        case 16:
            return both("startTable", [](auto& story) { story.startTable(); });
        case 17:
        case 18:
            return both("addRow", [](auto& story) { story.addRow(); });
        case 19:
        case 20:
            return both("addCell", [](auto& story) { story.addCell(); });
        case 21:
            return both("endTable", [](auto& story) { story.endTable(); });
        case 22:
            calls_ += "insertTOC\n";
            content_.insertTOC(u"Table of Contents");
            meaning_.insertTOC(u"Table of Contents", u"");
            return;
        case 23:
            return both(number < 3 ? "startTOCEntry" : "endTOCEntry",
                        [&](auto& story) { number < 3 ? story.startTOCEntry() : story.endTOCEntry(); });
        default:
            return both("breakSection", [](auto& story) { story.breakSection(); });
        }
    }

    reference::RandomNumbers numbers_;
    std::u16string first_;
    compose::StoryContent content_;
    reference::ReferenceStory meaning_;
    std::string calls_;
};

TEST(ContentMeaning, IsThatOfTheCalls)
{
    const std::string paragraphEnd = printable(reference::TokenKind::paragraphEnd) + " ";
    for (std::uint32_t seed = 0; seed < 20000; ++seed) {
        Hearing hearing(seed);
        Reading wanted = hearing.wanted();
        Reading found = hearing.found();
        ASSERT_EQ(found.tokens.size(), wanted.tokens.size()) << "seed " << seed << "\n" << hearing.calls();
        for (std::size_t i = 0; i < wanted.tokens.size(); ++i) {
            const bool mayLookAnyWay = wanted.tokens[i].ends_with("any look");
            if (mayLookAnyWay && found.tokens[i].starts_with(paragraphEnd))
                continue;
            ASSERT_EQ(found.tokens[i], wanted.tokens[i]) << "seed " << seed << "\n" << hearing.calls();
        }
        ASSERT_EQ(found.tags, wanted.tags) << "seed " << seed << "\n" << hearing.calls();
    }
}

} // namespace
