// Throws edits, fields, links and bookmarks at a document and at a plain string that follows the same rules,
// and compares them.
#include "EditedRanges.h"

#include "Field.h"
#include "Hyperlink.h"
#include "WordError.h"

#include <algorithm>
#include <array>
#include <map>
#include <vector>

namespace {

using namespace standin::model;

struct NaiveBookmark
{
    NaiveRange place;
    bool hadText;
};

/// The rules of ranges, fields and bookmarks written down as plainly as possible.
class NaiveStory
{
public:
    std::u16string text = u"\r";
    std::vector<NaiveRange> ranges;
    std::map<std::u16string, NaiveBookmark> bookmarks;

    void insert(Position at, const std::u16string& what)
    {
        text.insert(static_cast<std::size_t>(at), what);
        const auto count = static_cast<Position>(what.size());
        eachRange([at, count](NaiveRange& each) {
            each.start += each.start > at ? count : 0;
            each.end += each.end > at ? count : 0;
        });
    }

    /// Field characters stay whose field does not go as a whole; answers the place behind the last field end
    /// that stays, or the start.
    Position erase(Position start, Position end)
    {
        const std::vector<Position> kept = halves(start, end);
        Position past = end;
        for (auto each = kept.rbegin(); each != kept.rend(); ++each) {
            eraseAll(*each + 1, past);
            past = *each;
        }
        eraseAll(start, past);
        Position place = start;
        for (std::size_t i = 0; i < kept.size(); ++i) {
            const Position at = start + static_cast<Position>(i);
            place = at_(at) == u'\x15' ? at + 1 : place;
        }
        std::erase_if(bookmarks, [](const auto& each) {
            return each.second.hadText && each.second.place.start == each.second.place.end;
        });
        return place;
    }

    /// Begin, separator (or -1) and end of every field, in the order of their ends.
    std::vector<std::array<Position, 3>> fields() const
    {
        std::vector<std::array<Position, 3>> open;
        std::vector<std::array<Position, 3>> found;
        for (Position at = 0; at <= last(); ++at) {
            if (at_(at) == u'\x13') {
                open.push_back({at, -1, -1});
            } else if (at_(at) == u'\x14') {
                open.back()[1] = at;
            } else if (at_(at) == u'\x15') {
                open.back()[2] = at;
                found.push_back(open.back());
                open.pop_back();
            }
        }
        return found;
    }

    std::vector<Position> halves(Position start, Position end) const
    {
        std::vector<Position> found;
        for (const std::array<Position, 3>& field : fields()) {
            for (const Position at : field) {
                const bool inside = at >= start && at < end;
                if (inside && (field[0] < start || field[2] >= end))
                    found.push_back(at);
            }
        }
        std::sort(found.begin(), found.end());
        return found;
    }

    Position last() const { return static_cast<Position>(text.size()) - 1; }

private:
    char16_t at_(Position at) const { return text[static_cast<std::size_t>(at)]; }

    template <typename Change>
    void eachRange(Change change)
    {
        for (NaiveRange& each : ranges)
            change(each);
        for (auto& [name, bookmark] : bookmarks)
            change(bookmark.place);
    }

    void eraseAll(Position start, Position end)
    {
        text.erase(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
        const auto follow = [start, end](Position e) {
            return e >= end ? e - (end - start) : std::min(e, start);
        };
        eachRange([&follow](NaiveRange& each) { each = {follow(each.start), follow(each.end)}; });
    }
};

void edit(FuzzerInput& input, LiveRange& range, NaiveStory& naive, std::size_t number)
{
    NaiveRange& mine = naive.ranges[number];
    switch (input.next() % 15) {
    case 0: {
        const std::u16string text = input.text();
        const Position at = std::min(mine.end, naive.last());
        range.insertAfter(text);
        naive.insert(at, normalizeText(text));
        mine.end = std::max(mine.end, at + static_cast<Position>(normalizeText(text).size()));
        break;
    }
    case 1: {
        const std::u16string text = input.text();
        const Position at = mine.start;
        range.insertBefore(text);
        naive.insert(at, normalizeText(text));
        mine.end = std::max(mine.end, at + static_cast<Position>(normalizeText(text).size()));
        break;
    }
    case 2:
        mine = moveAnywhere(input, range, naive.last());
        break;
    case 3: {
        const NaiveRange before = mine;
        range.remove();
        const Position end = before.start == before.end ? before.end + 1 : before.end;
        const Position place = naive.erase(before.start, std::max(before.start, std::min(end, naive.last())));
        mine = before.start == before.end ? before : NaiveRange{place, place};
        break;
    }
    case 4: {
        const NaiveRange before = mine;
        const std::u16string text = input.text();
        range.setText(text);
        const Position place =
            naive.erase(before.start, std::max(before.start, std::min(before.end, naive.last())));
        naive.insert(place, normalizeText(text));
        mine = {place, place + static_cast<Position>(normalizeText(text).size())};
        break;
    }
    case 5: {
        const NaiveRange before = mine;
        range.insertBreak(BreakType::page);
        const Position place =
            naive.erase(before.start, std::max(before.start, std::min(before.end, naive.last())));
        naive.insert(place, u"\f");
        mine = {place, place + 1};
        break;
    }
    case 6: {
        const NaiveRange before = mine;
        range.insertBreak(BreakType::sectionNextPage);
        naive.insert(before.start, u"\f");
        mine = {before.start + 1, std::max(mine.end, before.start + 1)};
        break;
    }
    case 7:
        putAnyFont(input, range);
        break;
    case 8:
        putAnyStyle(input, range);
        break;
    case 9:
        addField(range, {.type = 29});
        naive.insert(mine.start, u"\x13 FILENAME \x14"
                                 u"Document1\x15");
        break;
    case 10:
        addField(range, {.type = 9, .text = u"\"x\""});
        naive.insert(mine.start, u"\x13 TC \"x\" \x15");
        break;
    case 11: {
        const Position start = mine.start;
        Position end = std::max(start, std::min(mine.end, naive.last()));
        if (const auto halves = naive.halves(start, end); !halves.empty())
            end = halves.front();
        addHyperlink(range, {u"a", u""});
        if (start == end) {
            naive.insert(start, u"a");
            ++end;
        }
        naive.insert(end, u"\x15");
        naive.insert(start, u"\x13 HYPERLINK \"a\" \x14");
        break;
    }
    case 12: {
        const std::u16string name(1, static_cast<char16_t>(u'a' + input.next() % 3));
        range.story().document().bookmarks().add(name, range);
        naive.bookmarks[name] = {mine, mine.start != mine.end};
        break;
    }
    case 13: {
        std::vector<Field> fields = fieldsIn(LiveRange(range.storyPtr(), 0, range.story().length()));
        if (!fields.empty()) {
            Field& field = fields[input.next() % fields.size()];
            const FieldPlace place = field.place();
            field.range().remove();
            naive.erase(place.begin, place.past());
        }
        break;
    }
    default:
        putAnyAlignment(input, range);
    }
}

void compare(const Document& document, const NaiveStory& naive)
{
    const Story& story = *document.mainStory();
    if (story.text(0, story.length()) != naive.text)
        fail("the text differs");
    const Bookmarks& bookmarks = document.bookmarks();
    if (bookmarks.all().size() != naive.bookmarks.size())
        fail("the number of bookmarks differs");
    for (const auto& [name, bookmark] : naive.bookmarks) {
        const BookmarkPtr mine = bookmarks.find(name);
        if (!mine || mine->range().start() != bookmark.place.start ||
            mine->range().end() != bookmark.place.end)
            fail("a bookmark differs");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    compareEdits<NaiveStory>(FuzzerInput(data, size), edit, compare);
    return 0;
}
