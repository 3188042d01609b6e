#include "Erasure.h"

#include "TableSpans.h"

#include <algorithm>
#include <vector>

namespace standin::model {

namespace {

struct Stretch
{
    Position start;
    Position end;
};

/// Collects the stretches of a range that may go, by taking the marks that stay out of it.
class Stretches
{
public:
    Stretches(Position start, Position end) : at_(start), end_(end) {}

    void keep(Position mark)
    {
        add(mark);
        at_ = mark + 1;
    }

    std::vector<Stretch> finish()
    {
        add(end_);
        return std::move(stretches_);
    }

private:
    void add(Position end)
    {
        if (at_ < end)
            stretches_.push_back({at_, end});
    }

    Position at_;
    Position end_;
    std::vector<Stretch> stretches_;
};

bool liesInOneTable(const Story& story, Position start, Position end)
{
    for (Position at = start; at < end; at = story.paragraphAt(at).end)
        if (!isInTable(story, at))
            return false;
    return true;
}

bool coversRow(const Story& story, std::size_t paragraph, Position start, Position end)
{
    const ParagraphSpan row = rowAt(story, paragraph);
    return start <= startOf(story, row) && endOf(story, row) <= end;
}

/// The part of [start,end) that goes; `end` at most the place before the final mark, `reach` where the whole
/// range ends.
std::vector<Stretch> stretchesToErase(const Story& story, Position start, Position end, Position reach)
{
    Stretches stretches(start, end);
    const bool inOneTable = liesInOneTable(story, start, reach);
    for (Position at = start; at < end;) {
        const std::size_t index = story.paragraphIndexAt(at);
        const Paragraph paragraph = story.paragraph(index);
        const ParagraphEnd kind = paragraph.format->end;
        const bool structure = kind == ParagraphEnd::cell || kind == ParagraphEnd::row;
        if (structure && paragraph.end <= end && (inOneTable || !coversRow(story, index, start, end)))
            stretches.keep(paragraph.end - 1);
        at = paragraph.end;
    }
    return stretches.finish();
}

/// Text outside of tables cannot run on into a cell.
bool joinsTextAndCell(const Story& story, const Stretch& stretch)
{
    const Paragraph before = story.paragraphAt(stretch.start);
    return before.start < stretch.start && stretch.end >= before.end && !before.format->inTable &&
           isInTable(story, stretch.end);
}

/// Returns where text belongs that is to stand in place of the stretch.
Position erase(Story& story, const Stretch& stretch)
{
    if (!joinsTextAndCell(story, stretch))
        return story.erase(stretch.start, stretch.end);
    const Position mark = story.paragraphAt(stretch.start).end - 1;
    story.erase(mark + 1, stretch.end);
    return story.erase(stretch.start, mark);
}

} // namespace

Erased eraseContent(Story& story, Position start, Position end)
{
    const std::vector<Stretch> stretches =
        stretchesToErase(story, start, std::min(end, story.length() - 1), end);
    const Position before = story.length();
    Position place = start;
    for (auto stretch = stretches.rbegin(); stretch != stretches.rend(); ++stretch) {
        const Position behind = erase(story, *stretch);
        place = stretch->start == start ? behind : start;
    }
    return {before - story.length(), place};
}

} // namespace standin::model
