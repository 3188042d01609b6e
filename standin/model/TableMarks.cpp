#include "TableMarks.h"

namespace standin::model {

void insertCellMark(Story& story, Position at, std::size_t pattern)
{
    const Paragraph like = story.paragraph(pattern);
    ParagraphFormat format = *like.format;
    const CharacterFormat characters = *story.runAt(like.end - 1).format;
    format.end = ParagraphEnd::cell;
    format.inTable = true;
    format.row.reset();
    story.insertParagraphEnd(at, mark::cell, ParagraphEnd::cell);
    story.setParagraphFormat(story.paragraphIndexAt(at), format);
    story.setCharacterFormat(at, at + 1, characters);
}

void insertRowMark(Story& story, Position at, const RowFormat& format)
{
    ParagraphFormat paragraph = *story.paragraphAt(at - 1).format;
    const CharacterFormat characters = *story.runAt(at - 1).format;
    paragraph.end = ParagraphEnd::row;
    paragraph.row = std::make_shared<const RowFormat>(format);
    story.insertParagraphEnd(at, mark::cell, ParagraphEnd::row);
    story.setParagraphFormat(story.paragraphIndexAt(at), paragraph);
    story.setCharacterFormat(at, at + 1, characters);
}

void setRowFormat(Story& story, std::size_t mark, const RowFormat& format)
{
    ParagraphFormat paragraph = *story.paragraph(mark).format;
    paragraph.row = std::make_shared<const RowFormat>(format);
    story.setParagraphFormat(mark, paragraph);
}

} // namespace standin::model
