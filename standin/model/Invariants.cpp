#include "Invariants.h"

#include "TableFormats.h"

namespace standin::model {

namespace {

std::string checkParagraph(const Story& story, std::size_t index)
{
    const Paragraph paragraph = story.paragraph(index);
    if (paragraph.start >= paragraph.end || paragraph.end > story.length())
        return "paragraph " + std::to_string(index) + " is empty or leaves the story";
    if (!paragraph.format->style || paragraph.format->style->type() != StyleType::paragraph)
        return "paragraph " + std::to_string(index) + " has no paragraph style";
    for (Position at = paragraph.start; at < paragraph.end - 1; ++at)
        if (story.at(at) == mark::paragraph || story.at(at) == mark::cell)
            return "a mark inside paragraph " + std::to_string(index);
    const char16_t last = story.at(paragraph.end - 1);
    const ParagraphEnd kind = paragraph.format->end;
    const bool fits = (kind == ParagraphEnd::mark && last == mark::paragraph) ||
                      (kind == ParagraphEnd::section && last == mark::page) ||
                      ((kind == ParagraphEnd::cell || kind == ParagraphEnd::row) && last == mark::cell);
    return fits ? "" : "paragraph " + std::to_string(index) + " does not end on its mark";
}

/// Between two rows stand only whole rows: cells, each ended by its mark, and the row's own mark.
std::string checkTables(const Story& story)
{
    std::size_t cells = 0;
    bool inCell = false;
    for (std::size_t i = 0; i < story.paragraphCount(); ++i) {
        const Paragraph paragraph = story.paragraph(i);
        const ParagraphFormat& format = *paragraph.format;
        const std::string where = "paragraph " + std::to_string(i);
        if (!format.inTable && (inCell || cells > 0))
            return where + " interrupts a row";
        if ((format.end == ParagraphEnd::row) != (format.row != nullptr))
            return where + " is no row and formatted as one, or a row without its format";
        switch (format.end) {
        case ParagraphEnd::mark:
        case ParagraphEnd::section:
            inCell = format.inTable;
            if (inCell && format.end == ParagraphEnd::section)
                return where + " ends a section inside a table";
            break;
        case ParagraphEnd::cell:
            if (!format.inTable)
                return where + " ends a cell outside of tables";
            ++cells;
            inCell = false;
            break;
        case ParagraphEnd::row:
            if (inCell || cells == 0 || paragraph.end - paragraph.start != 1 || !format.inTable)
                return where + " ends a row that is not whole";
            if (format.row->style && format.row->style->type() != StyleType::table)
                return where + " ends a row whose style is not one of tables";
            if (format.row->cells.size() != cells)
                return where + " has a format for another number of cells";
            cells = 0;
            break;
        }
    }
    return inCell || cells > 0 ? "the story ends inside a row" : "";
}

std::string checkRuns(const Story& story)
{
    for (std::size_t i = 0; i < story.runCount(); ++i) {
        const CharacterRun run = story.run(i);
        if (run.start >= run.end)
            return "run " + std::to_string(i) + " is empty";
        if (run.format->style && run.format->style->type() != StyleType::character)
            return "run " + std::to_string(i) + " has a paragraph style";
        if (run.format->shape && (run.end - run.start != 1 || story.at(run.start) != mark::picture))
            return "run " + std::to_string(i) + " is a picture and not its one character";
        if (i > 0 && *story.run(i - 1).format == *run.format)
            return "runs " + std::to_string(i - 1) + " and " + std::to_string(i) + " are alike";
    }
    return story.run(story.runCount() - 1).end == story.length() ? "" : "the runs do not end with the story";
}

std::string checkStory(const Story& story)
{
    if (story.length() < 1 || story.at(story.length() - 1) != mark::paragraph)
        return "no final paragraph mark";
    for (std::size_t i = 0; i < story.paragraphCount(); ++i)
        if (std::string wrong = checkParagraph(story, i); !wrong.empty())
            return wrong;
    if (story.paragraph(story.paragraphCount() - 1).end != story.length())
        return "the paragraphs do not end with the story";
    if (std::string wrong = checkTables(story); !wrong.empty())
        return wrong;
    if (std::string wrong = checkRuns(story); !wrong.empty())
        return wrong;
    if (!story.fields().match(story.text(0, story.length())))
        return "fields without their characters, or characters without their field";
    return story.endpoints().isConsistent() ? "" : "endpoints leave the story or are out of order";
}

std::string checkSections(const Document& document)
{
    std::int32_t marks = 0;
    const Story& story = *document.mainStory();
    for (std::size_t i = 0; i < story.paragraphCount(); ++i) {
        const Paragraph paragraph = story.paragraph(i);
        if (paragraph.format->end == ParagraphEnd::section) {
            ++marks;
            if (marks >= document.sectionCount() || document.sectionEnd(marks) != paragraph.end)
                return "section mark at " + std::to_string(paragraph.end - 1) + " ends no section";
        }
    }
    return marks + 1 == document.sectionCount() ? "" : "a section without its mark";
}

std::string checkHeaders(const Document& document)
{
    for (std::int32_t number = 1; number <= document.sectionCount(); ++number) {
        const SectionPtr section = document.section(number);
        for (const auto part : {Section::Part::header, Section::Part::footer}) {
            for (const auto index :
                 {HeaderFooterIndex::primary, HeaderFooterIndex::firstPage, HeaderFooterIndex::evenPages}) {
                const auto story = section->ownStory(part, index);
                if (std::string wrong = story ? checkStory(*story) : ""; !wrong.empty())
                    return "header or footer of section " + std::to_string(number) + ": " + wrong;
            }
        }
    }
    return "";
}

std::string checkBookmarks(const Document& document)
{
    for (const BookmarkPtr& bookmark : document.bookmarks().all()) {
        const LiveRange& range = bookmark->range();
        const bool inside = range.start() <= range.end() && range.end() <= range.story().length();
        if (!inside || document.bookmarks().find(bookmark->name()) != bookmark)
            return "a bookmark outside its story or not found by its name";
    }
    return "";
}

} // namespace

std::string checkInvariants(const Document& document)
{
    for (const std::string& wrong : {checkStory(*document.mainStory()), checkSections(document),
                                     checkHeaders(document), checkBookmarks(document)})
        if (!wrong.empty())
            return wrong;
    return "";
}

} // namespace standin::model
