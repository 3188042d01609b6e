#pragma once

#include "FieldCode.h"
#include "FieldMarks.h"
#include "LiveRange.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace standin::model {

/// A field of a story: its code and, if it has one, its result. Every operation raises 5825 once the field or
/// its document is gone.
class Field
{
public:
    Field(std::shared_ptr<Story> story, FieldId id) : story_(std::move(story)), id_(id) {}

    const std::shared_ptr<Story>& storyPtr() const { return story_; }
    FieldId id() const { return id_; }
    bool operator==(const Field&) const = default;

    bool exists() const;
    FieldPlace place() const;
    LiveRange range() const;  ///< with the field characters
    LiveRange code() const;   ///< between the begin character and the separator, spaces included
    LiveRange result() const; ///< collapsed in front of the end character when there is none
    FieldCode parsedCode() const;
    std::int32_t type() const { return parsedCode().type(); }

    void setResult(std::u16string_view text);
    /// Computes the result anew; a field whose result does not depend on anything stays as it is. Raises
    /// NotSupported for a kind of field that the stand-in cannot compute. False when the result says that
    /// something is wrong.
    bool update();
    void unlink(); ///< leaves the result as text

private:
    Story& story() const;
    LiveRange rangeOf(Position start, Position end) const { return {story_, start, end}; }

    std::shared_ptr<Story> story_;
    FieldId id_;
};

/// What a new field is to be.
struct FieldRequest
{
    std::int32_t type = noFieldType; ///< WdFieldType; without one, `text` is the whole code
    std::u16string text = {};        ///< arguments and switches
    /// Adds `\* MERGEFORMAT`; left open, the document's switches decide.
    std::optional<bool> preserveFormatting = {};
};

/// Puts a field in front of the range, or in its place where the document's switches say so. An entry for a
/// table of contents is hidden. Raises 5843 for a type that Word does not know and NotSupported for one whose
/// result the stand-in cannot compute.
Field addField(const LiveRange& range, const FieldRequest& request);

/// The fields that start in the range, by position, nested ones included.
std::vector<Field> fieldsIn(const LiveRange& range);

/// Whether the range lies inside a field or holds a part of one.
bool crossesField(const LiveRange& range);

} // namespace standin::model
