#include "RtfRowReader.h"

#include "TableMarks.h"
#include "TableSpans.h"

namespace standin::rtf {

using namespace model;

void RowReader::takeParagraph(Story& story)
{
    const std::size_t paragraph = story.paragraphCount() - 2;
    ParagraphFormat format = *story.paragraph(paragraph).format;
    format.inTable = true;
    story.setParagraphFormat(paragraph, format);
    isOpen_ = true;
}

void RowReader::endCell(Story& story, Position at, const CharacterFormat& format)
{
    story.insertParagraphEnd(at, mark::cell, ParagraphEnd::cell);
    story.setCharacterFormat(at, at + 1, format);
    takeParagraph(story);
    ++cells_;
}

void RowReader::end(Story& story, Position at, const StyleSheetReader& styles)
{
    if (!isCellMark(story, at - 1)) {
        insertCellMark(story, at, story.paragraphIndexAt(at - 1));
        ++at;
        ++cells_;
    }
    RowFormat format = definition_.format(cells_);
    format.style = styles.style(definition_.style(), StyleType::table);
    insertRowMark(story, at, format);
    isOpen_ = false;
    cells_ = 0;
}

} // namespace standin::rtf
