// Throws sequences of edits at a document and at a plain text that follows the same rules, and compares
// them.
#include "EditedRanges.h"

#include "Table.h"
#include "WordError.h"

#include <algorithm>
#include <vector>

namespace {

using namespace standin::model;

constexpr std::size_t madeBytes = 400;

/// One character and, when it ends a paragraph, what it is: P paragraph, S section, C cell, R row.
struct NaiveCharacter
{
    char16_t unit;
    char ends = 0;
    bool inTable = false; ///< of the paragraph that the character ends
};

using NaiveText = std::vector<NaiveCharacter>;

/// The rules of ranges and tables written down as plainly as possible.
class NaiveStory
{
public:
    NaiveText text = {{u'\r', 'P', false}};
    std::vector<NaiveRange> ranges;

    Position last() const { return static_cast<Position>(text.size()) - 1; }
    const NaiveCharacter& at(Position position) const { return text[static_cast<std::size_t>(position)]; }
    bool startsParagraph(Position position) const { return position == 0 || at(position - 1).ends != 0; }
    Position paragraphEnd(Position position) const
    {
        while (at(position).ends == 0)
            ++position;
        return position;
    }
    bool inTable(Position position) const { return at(paragraphEnd(position)).inTable; }
    Position rowMark(Position position) const
    {
        while (at(position).ends != 'R')
            ++position;
        return position;
    }
    Position rowStart(Position rowMark) const
    {
        Position start = rowMark;
        while (start > 0 && at(start - 1).ends != 'R' && inTable(start - 1))
            --start;
        return start;
    }
    Position tableEnd(Position position) const
    {
        while (inTable(position))
            ++position;
        return position;
    }
    Position cellsIn(Position rowMark) const
    {
        return static_cast<Position>(
            std::count_if(text.begin() + rowStart(rowMark), text.begin() + rowMark,
                          [](const NaiveCharacter& each) { return each.ends == 'C'; }));
    }

    void insert(Position at, const NaiveText& what)
    {
        text.insert(text.begin() + at, what.begin(), what.end());
        const auto count = static_cast<Position>(what.size());
        for (NaiveRange& each : ranges) {
            each.start += each.start > at ? count : 0;
            each.end += each.end > at ? count : 0;
        }
    }

    NaiveText plain(Position at, const std::u16string& what) const
    {
        NaiveText result;
        for (const char16_t unit : what)
            result.push_back({unit, unit == u'\r' ? 'P' : '\0', unit == u'\r' && inTable(at)});
        return result;
    }

    void eraseOne(Position at)
    {
        text.erase(text.begin() + at);
        for (NaiveRange& each : ranges) {
            each.start -= each.start > at ? 1 : 0;
            each.end -= each.end > at ? 1 : 0;
        }
    }

    void erase(Position start, Position end)
    {
        const Position past = std::min(end, last());
        bool inOneTable = true;
        for (Position i = start; i < end; ++i)
            inOneTable = inOneTable && inTable(i);
        std::vector<bool> goes;
        for (Position i = start; i < past; ++i) {
            const bool structure = at(i).ends == 'C' || at(i).ends == 'R';
            goes.push_back(!structure || (!inOneTable && rowStart(rowMark(i)) >= start && rowMark(i) < past));
        }
        const auto kept = std::find(goes.begin(), goes.end(), false);
        const auto next = start + static_cast<Position>(kept - goes.begin());
        const bool cutsText = start < past && !startsParagraph(start) && !inTable(start);
        if (cutsText && inTable(next) && paragraphEnd(start) < next)
            goes[static_cast<std::size_t>(paragraphEnd(start) - start)] = false;
        for (Position i = past - 1; i >= start; --i)
            if (goes[static_cast<std::size_t>(i - start)])
                eraseOne(i);
    }

    /// Where text behind a range goes.
    Position placeBehind(const NaiveRange& range) const
    {
        const bool endsCell = range.start < range.end && at(range.end - 1).ends == 'C';
        return endsCell ? range.end - 1 : std::min(range.end, last());
    }
};

/// Does `action`, which must raise the error, or none if that is 0.
template <typename Action>
void expectError(std::int32_t error, Action action)
{
    std::int32_t raised = 0;
    try {
        action();
    } catch (const WordError& failure) {
        raised = static_cast<std::int32_t>(failure.number());
    }
    if (raised != error)
        fail("raised " + std::to_string(raised) + " instead of " + std::to_string(error));
}

constexpr std::int32_t atRowEnd = 5251;

/// Text can go everywhere but in front of a row's mark.
std::int32_t errorOfInserting(const NaiveStory& naive, Position at)
{
    return naive.at(at).ends == 'R' ? atRowEnd : 0;
}

void insertBehind(LiveRange& range, NaiveStory& naive, NaiveRange& mine, const std::u16string& text)
{
    const std::u16string normal = normalizeText(text);
    const Position at = naive.placeBehind(mine);
    const std::int32_t error = errorOfInserting(naive, at);
    expectError(error, [&] { range.insertAfter(text); });
    if (error == 0) {
        naive.insert(at, naive.plain(at, normal));
        mine.end = std::max(mine.end, at + static_cast<Position>(normal.size()));
    }
}

void insertInFront(LiveRange& range, NaiveStory& naive, NaiveRange& mine, const std::u16string& text)
{
    const std::u16string normal = normalizeText(text);
    const Position at = std::min(mine.start, naive.last());
    const std::int32_t error = errorOfInserting(naive, at);
    expectError(error, [&] { range.insertBefore(text); });
    if (error == 0) {
        naive.insert(at, naive.plain(at, normal));
        mine.end = std::max(mine.end, at + static_cast<Position>(normal.size()));
    }
}

void replace(LiveRange& range, NaiveStory& naive, NaiveRange& mine, const std::u16string& text, bool isBreak)
{
    const NaiveRange before = mine;
    naive.erase(before.start, before.end);
    mine = {before.start, before.start};
    const std::u16string normal = isBreak ? u"\f" : normalizeText(text);
    const std::int32_t error = errorOfInserting(naive, before.start);
    expectError(error, [&] { isBreak ? range.insertBreak(BreakType::page) : range.setText(text); });
    if (error == 0) {
        naive.insert(before.start, naive.plain(before.start, normal));
        mine.end = before.start + static_cast<Position>(normal.size());
    }
}

void breakSection(LiveRange& range, NaiveStory& naive, NaiveRange& mine)
{
    const Position at = std::min(mine.start, naive.last());
    const std::int32_t error = naive.inTable(at) ? 4605 : 0;
    expectError(error, [&] { range.insertBreak(BreakType::sectionNextPage); });
    if (error == 0) {
        naive.insert(at, {{u'\f', 'S', false}});
        mine = {at + 1, std::max(mine.end, at + 1)};
    }
}

NaiveText emptyRow(Position cells)
{
    NaiveText row(static_cast<std::size_t>(cells), {u'\a', 'C', true});
    row.push_back({u'\a', 'R', true});
    return row;
}

void addTable(LiveRange& range, NaiveStory& naive, NaiveRange& mine, int rows, int columns)
{
    const Position at = mine.start;
    Table::add(range, rows, columns);
    if (mine.start != mine.end) {
        naive.erase(mine.start, mine.end);
        mine = {at, at};
    }
    const bool splits = !naive.startsParagraph(at);
    if (splits)
        naive.insert(at, naive.plain(at, u"\r"));
    for (; rows > 0; --rows)
        naive.insert(splits ? at + 1 : at, emptyRow(columns));
}

/// A table where there is none yet; a row or a cell more where there is one.
void growTable(LiveRange& range, NaiveStory& naive, NaiveRange& mine, int choice)
{
    const Position at = std::min(mine.start, naive.last());
    if (at != mine.start)
        return;
    if (!naive.inTable(at)) {
        addTable(range, naive, mine, choice % 2 + 1, choice / 2 % 3 + 1);
        return;
    }
    Table table(range.storyPtr(), at);
    const Position mark = naive.rowMark(at);
    if (choice % 2 == 0) {
        const Position end = naive.tableEnd(at);
        table.addRow();
        naive.insert(end, emptyRow(naive.cellsIn(end - 1)));
    } else if (naive.cellsIn(mark) < static_cast<Position>(RowFormat::mostCells)) {
        TableRow(range.storyPtr(), mark).addCell();
        naive.insert(mark, {{u'\a', 'C', true}});
    }
}

void edit(FuzzerInput& input, LiveRange& range, NaiveStory& naive, std::size_t number)
{
    NaiveRange& mine = naive.ranges[number];
    switch (input.next() % 12) {
    case 0:
        insertBehind(range, naive, mine, input.text());
        break;
    case 1:
        insertInFront(range, naive, mine, input.text());
        break;
    case 2:
        mine = moveAnywhere(input, range, naive.last());
        break;
    case 3: {
        const NaiveRange before = mine;
        range.remove();
        naive.erase(before.start,
                    before.start == before.end ? std::min(before.end + 1, naive.last()) : before.end);
        mine = {before.start, before.start};
        break;
    }
    case 4:
        replace(range, naive, mine, input.text(), false);
        break;
    case 5:
        replace(range, naive, mine, u"", true);
        break;
    case 6:
        breakSection(range, naive, mine);
        break;
    case 7:
        putAnyFont(input, range);
        break;
    case 8:
        putAnyStyle(input, range);
        break;
    case 9:
        putAnyAlignment(input, range);
        break;
    default:
        growTable(range, naive, mine, input.next() % 6);
    }
}

bool isAlike(const Story& story, const NaiveStory& naive)
{
    if (story.length() != naive.last() + 1)
        return false;
    for (std::size_t i = 0; i < story.paragraphCount(); ++i) {
        const Paragraph paragraph = story.paragraph(i);
        const NaiveCharacter& end = naive.at(paragraph.end - 1);
        const char kind = "PSCR"[static_cast<int>(paragraph.format->end)];
        if (end.ends != kind || end.inTable != paragraph.format->inTable)
            return false;
        for (Position at = paragraph.start; at < paragraph.end; ++at)
            if (story.at(at) != naive.at(at).unit)
                return false;
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    compareEdits<NaiveStory>(FuzzerInput(data, size, madeBytes), edit,
                             [](const Document& document, const NaiveStory& naive) {
                                 if (!isAlike(*document.mainStory(), naive))
                                     fail("the text differs");
                             });
    return 0;
}
