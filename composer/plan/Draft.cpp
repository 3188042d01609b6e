#include "Draft.h"

#include "Flow.h"

namespace compose {

// As paragraphs the cells come one behind the other. Nothing comes to a cell any more once there is one
// behind it.
DraftStep goOnWith(const Draft& draft, const Passage::Cell& cell, const Source& source, StyleSheet& styles)
{
    const auto& table = std::get<Table>(source.blocks.front());
    Flow flow(source, styles, source.ground, Flow::Within::story);
    std::size_t column = draft.cell.column;
    for (std::size_t row = draft.cell.row; row <= cell.row; ++row) {
        const std::size_t past = row == cell.row ? cell.column + 1 : table.columns();
        for (; column < past; ++column)
            flow.add(table.rows[row][column].front());
        column = 0;
    }
    const std::u16string& text = flow.text();
    const auto lengthOf = [](std::size_t length) { return static_cast<Position>(length); };
    const std::size_t lastEnd = text.rfind(u'\r');
    const std::size_t inCell = lastEnd == text.npos ? text.size() : text.size() - lastEnd - 1;
    return {{draft.length - draft.inCell + lengthOf(text.size()), cell, lengthOf(inCell)},
            text.substr(static_cast<std::size_t>(draft.inCell))};
}

} // namespace compose
