#include "RtfFields.h"

#include "FieldCode.h"
#include "RtfText.h"

#include <algorithm>

namespace standin::rtf {

using namespace model;

std::string fieldBegin(std::string_view font)
{
    // A group starts with the formatting of the one around it, here of the field's own character.
    return "{" + std::string(font) + "\\field{\\*\\fldinst{\\plain";
}

std::string_view fieldSeparator()
{
    return "}}{\\fldrslt{\\plain";
}

std::string_view fieldEnd()
{
    return "}}}";
}

std::string codeFieldBegin()
{
    return "{\\*\\mvcodefield";
}

std::string codeFieldEnd(std::u16string text)
{
    std::replace_if(
        text.begin(), text.end(), [](char16_t c) { return c < u' '; }, u' ');
    return "}{\\mvcodetext " + escapeText(text) + "}";
}

void OpenFields::open(const std::shared_ptr<Story>& story, const CharacterFormat& format)
{
    static constexpr char16_t characters[] = {mark::fieldBegin, mark::fieldEnd};
    const Position at = insertionPoint(*story);
    story->insert(at, {characters, 2});
    story->setCharacterFormat(at, at + 2, format);
    open_.push_back({story, story->fields().endingAt(at + 1)->id});
}

void OpenFields::openResult()
{
    if (!open_.empty())
        open_.back().story->addFieldResult(open_.back().id);
}

void OpenFields::close()
{
    open_.pop_back();
}

Position OpenFields::insertionPoint(const Story& story) const
{
    const auto mine = std::count_if(open_.begin(), open_.end(),
                                    [&story](const OpenField& each) { return each.story.get() == &story; });
    return story.length() - 1 - static_cast<Position>(mine);
}

std::u16string ContentsEntry::code() const
{
    std::u16string code = u" TC " + quotedArgument(text);
    if (table >= 'A' && table <= 'Z' && table != 'C') {
        code += u" \\f ";
        code += static_cast<char16_t>(table);
    }
    code += u" \\l ";
    code += static_cast<char16_t>(u'0' + std::clamp(level, 1, 9));
    return code + u' ';
}

} // namespace standin::rtf
