#include "FieldCode.h"

namespace compose {

namespace {

bool isParagraphEnd(char16_t c)
{
    return c == u'\r' || c == u'\n';
}

std::u16string quoted(std::u16string_view text)
{
    std::u16string code = u"\"";
    bool isBehindParagraphEnd = false;
    for (const char16_t c : text) {
        const bool endsParagraph = isParagraphEnd(c);
        if (c == u'\\' || c == u'"')
            code += u'\\';
        if (!endsParagraph)
            code += c;
        else if (!isBehindParagraphEnd)
            code += u' ';
        isBehindParagraphEnd = endsParagraph;
    }
    return code + u'"';
}

} // namespace

std::u16string entryArguments(const Entry& entry)
{
    return quoted(entry.text) + u" \\fC \\l \"" + static_cast<char16_t>(u'0' + entry.level) + u'"';
}

std::u16string entryCode(const Entry& entry)
{
    return u" TC " + entryArguments(entry) + u' ';
}

std::u16string linkCode(const LinkTarget& target)
{
    if (target.address.empty())
        return u" HYPERLINK  \\l " + quoted(target.bookmark) + u' ';
    return u" HYPERLINK " + quoted(target.address) + u' ';
}

std::u16string_view fieldCode(int number)
{
    switch (number) {
    case 1:
        return u" DATE ";
    case 2:
        return u" TIME ";
    case 3:
        return u" FILENAME ";
    case 4:
        return u" PAGE ";
    default:
        return u"";
    }
}

} // namespace compose
