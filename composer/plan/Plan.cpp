#include "Plan.h"

#include "DirectAlignment.h"
#include "Flow.h"

#include <algorithm>

namespace compose {

namespace {

class Planner
{
public:
    Planner(const Source& source, StyleSheet& styles) : source_(source), styles_(styles) {}

    Plan make()
    {
        std::size_t first = 0;
        if (const auto* const table = std::get_if<Table>(&source_.blocks.front());
            table && table->writtenRows > 0) {
            extend(*table);
            first = 1;
        }
        plan_.after = source_.ground;
        writeFrom(first);
        return std::move(plan_);
    }

private:
    /// What has come to a table that is in Word already.
    void extend(const Table& table)
    {
        const std::size_t before = table.writtenRows - 1;
        const bool isWider = table.columns() > table.writtenColumns;
        const bool hasHeights = std::ranges::any_of(table.heights, [](int height) { return height != 0; });
        if (isWider || table.rows.size() > 1 || hasHeights)
            plan_.passages.push_back({{},
                                      {ExtendTable{table.columns(), before + table.rows.size(),
                                                   table.writtenRows, table.heights, table.writtenColumns}}});
        for (std::size_t row = 0; row < table.rows.size(); ++row) {
            for (std::size_t column = 0; column < table.columns(); ++column) {
                const Cell& cell = table.rows[row][column];
                Flow flow(source_, styles_, row > 0 ? Ground() : groundOf(cell.front()), Flow::Within::cell);
                for (const Paragraph& paragraph : cell)
                    flow.add(paragraph);
                Passage passage{Passage::Cell{before + row, column}};
                flow.plan(passage.operations);
                if (!passage.operations.empty())
                    plan_.passages.push_back(std::move(passage));
            }
        }
    }

    /// Of a cell in a row that is there; where its column is new, it looks like its neighbour.
    Ground groundOf(const Paragraph& paragraph)
    {
        return {.alignment = directAlignment(paragraph, styles_),
                .isAlignmentKnown = paragraph.isAligned,
                .isPlain = false};
    }

    void writeFrom(std::size_t first)
    {
        Flow flow(source_, styles_, source_.ground, Flow::Within::story);
        for (std::size_t i = first; i < source_.blocks.size(); ++i)
            if (const auto* const paragraph = std::get_if<Paragraph>(&source_.blocks[i]))
                flow.add(*paragraph);
            else
                flow.add(std::get<Table>(source_.blocks[i]));
        if (!source_.endsOpen)
            flow.close();
        Passage passage{.drafted = source_.drafted};
        flow.plan(passage.operations, source_.drafted.value_or(0));
        if (!passage.operations.empty())
            plan_.passages.push_back(std::move(passage));
        plan_.after = flow.groundBehind();
    }

    const Source& source_;
    StyleSheet& styles_;
    Plan plan_;
};

} // namespace

std::size_t Plan::operationCount() const
{
    std::size_t count = 0;
    for (const Passage& passage : passages)
        count += passage.operations.size();
    return count;
}

Plan planOf(const Source& source, StyleSheet& styles)
{
    return Planner(source, styles).make();
}

} // namespace compose
