#include "RtfBuilder.h"

#include "EscapedText.h"

namespace rtf {

void RtfBuilder::open()
{
    append("{");
}

void RtfBuilder::close()
{
    append("}");
}

void RtfBuilder::openIgnorable()
{
    append("{\\*");
}

void RtfBuilder::word(std::string_view name)
{
    rtf_ += '\\';
    rtf_ += name;
    endsInWord_ = true;
}

void RtfBuilder::word(std::string_view name, std::int32_t number)
{
    word(name);
    rtf_ += std::to_string(number);
}

void RtfBuilder::text(std::u16string_view text)
{
    if (text.empty())
        return;
    if (endsInWord_)
        rtf_ += ' ';
    endsInWord_ = false;
    appendEscaped(rtf_, text);
}

void RtfBuilder::endLine()
{
    append("\n");
}

void RtfBuilder::append(std::string_view rtf)
{
    rtf_ += rtf;
    endsInWord_ = false;
}

} // namespace rtf
