#include "FieldMarks.h"

#include <algorithm>
#include <map>

namespace standin::model {

std::optional<FieldPlace> FieldMarks::find(FieldId id) const
{
    for (std::size_t i = 0; i < marks_.size(); ++i)
        if (marks_.value(i).id == id)
            return placeFrom(i);
    return std::nullopt;
}

FieldPlace FieldMarks::placeFrom(std::size_t beginIndex) const
{
    FieldPlace place;
    place.id = marks_.value(beginIndex).id;
    place.begin = at(beginIndex);
    for (std::size_t i = beginIndex + 1;; ++i) {
        if (marks_.value(i).id != place.id)
            continue;
        if (marks_.value(i).character == mark::fieldEnd) {
            place.end = at(i);
            return place;
        }
        place.separator = at(i);
    }
}

std::vector<FieldPlace> FieldMarks::startingIn(Position start, Position end) const
{
    std::vector<FieldPlace> found;
    std::map<FieldId, std::size_t> open;
    for (std::size_t i = marks_.firstAfter(start); i < marks_.size(); ++i) {
        const Mark& mark = marks_.value(i);
        const Position here = at(i);
        if (here >= end && open.empty())
            break;
        if (mark.character == mark::fieldBegin) {
            if (here < end) {
                open[mark.id] = found.size();
                found.push_back({.id = mark.id, .begin = here});
            }
        } else if (const auto mine = open.find(mark.id); mine != open.end()) {
            if (mark.character == mark::fieldSeparator) {
                found[mine->second].separator = here;
            } else {
                found[mine->second].end = here;
                open.erase(mine);
            }
        }
    }
    return found;
}

std::optional<FieldPlace> FieldMarks::around(Position at) const
{
    std::size_t closed = 0;
    for (std::size_t i = marks_.firstAfter(at); i-- > 0;) {
        const char16_t character = marks_.value(i).character;
        if (character == mark::fieldEnd) {
            ++closed;
        } else if (character == mark::fieldBegin) {
            if (closed == 0)
                return placeFrom(i);
            --closed;
        }
    }
    return std::nullopt;
}

std::optional<FieldPlace> FieldMarks::endingAt(Position end) const
{
    const std::size_t last = marks_.firstAfter(end);
    if (last == marks_.size() || at(last) != end || marks_.value(last).character != mark::fieldEnd)
        return std::nullopt;
    const FieldId id = marks_.value(last).id;
    std::size_t first = last;
    while (marks_.value(first).id != id || marks_.value(first).character != mark::fieldBegin)
        --first;
    return placeFrom(first);
}

std::optional<Position> FieldMarks::nextMark(Position position) const
{
    const std::size_t index = marks_.firstAfter(position);
    return index < marks_.size() ? std::optional(at(index)) : std::nullopt;
}

std::vector<Position> FieldMarks::halvesIn(Position start, Position end) const
{
    std::vector<Position> halves;
    std::vector<Mark> open;
    std::vector<std::vector<Position>> positions;
    for (std::size_t i = marks_.firstAfter(start); i < marks_.size() && at(i) < end; ++i) {
        const Mark& mark = marks_.value(i);
        if (mark.character == mark::fieldBegin) {
            open.push_back(mark);
            positions.push_back({at(i)});
        } else if (open.empty() || open.back().id != mark.id) {
            halves.push_back(at(i));
        } else if (mark.character == mark::fieldSeparator) {
            positions.back().push_back(at(i));
        } else {
            open.pop_back();
            positions.pop_back();
        }
    }
    for (const std::vector<Position>& unfinished : positions)
        halves.insert(halves.end(), unfinished.begin(), unfinished.end());
    std::sort(halves.begin(), halves.end());
    return halves;
}

bool FieldMarks::match(std::u16string_view text) const
{
    if (!isPaired(text))
        return false;
    std::vector<FieldId> open;
    std::size_t index = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] < mark::fieldBegin || text[i] > mark::fieldEnd)
            continue;
        if (index >= marks_.size() || at(index) != static_cast<Position>(i) ||
            marks_.value(index).character != text[i])
            return false;
        const FieldId id = marks_.value(index++).id;
        if (text[i] == mark::fieldBegin)
            open.push_back(id);
        else if (open.back() != id)
            return false;
        else if (text[i] == mark::fieldEnd)
            open.pop_back();
    }
    return index == marks_.size();
}

bool FieldMarks::isPaired(std::u16string_view text)
{
    std::vector<bool> hasSeparator;
    for (const char16_t unit : text) {
        if (unit == mark::fieldBegin) {
            hasSeparator.push_back(false);
        } else if (unit == mark::fieldSeparator) {
            if (hasSeparator.empty() || hasSeparator.back())
                return false;
            hasSeparator.back() = true;
        } else if (unit == mark::fieldEnd) {
            if (hasSeparator.empty())
                return false;
            hasSeparator.pop_back();
        }
    }
    return hasSeparator.empty();
}

void FieldMarks::erased(Position start, Position end)
{
    marks_.removeBetween(start, end);
    marks_.erased(start, end);
}

void FieldMarks::enter(Position at, std::u16string_view text)
{
    std::vector<FieldId> open;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (unit != mark::fieldBegin && unit != mark::fieldSeparator && unit != mark::fieldEnd)
            continue;
        if (unit == mark::fieldBegin)
            open.push_back(++last_);
        enterMark(at + static_cast<Position>(i), open.back(), unit);
        if (unit == mark::fieldEnd)
            open.pop_back();
    }
}

FieldId FieldMarks::enter(Position begin, std::optional<Position> separator, Position end)
{
    const FieldId id = ++last_;
    enterMark(begin, id, mark::fieldBegin);
    if (separator)
        enterMark(*separator, id, mark::fieldSeparator);
    enterMark(end, id, mark::fieldEnd);
    return id;
}

void FieldMarks::enterSeparator(FieldId id, Position at)
{
    enterMark(at, id, mark::fieldSeparator);
}

} // namespace standin::model
