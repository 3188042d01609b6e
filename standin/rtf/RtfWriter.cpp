#include "RtfWriter.h"

#include "RtfBookmarks.h"
#include "RtfDocumentTables.h"
#include "RtfFields.h"
#include "RtfObjects.h"
#include "RtfPageWords.h"
#include "RtfParagraphWords.h"
#include "RtfPictures.h"
#include "RtfTables.h"
#include "RtfText.h"
#include "TableSpans.h"
#include "VisibleText.h"

#include <algorithm>
#include <optional>

namespace standin::rtf {

namespace {

using namespace model;

std::string shapeText(const InlineShape& shape)
{
    return shape.isObject() ? objectText(shape) : pictureText(shape);
}

class Writer
{
public:
    explicit Writer(const Document& document) : document_(document), tables_(document) {}

    std::string write()
    {
        // The body comes first, because it decides which fonts and colours the tables in front of it hold.
        const std::string sheet = tables_.styleSheet();
        const std::string body = sections();
        return "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0\\deflang1033\n" + tables_.fontTable() +
               tables_.colorTable() + sheet + documentPageWords(document_.section(1)->pageSetup) + "\n" +
               body + "}\n";
    }

private:
    std::string sections()
    {
        std::string rtf;
        StoryState body(*document_.mainStory());
        for (std::int32_t index = 1; index <= document_.sectionCount(); ++index) {
            const SectionPtr section = document_.section(index);
            rtf += sectionPageWords(section->pageSetup, index == 1) + "\n" + headersAndFooters(*section);
            rtf += paragraphs(body, document_.sectionStart(index), document_.sectionEnd(index));
            rtf += index < document_.sectionCount() ? "\\sect\n" : "";
        }
        return rtf;
    }

    std::string headersAndFooters(const Section& section)
    {
        std::string rtf;
        for (const auto part : {Section::Part::header, Section::Part::footer}) {
            const std::string word = part == Section::Part::header ? "\\header" : "\\footer";
            const bool evenPages = section.pageSetup.oddAndEvenPages;
            rtf += headerOrFooter(section, part, HeaderFooterIndex::primary, evenPages ? word + "r" : word);
            if (section.pageSetup.differentFirstPage)
                rtf += headerOrFooter(section, part, HeaderFooterIndex::firstPage, word + "f");
            if (evenPages)
                rtf += headerOrFooter(section, part, HeaderFooterIndex::evenPages, word + "l");
        }
        return rtf;
    }

    std::string headerOrFooter(const Section& section, Section::Part part, HeaderFooterIndex index,
                               const std::string& word)
    {
        const auto story = section.ownStory(part, index);
        if (!story)
            return "";
        StoryState state(*story);
        return "{" + word + paragraphs(state, 0, story->length()) + "}\n";
    }

    struct OpenField
    {
        Position begin;
        Position resultStart; ///< 0 as long as its code is written
        bool isInCode;        ///< of another field
    };

    /// What is open while a story is written.
    struct StoryState
    {
        explicit StoryState(const Story& written) : story(written), bookmarks(written) {}

        const Story& story;
        BookmarkWriter bookmarks;
        std::vector<OpenField> fields;
    };

    std::string paragraphs(StoryState& state, Position start, Position end)
    {
        const Story& story = state.story;
        std::string rtf;
        for (Position at = start; at < end;) {
            const std::size_t index = story.paragraphIndexAt(at);
            const Paragraph paragraph = story.paragraph(index);
            if (startsRow(story, index))
                rtf += rowStart(story, rowAt(story, index));
            else if (!paragraph.format->inTable)
                heading_ = nullptr;
            if (paragraph.format->end != ParagraphEnd::row)
                rtf += paragraphStart(*paragraph.format) + runs(state, paragraph);
            rtf += paragraphEnd(paragraph.format->end);
            at = paragraph.end;
        }
        return rtf + (end == story.length() ? state.bookmarks.bordersUpTo(end) : "");
    }

    std::string rowStart(const Story& story, const ParagraphSpan& row)
    {
        const RowFormat& format = formatOf(story, row);
        const auto isTableAt = [&](std::size_t paragraph) {
            return paragraph < story.paragraphCount() && story.paragraph(paragraph).format->inTable;
        };
        const bool isFirst = row.first == 0 || !isTableAt(row.first - 1);
        RowPlace place{.isFirst = isFirst, .isLast = !isTableAt(row.past)};
        if (!isFirst) {
            const ParagraphSpan before = rowEndingAt(story, row.first - 1);
            place.isSecond = before.first == 0 || !isTableAt(before.first - 1);
        }
        heading_ = isFirst && format.style ? &format.style->table.headingFont : nullptr;
        return rowDefinition(format, place, tables_.rowNumbers(format.style));
    }

    static bool startsRow(const Story& story, std::size_t paragraph)
    {
        if (!story.paragraph(paragraph).format->inTable)
            return false;
        const ParagraphFormat* before = paragraph > 0 ? story.paragraph(paragraph - 1).format : nullptr;
        return !before || !before->inTable || before->end == ParagraphEnd::row;
    }

    static std::string_view paragraphEnd(ParagraphEnd end)
    {
        switch (end) {
        case ParagraphEnd::mark:
            return "\\par\n";
        case ParagraphEnd::cell:
            return "\\cell\n";
        case ParagraphEnd::row:
            return "\\row\n";
        case ParagraphEnd::section:
            break;
        }
        return "";
    }

    std::string paragraphStart(const ParagraphFormat& format)
    {
        ParagraphProperties properties = format.style->resolvedParagraph();
        properties.overlay(format.properties);
        return std::string("\\pard\\plain") + (format.inTable ? "\\intbl" : "") +
               control("\\s", tables_.number(*format.style)) + paragraphWords(properties);
    }

    /// The paragraph's characters; the last stretch stays open, so that the mark takes its formatting.
    std::string runs(StoryState& state, const Paragraph& paragraph)
    {
        const Story& story = state.story;
        std::string rtf;
        for (Position at = paragraph.start; at < paragraph.end;) {
            const CharacterRun run = story.runAt(at);
            const Position past = behindPair(story, std::min(run.end, paragraph.end));
            const Position textEnd = std::min(past, paragraph.end - 1);
            const std::string font = runStart(*paragraph.format, *run.format);
            at = writeMarked(rtf, state, paragraph, {at, textEnd, font});
            if (at > past)
                continue;
            const std::string text =
                run.format->shape ? shapeText(*run.format->shape) : escapeText(story.text(at, textEnd));
            if (past == paragraph.end)
                rtf += font + " " + text + state.bookmarks.bordersUpTo(textEnd);
            else if (at < textEnd)
                rtf += "{" + font + " " + text + "}";
            at = past;
        }
        return rtf;
    }

    struct Stretch
    {
        Position start;
        Position end;
        const std::string& font;
    };

    /// Writes the stretch up to behind the last of its field characters and borders of bookmarks; returns
    /// where the rest begins.
    Position writeMarked(std::string& rtf, StoryState& state, const Paragraph& paragraph,
                         const Stretch& stretch)
    {
        const Story& story = state.story;
        Position at = stretch.start;
        for (;;) {
            rtf += state.bookmarks.bordersUpTo(at);
            const Position mark = story.fields().nextMark(at).value_or(stretch.end);
            const Position border = state.bookmarks.next();
            const Position next = border < mark ? behindPair(story, border) : mark;
            if (next >= stretch.end)
                return at;
            if (at < next)
                rtf += "{" + stretch.font + " " + escapeText(story.text(at, next)) + "}";
            at = next;
            if (const auto object = at == mark ? objectField(story, at) : std::nullopt) {
                const Position shape = object->resultStart();
                rtf += "{" + stretch.font + shapeText(*story.runAt(shape).format->shape) + "}";
                at = object->past();
            } else if (at == mark) {
                rtf += state.bookmarks.bordersUpTo(at) + fieldCharacter(state, paragraph, at, stretch.font);
                ++at;
            }
        }
    }

    /// The field that begins at `begin`, if it is one that stands around an object: an object's RTF says as
    /// much.
    static std::optional<FieldPlace> objectField(const Story& story, Position begin)
    {
        const std::vector<FieldPlace> fields = story.fields().startingIn(begin, begin + 1);
        if (fields.empty() || fields.front().end != fields.front().resultStart() + 1)
            return std::nullopt;
        const FieldPlace& field = fields.front();
        const InlineShape* shape = story.runAt(field.resultStart()).format->shape.get();
        const bool fits = shape && shape->isObject() &&
                          story.text(field.codeStart(), field.codeEnd()) == objectFieldCode(*shape);
        return fits ? std::optional(field) : std::nullopt;
    }

    std::string fieldCharacter(StoryState& state, const Paragraph& paragraph, Position at,
                               const std::string& font)
    {
        if (state.story.at(at) == mark::fieldBegin) {
            const bool isInCode = !state.fields.empty() && state.fields.back().resultStart == 0;
            state.fields.push_back({at, 0, isInCode});
            return (isInCode ? codeFieldBegin() : "") + fieldBegin(font);
        }
        OpenField& field = state.fields.back();
        // What was said of the paragraph inside a group ends with it.
        const std::string again = field.begin < paragraph.start ? paragraphStart(*paragraph.format) : "";
        if (state.story.at(at) == mark::fieldSeparator) {
            field.resultStart = at + 1;
            return std::string(fieldSeparator()) + again;
        }
        std::string rtf(fieldEnd());
        if (field.isInCode) {
            const Position resultStart = field.resultStart == 0 ? at : field.resultStart;
            rtf += codeFieldEnd(visibleText(state.story, resultStart, at));
        }
        state.fields.pop_back();
        return rtf + again;
    }

    /// A surrogate pair is one character to the reader, so it is not cut where formatting changes inside it.
    static Position behindPair(const Story& story, Position at)
    {
        const bool cutsPair =
            at < story.length() && (story.at(at - 1) & 0xFC00) == 0xD800 && (story.at(at) & 0xFC00) == 0xDC00;
        return cutsPair ? at + 1 : at;
    }

    std::string runStart(const ParagraphFormat& paragraph, const CharacterFormat& format)
    {
        const std::string style = format.style ? control("\\cs", tables_.number(*format.style)) : "";
        FontProperties font = Story::effectiveFont(paragraph, format);
        // Readers go by what is said of the text, and not by its table's style.
        if (heading_ && !format.font.bold && heading_->bold)
            font.bold = heading_->bold;
        if (heading_ && !format.font.color && !(format.style && format.style->font.color) && heading_->color)
            font.color = heading_->color;
        return style + tables_.fontWords(font);
    }

    const Document& document_;
    DocumentTables tables_;
    const FontProperties* heading_ = nullptr; ///< of the row in hand, if it is a table's first one
};

} // namespace

std::string writeRtf(const Document& document)
{
    return Writer(document).write();
}

} // namespace standin::rtf
