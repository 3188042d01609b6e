#include "StoryCopy.h"

#include "InlineShape.h"

namespace standin::model {

namespace {

/// Inserts the paragraph's text and its end; the formatting follows when everything is in place.
void copyParagraph(const Story& from, const Paragraph& paragraph, Story& to)
{
    const Position at = to.length() - 1;
    to.insertPart(at, from.text(paragraph.start, paragraph.end - 1));
    to.insertParagraphEnd(to.length() - 1, from.at(paragraph.end - 1), paragraph.format->end);
}

/// A copy of a picture can be resized without the original.
CharacterFormat copyOf(CharacterFormat format)
{
    if (format.shape)
        format.shape = std::make_shared<InlineShape>(*format.shape);
    return format;
}

} // namespace

void copyStory(const Story& from, Story& to)
{
    const std::size_t last = from.paragraphCount() - 1;
    for (std::size_t i = 0; i < last; ++i)
        copyParagraph(from, from.paragraph(i), to);
    to.insertPart(to.length() - 1, from.text(from.paragraph(last).start, from.length() - 1));
    to.enterFields(0, to.length());
    for (std::size_t i = 0; i <= last; ++i)
        to.setParagraphFormat(i, *from.paragraph(i).format);
    for (std::size_t i = 0; i < from.runCount(); ++i) {
        const CharacterRun run = from.run(i);
        to.setCharacterFormat(run.start, run.end, copyOf(*run.format));
    }
}

} // namespace standin::model
