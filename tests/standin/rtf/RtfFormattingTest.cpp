#include "RtfFixture.h"
#include "SavedFormatting.h"

#include "Field.h"
#include "Hyperlink.h"
#include "Table.h"
#include "TableOfContents.h"

#include <array>
#include <ostream>
#include <random>

namespace standin::rtf {

using namespace model;

static std::ostream& operator<<(std::ostream& out, const SavedCharacter& each)
{
    return out << "U+" << std::hex << static_cast<unsigned>(each.unit) << std::dec << ' ' << each.fontName
               << ' ' << each.halfPoints << (each.bold ? " bold" : "") << (each.italic ? " italic" : "")
               << (each.strikeThrough ? " struck" : "") << (each.hidden ? " hidden" : "") << ' '
               << each.underline << " color(" << each.color << ") " << each.characterStyle << " in "
               << each.paragraphStyle << ' ' << each.alignment;
}

namespace {

std::string narrow(std::u16string_view text)
{
    std::string result;
    for (const char16_t c : text)
        result += static_cast<char>(c);
    return result;
}

std::string styleName(const Style* style)
{
    return style ? narrow(foldCase(style->name())) : "";
}

std::string underlineWordOf(std::int32_t kind)
{
    static const std::array<std::string, 5> words = {"", "ul", "ulw", "uldb", "uld"};
    return words.at(static_cast<std::size_t>(kind));
}

std::string colorWordsOf(std::int32_t color)
{
    return color == FontProperties::automaticColor
               ? ""
               : std::to_string(color & 255) + "," + std::to_string(color >> 8 & 255) + "," +
                     std::to_string(color >> 16 & 255);
}

/// What the file should say of the character at `at`.
SavedCharacter modelledCharacter(const Story& story, Position at)
{
    const FontProperties font = story.effectiveFont(at);
    const ParagraphFormat& paragraph = *story.paragraphAt(at).format;
    ParagraphProperties properties = paragraph.style->resolvedParagraph();
    properties.overlay(paragraph.properties);
    return {.unit = story.at(at),
            .fontName = narrow(font.name.value()),
            .halfPoints = static_cast<std::int32_t>(font.size.value() * 2),
            .bold = font.bold.value(),
            .italic = font.italic.value(),
            .strikeThrough = font.strikeThrough.value(),
            .hidden = font.hidden.value(),
            .underline = underlineWordOf(font.underline.value()),
            .color = colorWordsOf(font.color.value()),
            .characterStyle = styleName(story.runAt(at).format->style),
            .paragraphStyle = styleName(paragraph.style),
            .alignment =
                std::array{"ql", "qc", "qr", "qj"}[static_cast<std::size_t>(properties.alignment.value())]};
}

/// Characters of which a file does not say how they look: a row's mark, a field's second and third one.
bool isWithoutFormat(const Story& story, Position at)
{
    return story.at(at) == mark::fieldSeparator || story.at(at) == mark::fieldEnd ||
           story.paragraphAt(at).format->end == ParagraphEnd::row;
}

class RtfFormattingTest : public RtfTest
{
protected:
    void expectFormatting(const Story& story, SavedStory saved)
    {
        ASSERT_EQ(static_cast<Position>(saved.characters.size()), story.length());
        for (Position at = 0; at < story.length(); ++at) {
            SavedCharacter& character = saved.characters[static_cast<std::size_t>(at)];
            character.characterStyle = narrow(foldCase(widen(character.characterStyle)));
            character.paragraphStyle = narrow(foldCase(widen(character.paragraphStyle)));
            ASSERT_EQ(character.unit, story.at(at)) << "at " << at;
            const bool hasFormat = !isWithoutFormat(story, at);
            ASSERT_EQ(character, hasFormat ? modelledCharacter(story, at) : character) << "at " << at;
        }
    }

    /// Compares what the file says of every character with the model.
    void expectFormattingInFile()
    {
        std::vector<std::shared_ptr<Story>> stories = {document->mainStory()};
        for (std::int32_t section = 1; section <= document->sectionCount(); ++section) {
            for (const auto part : {Section::Part::header, Section::Part::footer})
                if (auto story = document->section(section)->ownStory(part, HeaderFooterIndex::primary))
                    stories.push_back(std::move(story));
        }
        std::vector<SavedStory> saved = readSavedFormatting(rtf());
        ASSERT_EQ(saved.size(), stories.size());
        for (std::size_t i = 0; i < stories.size(); ++i) {
            SCOPED_TRACE(saved[i].part);
            expectFormatting(*stories[i], std::move(saved[i]));
        }
    }

private:
    static std::u16string widen(std::string_view text) { return {text.begin(), text.end()}; }
};

/// Changes a document as clients do, here and there.
class RandomEdits
{
public:
    RandomEdits(Document& document, std::uint32_t seed) : document_(document), engine_(seed) {}

    void edit()
    {
        try {
            LiveRange range = anyRange();
            change(range);
        } catch (const WordError&) {
            // Not every place takes every change.
        } catch (const NotSupported&) {
        }
    }

private:
    std::size_t below(std::size_t count) { return engine_() % count; }
    bool either() { return below(2) == 0; }

    LiveRange anyRange()
    {
        std::shared_ptr<Story> story = document_.mainStory();
        if (below(5) == 0) {
            const auto part = either() ? Section::Part::header : Section::Part::footer;
            const auto section =
                static_cast<std::int32_t>(1 + below(static_cast<std::size_t>(document_.sectionCount())));
            story = document_.section(section)->story(part, HeaderFooterIndex::primary);
        }
        const auto length = static_cast<std::size_t>(story->length());
        const auto start = static_cast<Position>(below(length));
        const auto end = std::min(story->length(), start + static_cast<Position>(below(12)));
        const Paragraph paragraph = story->paragraphAt(start);
        const bool inTables = paragraph.format->inTable || story->paragraphAt(end).format->inTable;
        // Edits across the borders of cells are for the model's own tests.
        return {story, start, inTables ? std::min(end, paragraph.end - 1) : end};
    }

    std::u16string anyText()
    {
        static constexpr std::u16string_view units = u"abcdefgh  \t\v\f\r\\{}\u00e9\u20ac\u00a0\x1e\x1f";
        std::u16string text;
        for (std::size_t count = 1 + below(8); count > 0; --count)
            text += units[below(units.size())];
        return text;
    }

    FontProperties anyFont()
    {
        static const std::array<std::u16string, 4> names = {u"Arial", u"Courier New", u"Tahoma", u"Odd"};
        FontProperties font;
        switch (below(8)) {
        case 0:
            font.name = names[below(names.size())];
            break;
        case 1:
            font.size = static_cast<float>(16 + below(20)) / 2;
            break;
        case 2:
            font.bold = either();
            break;
        case 3:
            font.italic = either();
            break;
        case 4:
            font.strikeThrough = either();
            break;
        case 5:
            font.underline = static_cast<std::int32_t>(below(5));
            break;
        case 6:
            font.hidden = either();
            break;
        default:
            font.color = either() ? 0x1020FF : FontProperties::automaticColor;
        }
        return font;
    }

    void setStyle(LiveRange& range)
    {
        static constexpr std::array<std::int32_t, 9> styles = {-1,
                                                               -2,
                                                               -3,
                                                               -4,
                                                               -67, // Normal, headings, Body Text
                                                               Styles::defaultParagraphFont,
                                                               -86, // Hyperlink
                                                               -88,
                                                               -89}; // Strong, Emphasis
        range.setStyle(styles[below(styles.size())]);
    }

    void change(LiveRange& range)
    {
        switch (below(14)) {
        case 0:
            addHyperlink(range, {u"http://a/{b}", u""});
            break;
        case 1:
            addHyperlink(range, {u"", u"mark"});
            break;
        case 2:
            addField(range, either() ? FieldRequest{.type = 29} : FieldRequest{.type = 9, .text = u"\"e\""});
            break;
        case 3:
            document_.bookmarks().add(either() ? u"b1" : u"b2", range);
            break;
        case 4:
            setStyle(range);
            break;
        case 5:
            range.setParagraphFormat({.alignment = static_cast<Alignment>(below(4))});
            break;
        case 6:
            rare(range);
            break;
        case 7:
        case 8:
        case 9:
            range.insertAfter(anyText());
            break;
        default:
            range.setFont(anyFont());
        }
    }

    void rare(LiveRange& range)
    {
        switch (below(5)) {
        case 0:
            Table::add(range, 2, 2);
            break;
        case 1:
            addTableOfContents(range, {.useFields = true});
            break;
        case 2:
            range.insertBreak(BreakType::sectionNextPage);
            break;
        case 3:
            range.remove();
            break;
        default:
            for (const Field& each : fieldsIn({range.storyPtr(), 0, range.story().length()}))
                each.result().setFont(anyFont());
        }
    }

    Document& document_;
    std::mt19937 engine_; // the standard fixes what it gives
};

TEST_F(RtfFormattingTest, EveryRandomDocumentIsSavedAsItIsFormatted)
{
    for (std::uint32_t seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        document = Document::make(u"Document1");
        write(u"one two three\rfour five\r");
        RandomEdits edits(*document, seed);
        for (int i = 0; i < 60; ++i)
            edits.edit();
        ASSERT_EQ(checkInvariants(*document), "");
        ASSERT_NO_FATAL_FAILURE(expectFormattingInFile());
    }
}

TEST_F(RtfFormattingTest, ALinkIsNotFormattedAsTheRunInFrontOfIt)
{
    write(u"struck link");
    range(0, 7).setFont(
        {.bold = true, .italic = true, .strikeThrough = true, .hidden = true, .underline = 1});
    range(7, 11).setFont({.name = u"Arial"});
    addHyperlink(range(7, 11), {u"http://a", u""});
    ASSERT_TRUE(document->mainStory()->effectiveFont(7).strikeThrough.value())
        << "the field's first character";
    expectFormattingInFile();
}

TEST_F(RtfFormattingTest, AnotherFieldsCodeIsNotFormattedAsTheFieldAroundIt)
{
    write(u"ab");
    const Field field = addField(range(1, 1), {.type = 29});
    const Position begin = field.place().begin;
    range(begin, begin + 1).setFont({.strikeThrough = true});
    addField(field.code(), {.type = 33});
    expectFormattingInFile();
}

} // namespace
} // namespace standin::rtf
