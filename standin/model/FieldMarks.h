#pragma once

#include "PositionIndex.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace standin::model {

/// Names a field within its story; never used again.
using FieldId = std::uint32_t;

/// Where a field stands: positions of its begin, separator and end characters. A field without a result has
/// no separator.
struct FieldPlace
{
    FieldId id = 0;
    Position begin = 0;
    std::optional<Position> separator = {};
    Position end = 0;

    Position codeStart() const { return begin + 1; }
    Position codeEnd() const { return separator.value_or(end); }
    Position resultStart() const { return separator ? *separator + 1 : end; }
    Position past() const { return end + 1; }
};

/// The field characters of a story and which of them belong together. Fields nest and never cross.
class FieldMarks
{
public:
    explicit FieldMarks(Position length) : marks_(length) {}

    /// \name Looking up
    ///@{
    bool isEmpty() const { return marks_.size() == 0; }
    std::optional<FieldPlace> find(FieldId id) const;
    /// The fields whose begin character lies in [start,end), outer ones before those inside them.
    std::vector<FieldPlace> startingIn(Position start, Position end) const;
    /// The innermost field that has `at` behind its begin and not behind its end character.
    std::optional<FieldPlace> around(Position at) const;
    /// The field whose end character stands at `end`.
    std::optional<FieldPlace> endingAt(Position end) const;
    /// The first field character at or behind `at`.
    std::optional<Position> nextMark(Position at) const;
    /// Positions of the characters in [start,end) whose field is not wholly inside.
    std::vector<Position> halvesIn(Position start, Position end) const;
    ///@}

    /// Whether the fields are those that `text` holds, each with its own characters.
    bool match(std::u16string_view text) const;

    /// Whether every field character in `text` has its partners in it.
    static bool isPaired(std::u16string_view text);

    /// \name Following the edits of the text
    ///@{
    void inserted(Position at, Position count) { marks_.inserted(at, count); }
    void erased(Position start, Position end);
    /// Enters the field characters of `text`, which now stands at `at` and must be paired.
    void enter(Position at, std::u16string_view text);
    /// Enters one field whose characters stand in the text already.
    FieldId enter(Position begin, std::optional<Position> separator, Position end);
    void enterSeparator(FieldId id, Position at);
    ///@}

private:
    struct Mark
    {
        FieldId id;
        char16_t character;
    };

    Position at(std::size_t index) const { return marks_.position(index) - 1; }
    void enterMark(Position at, FieldId id, char16_t character) { marks_.insert(at + 1, {id, character}); }
    FieldPlace placeFrom(std::size_t beginIndex) const;

    PositionIndex<Mark> marks_; ///< keyed by the position behind the character
    FieldId last_ = 0;
};

} // namespace standin::model
