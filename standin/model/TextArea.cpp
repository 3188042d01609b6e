#include "TextArea.h"

#include "Document.h"
#include "TableSpans.h"

#include <algorithm>

namespace standin::model {

namespace {

/// Least room that is taken to be there, whatever margins and widths say.
constexpr float least = 1;

float cellWidth(const Story& story, Position position)
{
    const std::size_t paragraph = story.paragraphIndexAt(position);
    const ParagraphSpan row = rowAt(story, paragraph);
    const std::vector<ParagraphSpan> cells = cellsOf(story, row);
    const auto mine = std::find_if(cells.begin(), cells.end(),
                                   [paragraph](const ParagraphSpan& cell) { return paragraph < cell.past; });
    const std::size_t index = std::min(static_cast<std::size_t>(mine - cells.begin()), cells.size() - 1);
    return formatOf(story, row).cells[index].width - 2 * RowFormat::padding;
}

} // namespace

TextArea textAreaAt(const Story& story, Position position)
{
    const PageSetup& setup = story.document().sectionOf(story, position)->pageSetup;
    TextArea area{setup.pageWidth - setup.leftMargin - setup.rightMargin,
                  setup.pageHeight - setup.topMargin - setup.bottomMargin};
    if (isInTable(story, position))
        area.width = cellWidth(story, position);
    return {std::max(area.width, least), std::max(area.height, least)};
}

} // namespace standin::model
