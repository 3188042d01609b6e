#include "SaveFormat.h"

#include "FileLookup.h"
#include "WordConstants.h"

#include <array>
#include <cwchar>

namespace compose {

_variant_t saveFormatOf(std::wstring_view fileName)
{
    struct Format
    {
        std::wstring_view extension;
        Word::WdSaveFormat number;
    };
    static constexpr std::array<Format, 4> formats = {{
        {L".doc", Word::wdFormatDocument},
        {L".docx", Word::wdFormatXMLDocument},
        {L".rtf", Word::wdFormatRTF},
        {L".pdf", Word::wdFormatPDF},
    }};
    const std::wstring_view extension = extensionOf(fileName);
    for (const Format& format : formats)
        if (extension.size() == format.extension.size() &&
            _wcsnicmp(extension.data(), format.extension.data(), extension.size()) == 0)
            return Word::integer(format.number);
    return Word::missing;
}

} // namespace compose
