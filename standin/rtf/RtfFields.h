#pragma once

#include "Story.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace standin::rtf {

/// \name What stands for a field's characters. `font` formats the characters themselves.
///@{
std::string fieldBegin(std::string_view font);
std::string_view fieldSeparator();
std::string_view fieldEnd();
/// Around a field inside the code of another, which many readers would show in the middle of the text: they
/// skip it and read the text that it stands for.
std::string codeFieldBegin();
std::string codeFieldEnd(std::u16string text);
///@}

/// The fields that are open while a file is read into stories. Each is whole at any time: what is read goes
/// in front of the end characters of those that are open.
class OpenFields
{
public:
    /// Starts a field at the story's insertion point.
    void open(const std::shared_ptr<model::Story>& story, const model::CharacterFormat& format);
    /// What follows belongs to the result of the field opened last. Nothing when no field is open.
    void openResult();
    void close();
    bool isEmpty() const { return open_.empty(); }

    /// Where the next text of the story goes: in front of the ends of its open fields and its final mark.
    model::Position insertionPoint(const model::Story& story) const;

private:
    struct OpenField
    {
        std::shared_ptr<model::Story> story;
        model::FieldId id;
    };

    std::vector<OpenField> open_;
};

/// The code of an entry for a table of contents that is written as RTF's own destination.
struct ContentsEntry
{
    std::u16string text;
    std::int32_t table = 'C'; ///< a letter's number
    std::int32_t level = 1;

    std::u16string code() const;
};

} // namespace standin::rtf
