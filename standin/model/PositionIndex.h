#pragma once

#include "Constants.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace standin::model {

/// Values kept at ascending, distinct positions of a text.
///
/// Entries before a gap are kept by their distance from the text's start, those behind it by their distance
/// from its end, so that an edit at the gap moves none of them. The gap follows the edits.
template <typename Value>
class PositionIndex
{
public:
    explicit PositionIndex(Position length) : length_(length) {}

    std::size_t size() const { return before_.size() + behind_.size(); }

    Position position(std::size_t index) const
    {
        return index < before_.size() ? before_[index].first : length_ - fromBehind(index).first;
    }

    const Value& value(std::size_t index) const
    {
        return index < before_.size() ? before_[index].second : fromBehind(index).second;
    }

    Value& value(std::size_t index) { return const_cast<Value&>(std::as_const(*this).value(index)); }

    /// Index of the first entry at a position > `position`; size() when there is none.
    std::size_t firstAfter(Position position) const
    {
        const auto inFront = std::upper_bound(before_.begin(), before_.end(), position,
                                              [](Position p, const Entry& e) { return p < e.first; });
        if (inFront != before_.end())
            return static_cast<std::size_t>(inFront - before_.begin());
        // Behind the gap the last element is the nearest, and keys are distances from the end.
        const auto past = std::lower_bound(behind_.begin(), behind_.end(), length_ - position,
                                           [](const Entry& e, Position key) { return e.first < key; });
        return size() - static_cast<std::size_t>(past - behind_.begin());
    }

    /// There must be no entry at `position` yet.
    void insert(Position position, Value value)
    {
        moveGap(position);
        before_.emplace_back(position, std::move(value));
    }

    /// Removes the entries at positions in (after, upTo].
    void removeBetween(Position after, Position upTo)
    {
        moveGap(upTo);
        while (!before_.empty() && before_.back().first > after)
            before_.pop_back();
    }

    /// `count` characters were inserted at `at`: entries at positions > at move.
    void inserted(Position at, Position count)
    {
        moveGap(at);
        length_ += count;
    }

    /// [start,end) was deleted, and there are no entries in (start,end] any more: entries behind move.
    void erased(Position start, Position end)
    {
        moveGap(start);
        length_ -= end - start;
    }

private:
    using Entry = std::pair<Position, Value>;

    const Entry& fromBehind(std::size_t index) const { return behind_[size() - 1 - index]; }

    /// Entries at positions <= at go before the gap, the others behind it.
    void moveGap(Position at)
    {
        while (!before_.empty() && before_.back().first > at) {
            behind_.emplace_back(length_ - before_.back().first, std::move(before_.back().second));
            before_.pop_back();
        }
        while (!behind_.empty() && length_ - behind_.back().first <= at) {
            before_.emplace_back(length_ - behind_.back().first, std::move(behind_.back().second));
            behind_.pop_back();
        }
    }

    Position length_;
    std::vector<Entry> before_;
    std::vector<Entry> behind_; ///< the nearest to the gap last
};

} // namespace standin::model
